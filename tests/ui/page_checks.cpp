#include "page_checks.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QTabBar>
#include <QTest>
#include <map>
#include <sstream>

#include "shell/kestel_main_wind.h"
#include "widgets/page_control.h"

namespace wk::test {

namespace {

// The mnemonic letter of a caption (lower case), or 0.
QChar Mnemonic(const QString& caption) {
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != QLatin1Char('&')) continue;
        if (caption[i + 1] == QLatin1Char('&')) {
            ++i;
            continue;
        }
        return caption[i + 1].toLower();
    }
    return QChar();
}

std::vector<std::string> Lines(const std::string& bytes) {
    std::vector<std::string> lines;
    std::string line;
    for (char c : bytes) {
        line += c;
        if (c == '\n') {
            lines.push_back(line);
            line.clear();
        }
    }
    if (!line.empty()) lines.push_back(line);
    return lines;
}

std::string Trimmed(std::string text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r' || text.back() == ' ' ||
                             text.back() == '\t')) {
        text.pop_back();
    }
    std::size_t start = 0;
    while (start < text.size() && (text[start] == ' ' || text[start] == '\t')) ++start;
    return text.substr(start);
}

std::string Upper(std::string text) {
    for (char& c : text) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return text;
}

}  // namespace

void ChooseItem(QComboBox* list, int position) {
    ASSERT_NE(list, nullptr);
    ASSERT_TRUE(list->isEnabled()) << list->objectName().toStdString();
    list->setFocus(Qt::TabFocusReason);
    list->showPopup();
    QAbstractItemView* view = list->view();
    view->setCurrentIndex(list->model()->index(position, list->modelColumn()));
    QTest::keyClick(view, Qt::Key_Return);
}

void Tick(QCheckBox* box) {
    ASSERT_NE(box, nullptr);
    box->setFocus(Qt::TabFocusReason);
    QTest::keyClick(box, Qt::Key_Space);
}

void ExpectUsable(const TKestelMainWind& window, QWidget* page,
                  const std::vector<const char*>& names) {
    // Named for a screen reader.
    for (const char* name : names) {
        QWidget* control = page->findChild<QWidget*>(QString::fromLatin1(name));
        ASSERT_NE(control, nullptr) << name;
        const bool reached =
            qobject_cast<QAbstractButton*>(control) || qobject_cast<QComboBox*>(control) ||
            qobject_cast<QLineEdit*>(control) || qobject_cast<QListWidget*>(control) ||
            qobject_cast<QGroupBox*>(control);
        if (reached) {
            EXPECT_FALSE(control->accessibleName().isEmpty()) << name;
        }
    }

    // Mnemonics: the page's own captions, then the window's tabs and menus.
    std::map<QChar, QString> own;
    auto addOwn = [&](const QString& caption) {
        const QChar letter = Mnemonic(caption);
        if (letter.isNull()) return;
        EXPECT_EQ(own.count(letter), 0u)
            << caption.toStdString() << " clashes with " << own[letter].toStdString();
        own[letter] = caption;
    };
    for (QAbstractButton* button : page->findChildren<QAbstractButton*>()) {
        if (button->isVisibleTo(page)) addOwn(button->text());
    }
    for (QLabel* label : page->findChildren<QLabel*>()) {
        if (label->buddy() && label->isVisibleTo(page)) addOwn(label->text());
    }
    for (QGroupBox* group : page->findChildren<QGroupBox*>()) addOwn(group->title());
    QStringList windowCaptions;
    QTabBar* tabs = const_cast<TKestelMainWind&>(window).PageCtl()->TabBar();
    for (int i = 0; i < tabs->count(); ++i) windowCaptions << tabs->tabText(i);
    if (QMenuBar* bar = window.findChild<QMenuBar*>()) {
        for (QAction* action : bar->actions()) windowCaptions << action->text();
    }
    for (const QString& caption : windowCaptions) {
        const QChar letter = Mnemonic(caption);
        if (letter.isNull() || !own.count(letter)) continue;
        ADD_FAILURE() << own[letter].toStdString() << " clashes with the window's "
                      << caption.toStdString();
    }

    // Tab order: among the controls Tab stops at, the page's are one run of the window's focus
    // chain, each once.
    auto stop = [](QWidget* w) {
        return (w->focusPolicy() & Qt::TabFocus) && w->isVisible() && w->isEnabled();
    };
    std::vector<QWidget*> chain;
    QWidget* w = page;
    do {
        if (stop(w)) chain.push_back(w);
        w = w->nextInFocusChain();
    } while (w && w != page && chain.size() < 100000);
    auto onPage = [page](QWidget* widget) { return page->isAncestorOf(widget); };
    int runs = 0;
    for (std::size_t i = 0; i < chain.size(); ++i) {
        if (onPage(chain[i]) && !onPage(chain[(i + chain.size() - 1) % chain.size()])) ++runs;
    }
    EXPECT_EQ(runs, 1) << "Tab leaves the page's controls and comes back to them";
    for (const char* name : names) {
        QWidget* control = page->findChild<QWidget*>(QString::fromLatin1(name));
        if (!control || !stop(control)) continue;
        EXPECT_EQ(std::count(chain.begin(), chain.end(), control), 1) << name;
    }
}

void TypeText(QLineEdit* edit, const QString& text) {
    edit->setFocus(Qt::MouseFocusReason);
    edit->selectAll();
    if (text.isEmpty()) {
        QTest::keyClick(edit, Qt::Key_Delete);
        return;
    }
    // Each character as the keyboard (or an input method) delivers it, surrogate pairs whole.
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype length = text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
        QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_unknown, text.mid(i, length),
                            Qt::NoModifier);
        i += length - 1;
    }
}

QString RandomText::Next() {
    static const char* const kPieces[] = {
        "0",
        "7",
        "12.5",
        "-1",
        "+3",
        "999",
        "1000",
        "-0",
        "1.5E3",
        "2e-2",
        "1e400",
        "-1e-400",
        "1,5",
        "1.000,5",
        "12..3",
        ",",
        ".",
        "+",
        "-",
        "+-",
        "--3",
        "$1F",
        "0x10",
        "$FFFFFFFF",
        "4294967296",
        "abc",
        "NONE",
        "none",
        "probe.tip",
        "C:\\WZELKO\\DATA\\X.TIP",
        "[SECTION]",
        "A=B",
        ";comment",
        "\"quoted\"",
        " ",
        "  12  ",
        "\xc3\xa9",
        "Gr\xc3\xb6\xc3\x9f"
        "e",
        "\xe2\x82\xac",
        "\xe4\xb8\xad\xe6\x96\x87",
        "\xf0\x9f\x98\x80",
        "nan",
        "inf",
        "1e",
        "e5",
        "0.0001",
    };
    constexpr int kPieceCount = static_cast<int>(sizeof kPieces / sizeof kPieces[0]);
    const int kind = Below(12);
    if (kind == 0) return QString();
    if (kind == 1) {
        // Very long: digits, letters, signs and separators.
        static const char kAlphabet[] = "0123456789abcXYZ.,+-eE $\\:";
        QString text;
        const int length = 200 + Below(200);
        for (int i = 0; i < length; ++i) {
            text += QLatin1Char(kAlphabet[Below(static_cast<int>(sizeof kAlphabet) - 1)]);
        }
        return text;
    }
    QString text = QString::fromUtf8(kPieces[Below(kPieceCount)]);
    if (kind >= 9) text += QString::fromUtf8(kPieces[Below(kPieceCount)]);
    return text;
}

std::string SettingsFileWithMain(std::string sections) {
    static const std::string kHeader = "[WZELKO]\r\n";
    std::string mainKeys;
    const std::size_t at = sections.find(kHeader);
    if (at != std::string::npos) {
        const std::size_t blank = sections.find("\r\n\r\n", at);
        const std::size_t keysEnd = blank == std::string::npos ? sections.size() : blank + 2;
        const std::size_t sectionEnd = blank == std::string::npos ? sections.size() : blank + 4;
        mainKeys = sections.substr(at + kHeader.size(), keysEnd - at - kHeader.size());
        sections.erase(at, sectionEnd - at);
    }
    return "[WZELKO]\r\nLANGUAGE=ENG\r\nSYSTEM_DIR=C:\\WZELKO\r\n" + mainKeys +
           "\r\n[MEASURE INTERFACE]\r\nMEASURE MODE METRIC/INCH=METRIC\r\n\r\n"
           "[CONTROLLER]\r\nType=RMD\r\n\r\n" +
           sections;
}

std::set<std::string> DifferingKeys(const std::string& before, const std::string& after) {
    const std::vector<std::string> a = Lines(before);
    const std::vector<std::string> b = Lines(after);
    std::set<std::string> keys;
    if (a.size() != b.size()) {
        keys.insert("<lines>");
        return keys;
    }
    std::string section;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const std::string line = Trimmed(a[i]);
        if (!line.empty() && line[0] == '[') section = Upper(line.substr(1, line.find(']') - 1));
        if (a[i] == b[i]) continue;
        const std::size_t eq = line.find('=');
        if (line.empty() || line[0] == '[' || line[0] == ';' || eq == std::string::npos ||
            Trimmed(b[i]).rfind(line.substr(0, eq + 1), 0) != 0) {
            keys.insert("<line " + std::to_string(i + 1) + ">");
            continue;
        }
        keys.insert(section + "|" + Upper(Trimmed(line.substr(0, eq))));
    }
    return keys;
}

bool ParsesAsSettingsFile(const std::string& bytes) {
    for (const std::string& raw : Lines(bytes)) {
        const std::string line = Trimmed(raw);
        if (line.empty() || line[0] == ';') continue;
        if (line[0] == '[' && line.find(']') != std::string::npos) continue;
        if (line.find('=') != std::string::npos && line[0] != '=') continue;
        return false;
    }
    return true;
}

}  // namespace wk::test
