#include "pages/form_controls.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "platform/text_codec.h"
#include "widgets/edit_field.h"

namespace wk {

QLabel* MakeFormLabel(QWidget* parent, const char* name, const char* caption) {
    auto* label = new QLabel(QString::fromLatin1(caption), parent);
    label->setObjectName(QString::fromLatin1(name));
    return label;
}

EditField* MakeFormEdit(QWidget* parent, const char* name) {
    auto* edit = new EditField(parent);
    edit->setObjectName(QString::fromLatin1(name));
    return edit;
}

QCheckBox* MakeFormCheck(QWidget* parent, const char* name, const char* caption) {
    auto* check = new QCheckBox(QString::fromLatin1(caption), parent);
    check->setObjectName(QString::fromLatin1(name));
    return check;
}

QComboBox* MakeFormList(QWidget* parent, const char* name) {
    auto* list = new QComboBox(parent);
    list->setObjectName(QString::fromLatin1(name));
    list->setEditable(false);
    list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    return list;
}

QPushButton* MakeFormButton(QWidget* parent, const char* name, const char* caption) {
    auto* button = new QPushButton(QString::fromLatin1(caption), parent);
    button->setObjectName(QString::fromLatin1(name));
    // Enter on the focused button clicks it, as Space does.
    button->setAutoDefault(true);
    return button;
}

QGroupBox* MakeFormGroup(QWidget* parent, const char* name, const char* caption) {
    auto* group = new QGroupBox(QString::fromLatin1(caption), parent);
    group->setObjectName(QString::fromLatin1(name));
    return group;
}

QString FromAnsi(const std::string& text) {
    return QString::fromStdString(platform::AnsiToUtf8(text));
}

std::string AnsiOf(const QString& text) {
    return platform::Utf8ToAnsi(text.toStdString());
}

std::string AnsiText(const QLineEdit* edit) {
    return AnsiOf(edit->text());
}

QString SpokenCaption(const QString& caption) {
    // Without the "&" that marks the mnemonic ("&&" stands for one "&").
    QString text;
    text.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == QLatin1Char('&') && i + 1 < caption.size()) ++i;
        text += caption[i];
    }
    text = text.trimmed();
    if (text.endsWith(QLatin1Char(':'))) text.chop(1);
    return text.trimmed();
}

void NameAfterLabel(const QLabel* label) {
    if (QWidget* buddy = label->buddy()) {
        buddy->setAccessibleName(SpokenCaption(label->text()));
    }
}

void NameAfterCaption(std::initializer_list<QWidget*> controls) {
    for (QWidget* control : controls) {
        if (auto* button = qobject_cast<QAbstractButton*>(control)) {
            button->setAccessibleName(SpokenCaption(button->text()));
        } else if (auto* group = qobject_cast<QGroupBox*>(control)) {
            group->setAccessibleName(SpokenCaption(group->title()));
        }
    }
}

void ChainTabOrder(std::initializer_list<QWidget*> controls) {
    QWidget* previous = nullptr;
    for (QWidget* control : controls) {
        if (previous) QWidget::setTabOrder(previous, control);
        previous = control;
    }
}

}  // namespace wk
