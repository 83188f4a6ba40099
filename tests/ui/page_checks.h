#pragma once
// Checks and drivers the page tests share: choosing in a list and ticking a box as a user does,
// whether a page can be used with the keyboard and a screen reader, random texts for fuzzing
// the edits, and which keys two saved files differ in.

#include <QString>
#include <cstdint>
#include <random>
#include <set>
#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QWidget;

namespace wk {
class TKestelMainWind;
}

namespace wk::test {

// Types `text` into the edit as a user does: focus into it, select what it holds, type (an
// empty text deletes the selection). Any character, not only Latin-1 ones.
void TypeText(QLineEdit* edit, const QString& text);
// Opens the list, moves to `position` and confirms with Enter, as a user picks an item; the
// list reports one choice.
void ChooseItem(QComboBox* list, int position);
// Tabs to the box and presses Space.
void Tick(QCheckBox* box);

// Every control among `names` on `page` that a user reaches (buttons, check boxes, lists,
// edits, group boxes) has an accessible name; the mnemonics of the page's captions clash
// neither with each other nor with the window's tabs and menus; and Tab from the first control
// reaches every enabled control of the page once before it comes back.
void ExpectUsable(const TKestelMainWind& window, QWidget* page,
                  const std::vector<const char*>& names);

// Texts of the kinds typed or pasted into an edit: numbers in every form, signs, exponents,
// separators, letters, non-ASCII, blanks, empty, very long.
class RandomText {
public:
    explicit RandomText(std::uint32_t seed) : rng_(seed) {}
    QString Next();
    int Below(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }

private:
    std::mt19937 rng_;
};

// WZELKO.INI as SettingsFile makes it (English, metric, RMD) with `sections` after it; the keys
// of a "[WZELKO]" section among them go into the file's own main section, where the measuring
// application reads them (a second section of the same name would be ignored).
std::string SettingsFileWithMain(std::string sections);

// The "SECTION|KEY" (upper case) of every key line whose text differs between two versions
// of a settings file; "<line N>" for a differing line that is not a key, and "<lines>" when
// the files have not the same number of lines.
std::set<std::string> DifferingKeys(const std::string& before, const std::string& after);

// Whether every line of a settings file is a section header, a key line, a comment or blank,
// with no line of either kind lost (the file reads back as it was written).
bool ParsesAsSettingsFile(const std::string& bytes);

}  // namespace wk::test
