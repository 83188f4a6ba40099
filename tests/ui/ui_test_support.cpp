#include "ui_test_support.h"

#include <strings.h>
#include <unistd.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "platform/scratch_directory.h"
#include "shell/kestel_main_wind.h"

namespace fs = std::filesystem;

namespace wk::test {

namespace {

std::string Trim(std::string s) {
    while (!s.empty() && (s.back() == ' ' || s.back() == '\r' || s.back() == '\t')) s.pop_back();
    std::size_t i = 0;
    while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
    return s.substr(i);
}

}  // namespace

std::string SettingsFile(const std::string& extraSections, const std::string& controller) {
    return "[WZELKO]\r\nLANGUAGE=ENG\r\nSYSTEM_DIR=C:\\WZELKO\r\n\r\n"
           "[MEASURE INTERFACE]\r\nMEASURE MODE METRIC/INCH=METRIC\r\n\r\n"
           "[CONTROLLER]\r\nType=" +
           controller + "\r\n\r\n" + extraSections;
}

WorkingDir::WorkingDir(Kind kind) : previous_(fs::current_path()) {
    if (kind == Kind::LanguageLibraries) {
        fs::current_path(WKESTEL_LANGUAGE_DIR);
    } else {
        empty_ = platform::MakeScratchDirectory("wkestel-ui-cwd-");
        if (kind == Kind::CopyOfLanguageLibraries) {
            for (const auto& entry : fs::directory_iterator(WKESTEL_LANGUAGE_DIR)) {
                const std::string name = entry.path().filename().string();
                if (name.rfind("Kes32_", 0) == 0) {
                    fs::copy_file(entry.path(), empty_ / name);
                }
            }
        }
        fs::current_path(empty_);
    }
}

WorkingDir::~WorkingDir() {
    std::error_code error;
    fs::current_path(previous_, error);
    if (!empty_.empty()) platform::RemoveScratchDirectory(empty_);
}

MessageScript::MessageScript() {
    previous_ = SetMessageBoxPresenter(MessageBoxPresenter{});
    Install();
}

void MessageScript::Install() {
    SetMessageBoxPresenter([this](const MessageBoxRequest& request) {
        shown_.push_back(request);
        if (!answers_.empty()) {
            const int answer = answers_.front();
            answers_.pop_front();
            return answer;
        }
        return (request.type & 0xF) == MB_YESNOCANCEL ? IDCANCEL : IDOK;
    });
}

MessageScript::~MessageScript() {
    SetMessageBoxPresenter(std::move(previous_));
}

bool Exists(const TempWinePrefix& prefix, const std::string& name) {
    return fs::exists(prefix.WindowsFile(name));
}

std::vector<PageEntry> TableRows(std::initializer_list<std::string_view> sheetNames) {
    std::vector<PageEntry> rows;
    for (const PageEntry& entry : PageTable()) {
        for (std::string_view name : sheetNames) {
            if (name == entry.sheetName) rows.push_back(entry);
        }
    }
    return rows;
}

void ShowUntilReady(TKestelMainWind& window, MessageScript& script) {
    script.Install();
    window.show();
    window.activateWindow();
    (void)QTest::qWaitForWindowActive(&window, 2000);
    for (int i = 0; i < 200 && !window.Ready() && !window.TerminationRequested(); ++i) {
        QTest::qWait(10);
    }
}

std::unique_ptr<TKestelMainWind> StartWindow(MessageScript& script,
                                             std::vector<std::string> commandLine,
                                             std::span<const PageEntry> pages) {
    auto window = std::make_unique<TKestelMainWind>(std::move(commandLine), pages);
    ShowUntilReady(*window, script);
    // The pages after the start page are made while the window is idle; the tests look at
    // all of them.
    for (int i = 0; i < 200 && window->Ready() && !window->AllPagesBuilt(); ++i) {
        QTest::qWait(5);
    }
    return window;
}

void TypeInto(QLineEdit* edit, const QString& text) {
    edit->setFocus(Qt::MouseFocusReason);
    edit->selectAll();
    if (text.isEmpty()) {
        QTest::keyClick(edit, Qt::Key_Delete);
        return;
    }
    TypeKeys(edit, text);
}

void TypeKeys(QWidget* widget, const QString& text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c.unicode() >= 0x20 && c.unicode() < 0x7F) {
            // A key of the keyboard: its key code and its text.
            QTest::keyClick(widget, static_cast<char>(c.unicode()));
            continue;
        }
        // A character no key of the test's keyboard has: a key event that carries it, as an
        // input method delivers it (a character outside the basic plane whole, both halves).
        const qsizetype length = c.isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
        QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, text.mid(i, length),
                            Qt::NoModifier);
        i += length - 1;
    }
}

void Settle() {
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
}

void PressTab(QWidget* widget) {
    QTest::keyClick(widget, Qt::Key_Tab);
}

std::string IniValue(const std::string& bytes, const std::string& section, const std::string& key) {
    std::istringstream in(bytes);
    std::string line;
    std::string current;
    while (std::getline(in, line)) {
        const std::string t = Trim(line);
        if (!t.empty() && t[0] == '[') {
            current = t.substr(1, t.find(']') - 1);
            continue;
        }
        const auto eq = t.find('=');
        if (eq != std::string::npos && strcasecmp(current.c_str(), section.c_str()) == 0 &&
            strcasecmp(Trim(t.substr(0, eq)).c_str(), key.c_str()) == 0) {
            return Trim(t.substr(eq + 1));
        }
    }
    return "<missing>";
}

}  // namespace wk::test
