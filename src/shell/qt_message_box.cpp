#include "shell/qt_message_box.h"

#include <QMessageBox>

#include "platform/text_codec.h"

namespace wk {

namespace {

constexpr unsigned kButtonMask = 0xF;
constexpr unsigned kIconMask = 0xF0;

// The program asks two questions: the save question (Yes, No, Cancel) and whether to restore
// the backup (Yes, No); every other message is a plain OK.
QMessageBox::StandardButtons ButtonsOf(unsigned type) {
    switch (type & kButtonMask) {
        case MB_YESNOCANCEL:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case MB_YESNO:
            return QMessageBox::Yes | QMessageBox::No;
        default:
            return QMessageBox::Ok;
    }
}

// Closing a question, or pressing Escape, changes nothing: Cancel where there is one, else No.
QMessageBox::StandardButton EscapeButtonOf(unsigned type) {
    switch (type & kButtonMask) {
        case MB_YESNOCANCEL:
            return QMessageBox::Cancel;
        case MB_YESNO:
            return QMessageBox::No;
        default:
            return QMessageBox::Ok;
    }
}

QMessageBox::Icon IconOf(unsigned type) {
    switch (type & kIconMask) {
        case MB_ICONSTOP:
            return QMessageBox::Critical;
        case MB_ICONQUESTION:
            return QMessageBox::Question;
        default:
            return QMessageBox::NoIcon;
    }
}

int AnswerOf(int button) {
    switch (button) {
        case QMessageBox::Yes:
            return IDYES;
        case QMessageBox::No:
            return IDNO;
        case QMessageBox::Ok:
            return IDOK;
        default:
            return IDCANCEL;
    }
}

// Texts given to MessageBoxA are in the ANSI code page, like every text of the core.
QString Ansi(const std::string& text) {
    return QString::fromStdString(platform::AnsiToUtf8(text));
}

}  // namespace

int QtMessageBoxPresenter::operator()(const MessageBoxRequest& request) const {
    auto* owner = static_cast<QWidget*>(request.owner);
    QMessageBox box(IconOf(request.type), Ansi(request.caption), Ansi(request.text),
                    ButtonsOf(request.type), owner);
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setTextFormat(Qt::PlainText);
    box.setEscapeButton(EscapeButtonOf(request.type));
    // The keys a save or a restore would change, behind "Show Details...": the question stays
    // short, and whoever wants to know exactly what happens can look.
    if (!request.details.empty()) {
        box.setDetailedText(Ansi(request.details));
    }
    if (request.type & MB_TOPMOST) {
        box.setWindowFlag(Qt::WindowStaysOnTopHint);
    }
    return AnswerOf(box.exec());
}

}  // namespace wk
