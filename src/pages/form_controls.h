#pragma once
// What the pages share: making the controls of a form (each named with its objectName and
// showing its form caption until the language strings caption it), naming them for a screen
// reader, and the texts between the settings files (ANSI code page) and the controls.

#include <QString>
#include <initializer_list>
#include <string>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

namespace wk {

class EditField;

// A control of the form of any kind, named with its objectName, with `caption` as its text (or
// a group box's title) when it is given.
template <typename Control>
Control* MakeFormControl(QWidget* parent, const char* name, const char* caption = nullptr) {
    auto* control = new Control(parent);
    control->setObjectName(QString::fromLatin1(name));
    if (caption != nullptr) {
        if constexpr (requires { control->setText(QString()); }) {
            control->setText(QString::fromLatin1(caption));
        } else if constexpr (requires { control->setTitle(QString()); }) {
            control->setTitle(QString::fromLatin1(caption));
        }
    }
    return control;
}

QLabel* MakeFormLabel(QWidget* parent, const char* name, const char* caption);
EditField* MakeFormEdit(QWidget* parent, const char* name);
QCheckBox* MakeFormCheck(QWidget* parent, const char* name, const char* caption);
// A drop-down list: the user chooses, never types.
QComboBox* MakeFormList(QWidget* parent, const char* name);
QPushButton* MakeFormButton(QWidget* parent, const char* name, const char* caption);
QGroupBox* MakeFormGroup(QWidget* parent, const char* name, const char* caption);

// A text of the settings files (or of the language libraries) as the controls show it.
QString FromAnsi(const std::string& text);
// A control's text as the settings files hold text.
std::string AnsiOf(const QString& text);
// What an edit holds, as the settings files hold text.
std::string AnsiText(const QLineEdit* edit);

// A caption as a screen reader says it: without the "&" of its mnemonic, the blanks around it
// and a closing colon ("&Data :" is "Data").
QString SpokenCaption(const QString& caption);
// A label's buddy takes the label's text, as spoken, as its accessible name, so that a screen
// reader names an edit or a list after its caption.
void NameAfterLabel(const QLabel* label);
// A control whose caption is its own text is named after it.
void NameAfterCaption(std::initializer_list<QWidget*> controls);

// Tab moves through `controls` in this order.
void ChainTabOrder(std::initializer_list<QWidget*> controls);

}  // namespace wk
