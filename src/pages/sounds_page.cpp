#include "pages/sounds_page.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QStatusTipEvent>
#include <QVBoxLayout>
#include <iterator>

#include "pages/form_controls.h"
#include "platform/dos_paths.h"
#include "platform/message_box.h"
#include "platform/sound_file.h"
#include "platform/windows_directory.h"
#include "settings/setup_settings.h"
#include "widgets/edit_field.h"
#include "widgets/wave_player_loader.h"

namespace wk {

namespace {

// Language string ids of the page.
constexpr int kIdSheet = 17;
constexpr int kIdDirectory = 129;
constexpr int kIdPowerOn = 331;
constexpr int kIdFileName = 332;
constexpr int kIdPlay = 333;
constexpr int kIdContinuous = 334;
constexpr int kIdZeroes = 335;
constexpr int kIdGeneral = 336;
constexpr int kIdEventsList = 337;
constexpr int kIdFilesList = 338;
// The caption of event id 1 in the events list; ids 1 to 11 follow in order.
constexpr int kIdFirstEvent = 320;

// The title of the page's own messages.
constexpr const char* kMessageTitle = "WKestel32";

// How the label of the current file target is marked.
const QColor kTargetText(0, 0, 170);

bool HasDrive(const std::string& path) {
    return path.size() >= 2 && path[1] == ':';
}

// The folder of the location as the measuring application names it with its drive: a location
// without one is on the drive of the Windows directory.
std::string DosFolderOf(const std::string& location) {
    if (!platform::IsDosPath(location)) {
        return platform::HostToDosPath(location).value_or(location);
    }
    if (HasDrive(location)) return location;
    char windows[512] = {};
    GetWindowsDirectoryA(windows, sizeof windows);
    const std::string drive = HasDrive(windows) ? std::string(windows, 2) : std::string("C:");
    return drive + (location.empty() || location.front() != '\\' ? "\\" : "") + location;
}

// Why a sound cannot be played, in words for the user.
QString ProblemText(const std::string& sound, const platform::SoundFile& file) {
    const QString named = FromAnsi(sound);
    const QString host = QFile::decodeName(QByteArray::fromStdString(file.hostPath));
    const QString where =
        host.isEmpty() || host == named ? QString() : QStringLiteral("\n\n(%1)").arg(host);
    switch (file.problem) {
        case platform::SoundFileProblem::NoFile:
            return QStringLiteral("No sound file is named for this sound.");
        case platform::SoundFileProblem::NoSuchDrive:
            return QStringLiteral(
                       "The sound file %1 cannot be played: its drive is not a drive "
                       "of the Wine prefix.")
                .arg(named);
        case platform::SoundFileProblem::Missing:
            return QStringLiteral("The sound file %1 does not exist.%2").arg(named, where);
        case platform::SoundFileProblem::NotAFile:
            return QStringLiteral("The sound %1 names no file.%2").arg(named, where);
        case platform::SoundFileProblem::Unreadable:
            return QStringLiteral("The sound file %1 cannot be read.%2").arg(named, where);
        case platform::SoundFileProblem::NotWave:
            return QStringLiteral("The sound file %1 is not a wave file.%2").arg(named, where);
        case platform::SoundFileProblem::None:
            break;
    }
    return {};
}

}  // namespace

TSoundsPage::TSoundsPage(PageHost& host) : KestelPage(host) {
    pST_Directory = MakeFormLabel(this, "pST_Directory", "Directory");
    pSLE_Location = MakeFormControl<QLineEdit>(this, "pSLE_Location");
    // The location follows from the settings file; it is shown, not edited, here.
    pSLE_Location->setReadOnly(true);

    pGBX_ContPowerOn = MakeFormGroup(this, "pGBX_ContPowerOn", "Power On");
    pST_FnamePowerOn = MakeFormLabel(pGBX_ContPowerOn, "pST_FnamePowerOn", "File name :");
    pSLE_FnamePowerOn = MakeFormEdit(pGBX_ContPowerOn, "pSLE_FnamePowerOn");
    pCHB_PlayPowerOn = MakeFormCheck(pGBX_ContPowerOn, "pCHB_PlayPowerOn", "Play");
    pCHB_ContPowerOn = MakeFormCheck(pGBX_ContPowerOn, "pCHB_ContPowerOn", "Continuous");

    pGBX_ContZeroes = MakeFormGroup(this, "pGBX_ContZeroes", "Zeroes");
    pST_FnameZeroes = MakeFormLabel(pGBX_ContZeroes, "pST_FnameZeroes", "File name :");
    pSLE_FnameZeroes = MakeFormEdit(pGBX_ContZeroes, "pSLE_FnameZeroes");
    pCHB_PlayZeroes = MakeFormCheck(pGBX_ContZeroes, "pCHB_PlayZeroes", "Play");
    pCHB_ContZeroes = MakeFormCheck(pGBX_ContZeroes, "pCHB_ContZeroes", "Continuous");

    pGBX_PlayGeneral = MakeFormGroup(this, "pGBX_PlayGeneral", "General");
    pCHB_PlayGeneral = MakeFormCheck(pGBX_PlayGeneral, "pCHB_PlayGeneral", "Play");
    pST_EventsList = MakeFormLabel(pGBX_PlayGeneral, "pST_EventsList", "Events list");
    pST_FilesList = MakeFormLabel(pGBX_PlayGeneral, "pST_FilesList", "Files list");
    pLB_EventsList = new QListWidget(pGBX_PlayGeneral);
    pLB_EventsList->setObjectName(QStringLiteral("pLB_EventsList"));
    pLB_EventsList->setSelectionMode(QAbstractItemView::SingleSelection);
    // The captions are padded to one width so that the file names line up: a fixed-pitch font.
    pLB_EventsList->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    pLB_EventsList->setMinimumWidth(
        pLB_EventsList->fontMetrics().horizontalAdvance(QString(30, QLatin1Char('M'))) + 8);
    pFLB_FilesList = new QListWidget(pGBX_PlayGeneral);
    pFLB_FilesList->setObjectName(QStringLiteral("pFLB_FilesList"));
    pFLB_FilesList->setSelectionMode(QAbstractItemView::SingleSelection);
    pPB_Test = new QPushButton(QStringLiteral("Play"), pGBX_PlayGeneral);
    pPB_Test->setObjectName(QStringLiteral("pPB_Test"));
    pPB_Test->setAccessibleDescription(QStringLiteral("Plays the sound selected last"));

    BuildLayout();

    connect(pSLE_FnamePowerOn, &EditField::Enter, this, &TSoundsPage::pSLE_FnamePowerOnEnter);
    connect(pSLE_FnamePowerOn, &EditField::Exit, this, &TSoundsPage::pSLE_FnamePowerOnExit);
    connect(pSLE_FnameZeroes, &EditField::Enter, this, &TSoundsPage::pSLE_FnameZeroesEnter);
    connect(pSLE_FnameZeroes, &EditField::Exit, this, &TSoundsPage::pSLE_FnameZeroesExit);
    // The user's keys and clicks on the list; clicking the selected row again counts too.
    connect(pLB_EventsList, &QListWidget::currentRowChanged, this, [this] {
        if (!filling_) pLB_EventsListClick();
    });
    connect(pLB_EventsList, &QListWidget::itemClicked, this, &TSoundsPage::pLB_EventsListClick);
    connect(pFLB_FilesList, &QListWidget::itemSelectionChanged, this,
            &TSoundsPage::pFLB_FilesListChange);
    connect(pFLB_FilesList, &QListWidget::itemDoubleClicked, this,
            &TSoundsPage::pFLB_FilesListDblClick);
    connect(pCHB_PlayPowerOn, &QCheckBox::clicked, this, &TSoundsPage::pCHB_PlayPowerOnClick);
    connect(pCHB_ContPowerOn, &QCheckBox::clicked, this, &TSoundsPage::pCHB_ContPowerOnClick);
    connect(pCHB_PlayZeroes, &QCheckBox::clicked, this, &TSoundsPage::pCHB_PlayZeroesClick);
    connect(pCHB_ContZeroes, &QCheckBox::clicked, this, &TSoundsPage::pCHB_ContZeroesClick);
    connect(pCHB_PlayGeneral, &QCheckBox::clicked, this, &TSoundsPage::pCHB_PlayGeneralClick);
    connect(pPB_Test, &QPushButton::clicked, this, &TSoundsPage::pPB_TestClick);
}

TSoundsPage::~TSoundsPage() {
    // The controls outlive this part of the page by a moment; what they report while going
    // must not reach the handlers of a page that is gone. The player goes first, and with it
    // any report of a sound still loading.
    player_.reset();
    for (QObject* control : findChildren<QObject*>()) {
        control->disconnect(this);
    }
}

void TSoundsPage::BuildLayout() {
    auto* location = new QHBoxLayout;
    pST_Directory->setBuddy(pSLE_Location);
    location->addWidget(pST_Directory);
    location->addWidget(pSLE_Location, 1);

    const struct {
        QGroupBox* group;
        QLabel* label;
        EditField* edit;
        QCheckBox* play;
        QCheckBox* continuous;
    } starts[] = {
        {pGBX_ContPowerOn, pST_FnamePowerOn, pSLE_FnamePowerOn, pCHB_PlayPowerOn, pCHB_ContPowerOn},
        {pGBX_ContZeroes, pST_FnameZeroes, pSLE_FnameZeroes, pCHB_PlayZeroes, pCHB_ContZeroes},
    };
    auto* startRow = new QHBoxLayout;
    startRow->setSpacing(16);
    for (const auto& s : starts) {
        auto* grid = new QGridLayout(s.group);
        grid->setHorizontalSpacing(8);
        grid->setVerticalSpacing(6);
        s.label->setBuddy(s.edit);
        grid->addWidget(s.label, 0, 0);
        grid->addWidget(s.edit, 0, 1, 1, 2);
        grid->addWidget(s.play, 1, 1);
        grid->addWidget(s.continuous, 1, 2);
        grid->setColumnStretch(2, 1);
        startRow->addWidget(s.group, 1);
    }

    auto* general = new QGridLayout(pGBX_PlayGeneral);
    general->setHorizontalSpacing(12);
    general->setVerticalSpacing(6);
    pST_EventsList->setBuddy(pLB_EventsList);
    pST_FilesList->setBuddy(pFLB_FilesList);
    general->addWidget(pCHB_PlayGeneral, 0, 0);
    general->addWidget(pST_EventsList, 1, 0);
    general->addWidget(pST_FilesList, 1, 1);
    general->addWidget(pLB_EventsList, 2, 0);
    general->addWidget(pFLB_FilesList, 2, 1);
    general->addWidget(pPB_Test, 3, 1, Qt::AlignRight);
    general->setColumnStretch(0, 3);
    general->setColumnStretch(1, 2);
    general->setRowStretch(2, 1);

    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(16, 12, 16, 12);
    page->setSpacing(10);
    page->addLayout(location);
    page->addLayout(startRow);
    page->addWidget(pGBX_PlayGeneral, 1);

    QWidget* tabOrder[] = {pSLE_Location,    pSLE_FnamePowerOn, pCHB_PlayPowerOn, pCHB_ContPowerOn,
                           pSLE_FnameZeroes, pCHB_PlayZeroes,   pCHB_ContZeroes,  pCHB_PlayGeneral,
                           pLB_EventsList,   pFLB_FilesList,    pPB_Test};
    for (std::size_t i = 1; i < std::size(tabOrder); ++i) {
        setTabOrder(tabOrder[i - 1], tabOrder[i]);
    }
}

void TSoundsPage::Initialise() {
    const SetupSettings& settings = host_.Settings();
    fileTarget_ = kSelectedEvent;
    lastSelection_ = kSelectedEvent;

    host_.SetSheetCaption(this, host_.LanguageText(kIdSheet));
    pST_Directory->setText(host_.LanguageText(kIdDirectory));
    pGBX_ContPowerOn->setTitle(host_.LanguageText(kIdPowerOn));
    pGBX_ContZeroes->setTitle(host_.LanguageText(kIdZeroes));
    pGBX_PlayGeneral->setTitle(host_.LanguageText(kIdGeneral));
    pST_FnamePowerOn->setText(host_.LanguageText(kIdFileName));
    pST_FnameZeroes->setText(host_.LanguageText(kIdFileName));
    for (QAbstractButton* play : {static_cast<QAbstractButton*>(pCHB_PlayPowerOn),
                                  static_cast<QAbstractButton*>(pCHB_PlayZeroes),
                                  static_cast<QAbstractButton*>(pCHB_PlayGeneral),
                                  static_cast<QAbstractButton*>(pPB_Test)}) {
        play->setText(host_.LanguageText(kIdPlay));
    }
    pCHB_ContPowerOn->setText(host_.LanguageText(kIdContinuous));
    pCHB_ContZeroes->setText(host_.LanguageText(kIdContinuous));
    pST_EventsList->setText(host_.LanguageText(kIdEventsList));
    pST_FilesList->setText(host_.LanguageText(kIdFilesList));
    // Controls named after their labels; the two file-name edits and their switches also
    // after their group, since the labels alone are alike.
    pSLE_Location->setAccessibleName(SpokenCaption(pST_Directory->text()));
    pSLE_FnamePowerOn->setAccessibleName(SpokenCaption(pGBX_ContPowerOn->title()) +
                                         QStringLiteral(": ") +
                                         SpokenCaption(pST_FnamePowerOn->text()));
    pSLE_FnameZeroes->setAccessibleName(SpokenCaption(pGBX_ContZeroes->title()) +
                                        QStringLiteral(": ") +
                                        SpokenCaption(pST_FnameZeroes->text()));
    pLB_EventsList->setAccessibleName(SpokenCaption(pST_EventsList->text()));
    pFLB_FilesList->setAccessibleName(SpokenCaption(pST_FilesList->text()));

    // The labels of the two lists belong with the window colours: with no window listed there,
    // they are dimmed here too.
    const bool anyWindow = settings.AnyWindowListed();
    pST_EventsList->setEnabled(anyWindow);
    pST_FilesList->setEnabled(anyWindow);

    if (platform::DirectoryExistsA(settings.Location.c_str())) {
        PointFileList(
            QFile::decodeName(QByteArray::fromStdString(platform::ToHostPath(settings.Location))),
            DosFolderOf(settings.Location));
    }

    pSLE_Location->setText(FromAnsi(settings.Location));
    pSLE_FnamePowerOn->setText(FromAnsi(settings.GetSound(SoundSettings::kPowerOnSoundId, true)));
    pSLE_FnameZeroes->setText(FromAnsi(settings.GetSound(SoundSettings::kZeroesSoundId, true)));

    pCHB_PlayPowerOn->setChecked(settings.PlayPowerOn);
    pCHB_ContPowerOn->setChecked(settings.PowerOnContinuous);
    pCHB_PlayZeroes->setChecked(settings.PlayZeroes);
    pCHB_ContZeroes->setChecked(settings.ZeroesContinuous);
    pCHB_PlayGeneral->setChecked(settings.PlayGeneral);
    // The zeroes sound is never continuous from here: its switch stays hidden, though its key is
    // read and written.
    pCHB_ContZeroes->setVisible(false);
    pCHB_ContZeroes->setEnabled(settings.PlayZeroes);
    pCHB_ContPowerOn->setEnabled(settings.PlayPowerOn);

    FillEventsList();
    filling_ = true;
    pLB_EventsList->setCurrentRow(0);
    filling_ = false;
    // The row the list shows selected is the event a picked file goes to and Test plays.
    selectedRow_ = 0;
    MarkFileTarget();
}

void TSoundsPage::FillEventsList() {
    const SetupSettings& settings = host_.Settings();
    filling_ = true;
    pLB_EventsList->clear();
    for (int id = 1; id <= SoundSettings::kEventCount; ++id) {
        rowToId_[static_cast<std::size_t>(id - 1)] = id;
        // "%-15s [%s]": the caption padded to 15 characters, the file-name part in brackets.
        const QString caption = host_.LanguageText(kIdFirstEvent + id - 1);
        pLB_EventsList->addItem(caption.leftJustified(15, QLatin1Char(' ')) + QStringLiteral(" [") +
                                FromAnsi(settings.GetSound(id, true)) + QStringLiteral("]"));
    }
    filling_ = false;
}

void TSoundsPage::MarkFileTarget() {
    const struct {
        QLabel* label;
        int target;
    } labels[] = {{pST_FnamePowerOn, kPowerOnFile},
                  {pST_FnameZeroes, kZeroesFile},
                  {pST_EventsList, kSelectedEvent}};
    for (const auto& l : labels) {
        const bool marked = l.target == fileTarget_;
        QFont font = l.label->font();
        font.setBold(marked);
        l.label->setFont(font);
        QPalette colours = palette();
        if (marked) {
            colours.setColor(QPalette::Active, QPalette::WindowText, kTargetText);
            colours.setColor(QPalette::Inactive, QPalette::WindowText, kTargetText);
        }
        l.label->setPalette(colours);
    }
}

void TSoundsPage::PointFileList(const QString& hostFolder, const std::string& dosFolder) {
    fileListFolder_ = hostFolder;
    fileListDosFolder_ = dosFolder;
    const QSignalBlocker blocker(pFLB_FilesList);
    pFLB_FilesList->clear();
    // Wave files only, their names matched and sorted without regard to case, as on Windows.
    const QStringList files =
        QDir(hostFolder)
            .entryList({QStringLiteral("*.wav")}, QDir::Files | QDir::Readable,
                       QDir::Name | QDir::IgnoreCase);
    pFLB_FilesList->addItems(files);
}

std::string TSoundsPage::SelectedListedFile() const {
    const QListWidgetItem* item = pFLB_FilesList->currentItem();
    if (!item || !item->isSelected()) return {};
    std::string path = fileListDosFolder_;
    if (!path.empty() && path.back() != '\\') path += '\\';
    return path + AnsiOf(item->text());
}

std::string TSoundsPage::SoundToTest() const {
    const SetupSettings& settings = host_.Settings();
    switch (lastSelection_) {
        case kPowerOnFile:
            return settings.GetSound(SoundSettings::kPowerOnSoundId, false);
        case kZeroesFile:
            return settings.GetSound(SoundSettings::kZeroesSoundId, false);
        case kListedFile:
            return SelectedListedFile();
        default:
            if (selectedRow_ < 0 || selectedRow_ >= static_cast<int>(rowToId_.size())) return {};
            return settings.GetSound(rowToId_[static_cast<std::size_t>(selectedRow_)], false);
    }
}

void TSoundsPage::pSLE_FnamePowerOnEnter() {
    fileTarget_ = lastSelection_ = kPowerOnFile;
    MarkFileTarget();
    pPB_Test->setEnabled(true);
}

void TSoundsPage::pSLE_FnameZeroesEnter() {
    fileTarget_ = lastSelection_ = kZeroesFile;
    MarkFileTarget();
    pPB_Test->setEnabled(true);
}

void TSoundsPage::CommitStartName(EditField* edit, int soundId) {
    if (!edit->isModified()) return;
    // The typed name, a backslash, then the location - name first, location last, so that the
    // default location gives a doubled backslash. The measuring application reads the value in
    // this form; the edit keeps showing what was typed, and a refresh shows the value's last
    // part. The name is not looked for on the disk.
    host_.Settings().SetSound(soundId, AnsiOf(edit->text()) + "\\" + AnsiOf(pSLE_Location->text()));
    // Committed: leaving the field again without typing stores nothing more.
    edit->setModified(false);
    host_.MarkModified();
}

void TSoundsPage::pSLE_FnamePowerOnExit() {
    CommitStartName(pSLE_FnamePowerOn, SoundSettings::kPowerOnSoundId);
}

void TSoundsPage::pSLE_FnameZeroesExit() {
    CommitStartName(pSLE_FnameZeroes, SoundSettings::kZeroesSoundId);
}

void TSoundsPage::pLB_EventsListClick() {
    const int row = pLB_EventsList->currentRow();
    if (row < 0) return;
    fileTarget_ = lastSelection_ = kSelectedEvent;
    selectedRow_ = row;
    MarkFileTarget();
    pPB_Test->setEnabled(true);
}

void TSoundsPage::pFLB_FilesListChange() {
    if (SelectedListedFile().empty()) {
        pPB_Test->setEnabled(false);
        return;
    }
    lastSelection_ = kListedFile;
    pPB_Test->setEnabled(true);
}

void TSoundsPage::pFLB_FilesListDblClick() {
    const std::string file = SelectedListedFile();
    if (file.empty()) return;
    SetupSettings& settings = host_.Settings();
    switch (fileTarget_) {
        case kPowerOnFile:
            settings.SetSound(SoundSettings::kPowerOnSoundId, file);
            pSLE_FnamePowerOn->setText(
                FromAnsi(settings.GetSound(SoundSettings::kPowerOnSoundId, true)));
            break;
        case kZeroesFile:
            settings.SetSound(SoundSettings::kZeroesSoundId, file);
            pSLE_FnameZeroes->setText(
                FromAnsi(settings.GetSound(SoundSettings::kZeroesSoundId, true)));
            break;
        default: {
            if (selectedRow_ >= 0 && selectedRow_ < static_cast<int>(rowToId_.size())) {
                settings.SetSound(rowToId_[static_cast<std::size_t>(selectedRow_)], file);
            }
            FillEventsList();
            filling_ = true;
            pLB_EventsList->setCurrentRow(selectedRow_);
            filling_ = false;
            pPB_Test->setEnabled(false);
            break;
        }
    }
    host_.MarkModified();
}

void TSoundsPage::PlayOption(QCheckBox* play, QCheckBox* continuous, bool& playFlag,
                             bool& continuousFlag) {
    playFlag = play->isChecked();
    if (playFlag) {
        continuous->setEnabled(true);
    } else {
        // A sound that is not played cannot be continuous either.
        continuousFlag = false;
        continuous->setChecked(false);
        continuous->setEnabled(false);
    }
    host_.MarkModified();
}

void TSoundsPage::pCHB_PlayPowerOnClick() {
    SetupSettings& settings = host_.Settings();
    PlayOption(pCHB_PlayPowerOn, pCHB_ContPowerOn, settings.PlayPowerOn,
               settings.PowerOnContinuous);
}

void TSoundsPage::pCHB_PlayZeroesClick() {
    SetupSettings& settings = host_.Settings();
    PlayOption(pCHB_PlayZeroes, pCHB_ContZeroes, settings.PlayZeroes, settings.ZeroesContinuous);
}

void TSoundsPage::pCHB_ContPowerOnClick() {
    host_.Settings().PowerOnContinuous = pCHB_ContPowerOn->isChecked();
    host_.MarkModified();
}

void TSoundsPage::pCHB_ContZeroesClick() {
    host_.Settings().ZeroesContinuous = pCHB_ContZeroes->isChecked();
    host_.MarkModified();
}

void TSoundsPage::pCHB_PlayGeneralClick() {
    host_.Settings().PlayGeneral = pCHB_PlayGeneral->isChecked();
    host_.MarkModified();
}

void TSoundsPage::pPB_TestClick() {
    const std::string sound = SoundToTest();
    const platform::SoundFile file = platform::LocateSoundFile(sound, host_.Settings().Location);
    if (file.problem != platform::SoundFileProblem::None) {
        MessageBoxA(static_cast<QWidget*>(this), AnsiOf(ProblemText(sound, file)).c_str(),
                    kMessageTitle, MB_OK | MB_ICONSTOP);
        return;
    }
    if (!player_) {
        // The first test loads the sound plugin and with it the multimedia module.
        LoadedWavePlayer loaded = LoadWavePlayer();
        if (!loaded.player) {
            const QString text = QStringLiteral("Sounds cannot be played: %1").arg(loaded.error);
            MessageBoxA(static_cast<QWidget*>(this), AnsiOf(text).c_str(), kMessageTitle,
                        MB_OK | MB_ICONSTOP);
            return;
        }
        player_ = std::move(loaded.player);
    }
    // Asynchronous: the page goes on at once, and what became of the sound is noted in the
    // status line when the player knows.
    const QString name = FromAnsi(SoundSettings::FileNamePart(sound));
    ShowStatus(QStringLiteral("Loading %1 ...").arg(name));
    player_->Play(QFile::decodeName(QByteArray::fromStdString(file.hostPath)),
                  [this, name](WavePlayer::Outcome outcome, const QString& detail) {
                      ReportTest(name, outcome, detail);
                  });
}

void TSoundsPage::ReportTest(const QString& name, WavePlayer::Outcome outcome,
                             const QString& detail) {
    switch (outcome) {
        case WavePlayer::Outcome::Playing:
            ShowStatus(detail.isEmpty() ? QStringLiteral("Playing %1").arg(name)
                                        : QStringLiteral("Playing %1 on %2").arg(name, detail));
            break;
        case WavePlayer::Outcome::NoAudioDevice:
            ShowStatus(QStringLiteral("%1 is not played: %2").arg(name, detail));
            break;
        case WavePlayer::Outcome::CannotPlay:
            ShowStatus(QStringLiteral("%1 cannot be played: %2").arg(name, detail));
            break;
    }
}

void TSoundsPage::ShowStatus(const QString& text) {
    // A status tip travels up to the window, which shows it in its status line.
    QStatusTipEvent tip(text);
    QCoreApplication::sendEvent(this, &tip);
}

void TSoundsPage::Store() {
    if (pSLE_FnamePowerOn->hasFocus() && pSLE_FnamePowerOn->isModified()) pSLE_FnamePowerOnExit();
    if (pSLE_FnameZeroes->hasFocus() && pSLE_FnameZeroes->isModified()) pSLE_FnameZeroesExit();
}

void TSoundsPage::Load(bool refreshAll) {
    const SetupSettings& settings = host_.Settings();
    if (refreshAll || !(pSLE_FnamePowerOn->hasFocus() && pSLE_FnamePowerOn->isModified())) {
        pSLE_FnamePowerOn->setText(
            FromAnsi(settings.GetSound(SoundSettings::kPowerOnSoundId, true)));
    }
    if (refreshAll || !(pSLE_FnameZeroes->hasFocus() && pSLE_FnameZeroes->isModified())) {
        pSLE_FnameZeroes->setText(FromAnsi(settings.GetSound(SoundSettings::kZeroesSoundId, true)));
    }
}

}  // namespace wk
