#pragma once
// What the window's tests share: the working directory the language libraries are found in,
// message boxes answered from a script, a started window, typing as a user does.

#include <QString>
#include <deque>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pages/page_table.h"
#include "platform/message_box.h"
#include "support/temp_prefix.h"

class QLineEdit;
class QWidget;

namespace wk {
class TKestelMainWind;
}

namespace wk::test {

// WZELKO.INI with the given extra sections and English as language.
std::string SettingsFile(const std::string& extraSections, const std::string& controller = "RMD");

// Changes the working directory for the object's life: to the folder of the built language
// libraries, to an empty folder where there are none, or to a folder of its own holding copies
// of the libraries (for tests that add files beside them).
class WorkingDir {
public:
    enum class Kind { LanguageLibraries, Empty, CopyOfLanguageLibraries };
    explicit WorkingDir(Kind kind);
    ~WorkingDir();

    std::filesystem::path Path() const { return std::filesystem::current_path(); }

private:
    std::filesystem::path previous_;
    std::filesystem::path empty_;
};

// Answers message boxes from a script and records them. Unscripted boxes are answered
// IDCANCEL for a question, IDOK otherwise.
class MessageScript {
public:
    MessageScript();
    ~MessageScript();

    // Puts this script in place again (the main window installs its own presenter).
    void Install();

    void Answer(int answer) { answers_.push_back(answer); }
    const std::vector<MessageBoxRequest>& Shown() const { return shown_; }
    int Count() const { return static_cast<int>(shown_.size()); }
    void Clear() { shown_.clear(); }

private:
    std::deque<int> answers_;
    std::vector<MessageBoxRequest> shown_;
    MessageBoxPresenter previous_;
};

// The rows of the table of pages of the given sheets, in table order: a window of just the pages
// a test is about, whichever other pages are built.
std::vector<PageEntry> TableRows(std::initializer_list<std::string_view> sheetNames);

// Shows and activates `window`, its message boxes answered by `script`, and waits until the
// start-up sequence has run (or failed). The pages after the start page may be still to come.
void ShowUntilReady(TKestelMainWind& window, MessageScript& script);

// The main window with `pages`, shown and activated, its message boxes answered by `script`;
// the start-up sequence has run (or failed), and every page is made.
std::unique_ptr<TKestelMainWind> StartWindow(MessageScript& script,
                                             std::vector<std::string> commandLine = {"WKestel32"},
                                             std::span<const PageEntry> pages = PageTable());

// Whether a file exists in the prefix's Windows directory.
bool Exists(const TempWinePrefix& prefix, const std::string& name);

// Types `text` into an edit field as a user would: focus into it (as a click puts it there),
// select what it holds, type (an empty text deletes the selection). The focus stays in the edit.
void TypeInto(QLineEdit* edit, const QString& text);
// Types `text` key by key into `widget`, which has the focus: the characters of the keyboard as
// its keys, any other as an input method delivers it (one outside the basic plane whole).
void TypeKeys(QWidget* widget, const QString& text);
// Lets the events queued so far run (focus moves and layouts that Qt defers).
void Settle();
// Leaves the focused field with Tab.
void PressTab(QWidget* widget);

// The value of `key` in `section` of a file's bytes, or "<missing>".
std::string IniValue(const std::string& bytes, const std::string& section, const std::string& key);

}  // namespace wk::test
