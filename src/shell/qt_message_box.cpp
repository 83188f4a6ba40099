#include "shell/qt_message_box.h"

#include <QMessageBox>

#include "platform/text_codec.h"

namespace wk {

namespace {

constexpr unsigned kButtonMask = 0xF;
constexpr unsigned kIconMask = 0xF0;

// The program asks one question, the save question; every other message is a plain OK.
bool IsQuestion(unsigned type) {
    return (type & kButtonMask) == MB_YESNOCANCEL;
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
    const QMessageBox::StandardButtons buttons =
        IsQuestion(request.type) ? QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel
                                 : QMessageBox::Ok;
    QMessageBox box(IconOf(request.type), Ansi(request.caption), Ansi(request.text), buttons,
                    owner);
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setTextFormat(Qt::PlainText);
    // Closing the question, or pressing Escape, is Cancel: the user stays where they were.
    box.setEscapeButton(IsQuestion(request.type) ? QMessageBox::Cancel : QMessageBox::Ok);
    if (request.type & MB_TOPMOST) {
        box.setWindowFlag(Qt::WindowStaysOnTopHint);
    }
    return AnswerOf(box.exec());
}

}  // namespace wk
