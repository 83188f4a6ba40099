#pragma once
// What the page tests share besides the fixture: choosing in a list and ticking a box as a user
// does, random texts for fuzzing the edits, settings files with keys of the main section, and
// which keys two saved files differ in. (Typing is TypeInto, in ui_test_support.h; whether a
// page is usable by keyboard and screen reader is checked for every page by the contract test,
// page_usability.h.)

#include <QString>
#include <cstdint>
#include <random>
#include <set>
#include <string>
#include <vector>

class QAbstractButton;
class QCheckBox;
class QComboBox;

namespace wk::test {

// Opens the list, moves to `position` and confirms with Enter, as a user picks an item; the
// list reports one choice.
void ChooseItem(QComboBox* list, int position);
// Tabs to the box and presses Space.
void Tick(QCheckBox* box);
// A mouse click where the user clicks a check box or radio button: on its indicator (a push
// button in its middle). The focus moves to it, as it does for a user.
void ClickIndicator(QAbstractButton* button);
// Opens the list of `box` and clicks the item with `text`; false when the list has no such item.
bool ChooseFromList(QComboBox* box, const QString& text);
// The texts of a combo box's items.
std::vector<QString> Items(const QComboBox* box);

// Texts of the kinds typed or pasted into an edit: numbers in the forms people type them and on
// the borders of what the conversions take (signs, exponents, separators, hexadecimal, huge),
// file names, settings-file syntax and printf formats, letters, control characters,
// non-ASCII text (some of it outside the ANSI code page, some outside the basic plane), blanks,
// nothing at all, very long text and random characters.
// Seeded, so that a failure can be run again.
class RandomText {
public:
    explicit RandomText(std::uint32_t seed) : rng_(seed) {}

    // The next text to type.
    QString Next();
    // A number from 0 to n - 1.
    int Below(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }

private:
    QString Piece();
    QString Number();
    QString RandomCharacters(int length);

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

// What differs between two versions of a settings file besides the values of `keys`
// ("SECTION|KEY", upper case), as DifferingKeys names it: nothing when every other line is as
// it was.
std::set<std::string> ChangedBeyond(const std::string& before, const std::string& after,
                                    const std::set<std::string>& keys);

// Whether every line of a settings file is a section header, a key line, a comment or blank,
// with no line of either kind lost (the file reads back as it was written).
bool ParsesAsSettingsFile(const std::string& bytes);

}  // namespace wk::test
