#pragma once
// The fixture of the window's and the pages' tests: a Wine prefix with the settings files a test
// writes, the window started on them with the pages a test chooses (every page of the table by
// default), controls found by name and driven as a user drives them, message boxes and dialogs
// answered in advance, Save through the File menu and the bytes it wrote.

#include <gtest/gtest.h>

#include <QColor>
#include <QString>
#include <filesystem>
#include <memory>
#include <span>
#include <string>

#include "pages/page_table.h"
#include "settings/setup_settings.h"
#include "shell/kestel_main_wind.h"
#include "ui_test_support.h"

class QAction;
class QLabel;
class QLineEdit;
class QPushButton;

namespace wk::test {

class PageTest : public ::testing::Test {
protected:
    PageTest();
    ~PageTest() override;
    // Every dialog answer a test gave must have been taken by a dialog that opened.
    void TearDown() override;

    // Writes WZELKO.INI and starts the window on it with `pages`; the messages of start-up are
    // forgotten. `Original()` is then this file's bytes.
    void Start(const std::string& wzelkoIni, std::span<const PageEntry> pages = PageTable());
    // Starts the window on the files the prefix holds.
    void StartOnFiles(std::span<const PageEntry> pages = PageTable());
    // Destroys the window without a question; whatever was not saved is gone.
    void CloseWindow() { window_.reset(); }

    // Controls anywhere in the window, by objectName.
    template <typename T = QWidget>
    T* Find(const char* name) const {
        return window_->findChild<T*>(QString::fromLatin1(name));
    }
    QLineEdit* Edit(const char* name) const;
    QLabel* Label(const char* name) const;
    QPushButton* Button(const char* name) const;
    QAction* Action(const char* name) const;
    // The page whose tab sheet is `sheetName`.
    KestelPage* Page(const char* sheetName) const;
    SetupSettings& Record() const;

    // As a user: focus into the edit, select its text and type; then leave it with Tab.
    void Type(const char* edit, const QString& text) const;
    void TypeAndLeave(const char* edit, const QString& text) const;
    void Click(const char* button) const;
    // File, Save.
    void Save() const;

    // The ways a user commits what is typed into an edit: leaving it with Tab, OK, File, Save,
    // and the page's Store, which switching to another page runs first.
    enum class Commit { Tab, Ok, Save, Store };
    static constexpr Commit kCommits[] = {Commit::Tab, Commit::Ok, Commit::Save, Commit::Store};
    // Commits what is typed into `edit` (the focused edit of the active page) that way.
    void CommitTyped(QLineEdit* edit, Commit how) const;
    // What File, Save writes when nothing has been edited (the record marked changed so that it
    // writes): the bytes a random-text run compares the file with afterwards.
    std::string SaveUnchanged(const std::string& file = "WZELKO.INI");

    // The bytes of a file of the Windows directory; the value of a key there ("<missing>").
    std::string Bytes(const std::string& file = "WZELKO.INI") const;
    std::string Saved(const char* section, const char* key,
                      const std::string& file = "WZELKO.INI") const;
    // WZELKO.INI as it was when the window started.
    const std::string& Original() const { return original_; }
    bool Exists(const std::string& file) const;

    // The next answers of the dialogs.
    void AnswerFileOpen(const std::filesystem::path& hostPath) const;
    void CancelFileOpen() const;
    void AnswerColour(const QColor& colour) const;
    void CancelColour() const;
    void AnswerDirectory(const std::string& windowsPath) const;
    void CancelDirectory() const;

    // A language string of the library the window loaded.
    static QString Language(int id);

    TempWinePrefix prefix_;
    WorkingDir cwd_{WorkingDir::Kind::LanguageLibraries};
    MessageScript script_;
    std::string original_;
    std::unique_ptr<TKestelMainWind> window_;
};

}  // namespace wk::test
