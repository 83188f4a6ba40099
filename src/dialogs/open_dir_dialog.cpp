#include "dialogs/open_dir_dialog.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <optional>
#include <system_error>

#include "platform/ascii_case.h"
#include "platform/file_lookup.h"
#include "platform/host_path.h"
#include "platform/text_codec.h"
#include "platform/windows_directory.h"
#include "widgets/dialog_answers.h"

namespace wk {

namespace fs = std::filesystem;

namespace {

// The size the dialog opens at; it may be enlarged.
constexpr int kWidth = 418;
constexpr int kHeight = 237;

// The list items carry the path they stand for, and their depth below the drive's root.
constexpr int kPathRole = Qt::UserRole;
constexpr int kDepthRole = Qt::UserRole + 1;
// How far each level is indented.
constexpr int kIndent = 16;

// Draws each directory indented by its depth, folder and name together, so that the list reads
// as the way down from the root.
class IndentingDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem indented = option;
        indented.rect.adjust(Indent(index), 0, 0, 0);
        QStyledItemDelegate::paint(painter, indented, index);
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(Indent(index), 0);
    }

private:
    static int Indent(const QModelIndex& index) { return index.data(kDepthRole).toInt() * kIndent; }
};

bool HasDrive(const std::string& path) {
    return path.size() >= 2 && std::isalpha(static_cast<unsigned char>(path[0])) && path[1] == ':';
}

std::string Root(char drive) {
    return std::string(1, drive) + ":\\";
}

// The components of a path after its drive, "." dropped and ".." taken back.
std::vector<std::string> Components(const std::string& path) {
    std::vector<std::string> parts;
    std::string part;
    const auto flush = [&] {
        if (part == "..") {
            if (!parts.empty()) parts.pop_back();
        } else if (!part.empty() && part != ".") {
            parts.push_back(part);
        }
        part.clear();
    };
    for (std::size_t i = HasDrive(path) ? 2 : 0; i < path.size(); ++i) {
        if (path[i] == '\\' || path[i] == '/') {
            flush();
        } else {
            part += path[i];
        }
    }
    flush();
    return parts;
}

// "D:\DATA\PARTS": the drive in upper case, one backslash between components, none at the end
// but the root's. A path without a drive is on `drive`, from its root.
std::string Normalised(char drive, const std::string& path) {
    const char letter = ToUpperAscii(HasDrive(path) ? path[0] : drive);
    std::string normal = Root(letter);
    bool first = true;
    for (const std::string& part : Components(path)) {
        if (!first) normal += '\\';
        normal += part;
        first = false;
    }
    return normal;
}

bool SameDirectory(const std::string& a, const std::string& b) {
    return EqualsIgnoringAsciiCase(a, b);
}

// Paths of the measuring application are ANSI bytes: shown as text, carried by the list's
// items byte for byte.
QString Shown(const std::string& ansi) {
    return QString::fromStdString(platform::AnsiToUtf8(ansi));
}

std::string PathOf(const QListWidgetItem* item) {
    return item->data(kPathRole).toByteArray().toStdString();
}

QString HostName(const fs::path& path) {
    return QFile::decodeName(QByteArray::fromStdString(platform::PathToAnsi(path)));
}

// The subdirectories of a host directory, sorted without regard to case. Hidden directories
// of the host (".name") are not the measuring application's.
std::vector<std::string> Subdirectories(const fs::path& host) {
    std::vector<std::string> names;
    std::error_code ec;
    for (fs::directory_iterator it(host, ec), end; !ec && it != end; it.increment(ec)) {
        std::error_code statusEc;
        if (!it->is_directory(statusEc)) continue;
        const std::string name = platform::PathToAnsi(it->path().filename());
#ifndef _WIN32
        if (!name.empty() && name.front() == '.') continue;
#endif
        names.push_back(name);
    }
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        return std::lexicographical_compare(
            a.begin(), a.end(), b.begin(), b.end(),
            [](char x, char y) { return ToLowerAscii(x) < ToLowerAscii(y); });
    });
    return names;
}

}  // namespace

TOpenDirDialog::TOpenDirDialog(QWidget* owner) : QDialog(owner) {
    setObjectName(QStringLiteral("OpenDirDialog"));
    setWindowTitle(QStringLiteral("Select Directory"));
    setModal(true);

    DriveComboBox = new QComboBox(this);
    DriveComboBox->setObjectName(QStringLiteral("DriveComboBox"));
    DriveComboBox->setAccessibleName(QStringLiteral("Drive"));
    DirectoryLabel = new QLabel(this);
    DirectoryLabel->setObjectName(QStringLiteral("DirectoryLabel"));
    DirectoryLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    DirectoryLisBox = new QListWidget(this);
    DirectoryLisBox->setObjectName(QStringLiteral("DirectoryLisBox"));
    DirectoryLisBox->setSelectionMode(QAbstractItemView::SingleSelection);
    DirectoryLisBox->setAccessibleName(QStringLiteral("Directories"));
    DirectoryLisBox->setItemDelegate(new IndentingDelegate(DirectoryLisBox));
    DirectoryLisBox->installEventFilter(this);
    DriveNote = new QLabel(this);
    DriveNote->setObjectName(QStringLiteral("DriveNote"));
    DriveNote->setWordWrap(true);
    pOkButton = new QPushButton(QStringLiteral("&OK"), this);
    pOkButton->setObjectName(QStringLiteral("pOkButton"));
    pOkButton->setDefault(true);
    pBButton = new QPushButton(QStringLiteral("&Cancel"), this);
    pBButton->setObjectName(QStringLiteral("pBButton"));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(pOkButton);
    buttons->addWidget(pBButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(DriveComboBox);
    layout->addWidget(DirectoryLabel);
    layout->addWidget(DirectoryLisBox, 1);
    layout->addWidget(DriveNote);
    layout->addLayout(buttons);
    resize(kWidth, kHeight);

    connect(DriveComboBox, &QComboBox::activated, this, &TOpenDirDialog::DriveComboBoxChange);
    connect(DirectoryLisBox, &QListWidget::currentItemChanged, this,
            &TOpenDirDialog::SelectionChanged);
    connect(DirectoryLisBox, &QListWidget::itemDoubleClicked, this,
            &TOpenDirDialog::DirectoryLisBoxDblClick);
    connect(pOkButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(pBButton, &QPushButton::clicked, this, &QDialog::reject);

    // Until it is given one, the dialog is at the root of the Windows directory's drive. The
    // drives and the list are read when it is opened, not here: making it costs start-up
    // nothing.
    char windows[512] = {};
    GetWindowsDirectoryA(windows, sizeof windows);
    drive_ = HasDrive(windows) ? ToUpperAscii(windows[0]) : 'C';
    directory_ = Root(drive_);
    DirectoryLabel->setText(Shown(directory_));
}

const platform::DosDrive* TOpenDirDialog::DriveOf(char letter) const {
    letter = ToUpperAscii(letter);
    for (const platform::DosDrive& drive : drives_) {
        if (drive.letter == letter) return &drive;
    }
    return nullptr;
}

void TOpenDirDialog::FillDrives() {
    drives_ = platform::DosDrives();
    const QSignalBlocker blocker(DriveComboBox);
    DriveComboBox->clear();
    for (const platform::DosDrive& drive : drives_) {
        // The letter as the drive combo boxes of Windows show it, and where the drive leads.
        QString text = QStringLiteral("%1:").arg(QChar::fromLatin1(ToLowerAscii(drive.letter)));
#ifndef _WIN32
        text += QStringLiteral("  [%1]").arg(
            QFile::decodeName(QByteArray::fromStdString(drive.hostRoot)));
#endif
        DriveComboBox->addItem(text, QChar::fromLatin1(drive.letter));
    }
    ShowDrive(drive_);
}

void TOpenDirDialog::ShowDrive(char letter) {
    const QSignalBlocker blocker(DriveComboBox);
    DriveComboBox->setCurrentIndex(DriveComboBox->findData(QChar::fromLatin1(letter)));
}

void TOpenDirDialog::SetDirectory(const std::string& path) {
    FillDrives();
    if (!path.empty()) {
        if (HasDrive(path)) {
            const char letter = ToUpperAscii(path[0]);
            // A drive without a medium cannot be chosen; the list stays on its drive.
            if (DriveOf(letter) && platform::DirectoryExistsA(Root(letter).c_str())) {
                drive_ = letter;
            }
        }
        directory_ = Normalised(drive_, path);
    }
    ShowDrive(drive_);
    DriveNote->clear();
    OpenDirectory(directory_[0] == drive_ ? directory_ : Root(drive_));
}

void TOpenDirDialog::OpenDirectory(const std::string& dosPath) {
    filling_ = true;
    DirectoryLisBox->clear();
    const platform::DosDrive* drive = DriveOf(dosPath[0]);
    std::error_code ec;
    if (drive && fs::is_directory(platform::PathFromAnsi(drive->hostRoot), ec)) {
        // The way down from the root, as far as it exists.
        struct Level {
            std::string dos;
            fs::path host;
            QString name;
        };
        std::vector<Level> levels{{Root(drive->letter), platform::PathFromAnsi(drive->hostRoot),
                                   Shown(Root(drive->letter))}};
        for (const std::string& part : Components(dosPath)) {
            const std::optional<fs::path> entry =
                platform::FindEntryIgnoringCase(levels.back().host, part);
            if (!entry || !fs::is_directory(*entry, ec)) break;
            const std::string name = platform::PathToAnsi(entry->filename());
            const std::string parent = levels.back().dos;
            levels.push_back({parent + (parent.back() == '\\' ? "" : "\\") + name, *entry,
                              HostName(entry->filename())});
        }
        const QIcon open = style()->standardIcon(QStyle::SP_DirOpenIcon);
        const QIcon closed = style()->standardIcon(QStyle::SP_DirClosedIcon);
        const auto add = [&](const QIcon& icon, int depth, const QString& name,
                             const std::string& dos) {
            auto* item = new QListWidgetItem(icon, name);
            item->setData(kPathRole, QByteArray::fromStdString(dos));
            item->setData(kDepthRole, depth);
            DirectoryLisBox->addItem(item);
            return item;
        };
        for (std::size_t i = 0; i < levels.size(); ++i) {
            add(open, static_cast<int>(i), levels[i].name, levels[i].dos);
        }
        const std::string& parent = levels.back().dos;
        for (const std::string& name : Subdirectories(levels.back().host)) {
            add(closed, static_cast<int>(levels.size()), HostName(platform::PathFromAnsi(name)),
                parent + (parent.back() == '\\' ? "" : "\\") + name);
        }
        // The directory itself is selected when the list shows it.
        for (int row = 0; row < DirectoryLisBox->count(); ++row) {
            QListWidgetItem* item = DirectoryLisBox->item(row);
            if (SameDirectory(PathOf(item), directory_)) {
                DirectoryLisBox->setCurrentItem(item);
                break;
            }
        }
    }
    filling_ = false;
    DirectoryLabel->setText(Shown(directory_));
}

void TOpenDirDialog::SelectionChanged() {
    if (filling_) return;
    const QListWidgetItem* item = DirectoryLisBox->currentItem();
    if (!item) return;
    directory_ = PathOf(item);
    DirectoryLabel->setText(Shown(directory_));
}

void TOpenDirDialog::DriveComboBoxChange() {
    const QString data = DriveComboBox->currentData().toString();
    if (data.isEmpty()) return;
    const char letter = data.at(0).toLatin1();
    const std::string root = Root(letter);
    if (!platform::DirectoryExistsA(root.c_str())) {
        // A drive without a medium cannot be chosen: the combo box goes back to the list's.
        ShowDrive(drive_);
        const platform::DosDrive* drive = DriveOf(letter);
        DriveNote->setText(
            QStringLiteral("Drive %1: has no medium%2.")
                .arg(QChar::fromLatin1(letter))
                .arg(drive ? QStringLiteral(" (%1 does not exist)")
                                 .arg(QFile::decodeName(QByteArray::fromStdString(drive->hostRoot)))
                           : QString()));
        return;
    }
    DriveNote->clear();
    drive_ = letter;
    directory_ = root;
    OpenDirectory(root);
}

void TOpenDirDialog::DirectoryLisBoxDblClick(QListWidgetItem* item) {
    if (!item) return;
    // The directory is opened, as the list does, and chosen.
    directory_ = PathOf(item);
    OpenDirectory(directory_);
    accept();
}

bool TOpenDirDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == DirectoryLisBox && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && DirectoryLisBox->currentItem()) {
            // Enter opens the selected directory; the dialog stays for going further down.
            directory_ = PathOf(DirectoryLisBox->currentItem());
            OpenDirectory(directory_);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

bool TOpenDirDialog::Run() {
    const std::optional<std::string> chosen =
        DirectoryAnswers().Run([this]() -> std::optional<std::string> {
            if (exec() != QDialog::Accepted) return std::nullopt;
            return GetDirectory();
        });
    if (!chosen) return false;
    // An answer given in advance is taken as the directory, as a choice in the dialog is.
    SetDirectory(*chosen);
    return true;
}

}  // namespace wk
