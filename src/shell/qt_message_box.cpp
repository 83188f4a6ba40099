#include "shell/qt_message_box.h"

#include <QMessageBox>

#include "platform/text_codec.h"

namespace wk {

namespace {

constexpr unsigned kButtonMask = 0xF;
constexpr unsigned kIconMask = 0xF0;
constexpr unsigned kOkCancel = 0x1;
constexpr unsigned kAbortRetryIgnore = 0x2;
constexpr unsigned kYesNo = 0x4;
constexpr unsigned kRetryCancel = 0x5;
constexpr unsigned kIconExclamation = 0x30;
constexpr unsigned kIconInformation = 0x40;
constexpr int kIdAbort = 3;
constexpr int kIdRetry = 4;
constexpr int kIdIgnore = 5;

struct ButtonSet {
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton escape;  // what closing the box answers
};

ButtonSet ButtonsOf(unsigned type) {
    switch (type & kButtonMask) {
        case kOkCancel:
            return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel};
        case kAbortRetryIgnore:
            return {QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore,
                    QMessageBox::NoButton};
        case MB_YESNOCANCEL:
            return {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel};
        case kYesNo:
            return {QMessageBox::Yes | QMessageBox::No, QMessageBox::NoButton};
        case kRetryCancel:
            return {QMessageBox::Retry | QMessageBox::Cancel, QMessageBox::Cancel};
        case MB_OK:
        default:
            return {QMessageBox::Ok, QMessageBox::Ok};
    }
}

QMessageBox::Icon IconOf(unsigned type) {
    switch (type & kIconMask) {
        case MB_ICONSTOP:
            return QMessageBox::Critical;
        case MB_ICONQUESTION:
            return QMessageBox::Question;
        case kIconExclamation:
            return QMessageBox::Warning;
        case kIconInformation:
            return QMessageBox::Information;
        default:
            return QMessageBox::NoIcon;
    }
}

int AnswerOf(int button) {
    switch (button) {
        case QMessageBox::Ok:
            return IDOK;
        case QMessageBox::Cancel:
            return IDCANCEL;
        case QMessageBox::Yes:
            return IDYES;
        case QMessageBox::No:
            return IDNO;
        case QMessageBox::Abort:
            return kIdAbort;
        case QMessageBox::Retry:
            return kIdRetry;
        case QMessageBox::Ignore:
            return kIdIgnore;
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
    const ButtonSet set = ButtonsOf(request.type);
    QMessageBox box(IconOf(request.type), Ansi(request.caption), Ansi(request.text), set.buttons,
                    owner);
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setTextFormat(Qt::PlainText);
    if (set.escape != QMessageBox::NoButton) {
        box.setEscapeButton(set.escape);
    }
    if (request.type & MB_TOPMOST) {
        box.setWindowFlag(Qt::WindowStaysOnTopHint);
    }
    return AnswerOf(box.exec());
}

}  // namespace wk
