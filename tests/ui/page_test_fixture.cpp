#include "page_test_fixture.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "shell/kestel_main_wind.h"
#include "shell/language_text.h"
#include "widgets/dialog_answers.h"
#include "widgets/page_control.h"

namespace wk::test {

namespace {

void ResetDialogAnswers() {
    FileOpenAnswers().Reset();
    ColourAnswers().Reset();
    DirectoryAnswers().Reset();
}

}  // namespace

PageTest::PageTest() {
    ResetDialogAnswers();
}

PageTest::~PageTest() {
    window_.reset();
    ResetDialogAnswers();
}

void PageTest::TearDown() {
    EXPECT_EQ(FileOpenAnswers().Pending(), 0u) << "a file-open answer was not taken";
    EXPECT_EQ(ColourAnswers().Pending(), 0u) << "a colour answer was not taken";
    EXPECT_EQ(DirectoryAnswers().Pending(), 0u) << "a directory answer was not taken";
}

void PageTest::Start(const std::string& wzelkoIni, std::span<const PageEntry> pages) {
    prefix_.WriteWindowsFile("WZELKO.INI", wzelkoIni);
    StartOnFiles(pages);
}

void PageTest::StartOnFiles(std::span<const PageEntry> pages) {
    original_ = Exists("WZELKO.INI") ? Bytes() : std::string();
    window_ = StartWindow(script_, {"WKestel32"}, pages);
    ASSERT_TRUE(window_->Ready());
    script_.Clear();
}

QLineEdit* PageTest::Edit(const char* name) const {
    return Find<QLineEdit>(name);
}

QLabel* PageTest::Label(const char* name) const {
    return Find<QLabel>(name);
}

QPushButton* PageTest::Button(const char* name) const {
    return Find<QPushButton>(name);
}

QAction* PageTest::Action(const char* name) const {
    return Find<QAction>(name);
}

KestelPage* PageTest::Page(const char* sheetName) const {
    return Find<KestelPage>(sheetName);
}

SetupSettings& PageTest::Record() const {
    return window_->Settings();
}

void PageTest::Type(const char* edit, const QString& text) const {
    QLineEdit* field = Edit(edit);
    ASSERT_NE(field, nullptr) << edit;
    TypeInto(field, text);
}

void PageTest::TypeAndLeave(const char* edit, const QString& text) const {
    Type(edit, text);
    PressTab(Edit(edit));
}

void PageTest::Click(const char* button) const {
    QPushButton* target = Button(button);
    ASSERT_NE(target, nullptr) << button;
    target->click();
}

void PageTest::Save() const {
    Action("KestelFile_Save")->trigger();
}

void PageTest::CommitTyped(QLineEdit* edit, Commit how) const {
    switch (how) {
        case Commit::Tab:
            PressTab(edit);
            break;
        case Commit::Ok:
            Click("pOK");
            break;
        case Commit::Save:
            Save();
            break;
        case Commit::Store:
            if (auto* page = qobject_cast<KestelPage*>(window_->PageCtl()->ActivePage())) {
                page->Store();
            }
            break;
    }
}

std::string PageTest::SaveUnchanged(const std::string& file) {
    Record().Modified = true;
    Save();
    return Bytes(file);
}

std::string PageTest::Bytes(const std::string& file) const {
    return prefix_.ReadWindowsFile(file);
}

std::string PageTest::Saved(const char* section, const char* key, const std::string& file) const {
    return IniValue(Bytes(file), section, key);
}

bool PageTest::Exists(const std::string& file) const {
    return test::Exists(prefix_, file);
}

void PageTest::AnswerFileOpen(const std::filesystem::path& hostPath) const {
    FileOpenAnswers().Choose(QString::fromStdString(hostPath.string()));
}

void PageTest::CancelFileOpen() const {
    FileOpenAnswers().Cancel();
}

void PageTest::AnswerColour(const QColor& colour) const {
    ColourAnswers().Choose(colour);
}

void PageTest::CancelColour() const {
    ColourAnswers().Cancel();
}

void PageTest::AnswerDirectory(const std::string& windowsPath) const {
    DirectoryAnswers().Choose(windowsPath);
}

void PageTest::CancelDirectory() const {
    DirectoryAnswers().Cancel();
}

QString PageTest::Language(int id) {
    return LanguageCaption(id);
}

}  // namespace wk::test
