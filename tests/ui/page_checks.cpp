#include "page_checks.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>
#include <iterator>

#include "ui_test_support.h"

namespace wk::test {

namespace {

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

// Texts on the borders of what the conversions take, and texts a user may paste.
// clang-format off
const char* const kPieces[] = {
    "0", "1", "7", "12", "12.5", "-1", "-3", "+3", "+5", "+7", "255", "256", "999", "1000",
    "12345", "-0", "0.1", "100", "100.01", "3.937", "1e3", "1E-2", "1.5E3", "1.5E+3", "2e-2",
    "1e308", "1e400", "-1e400", "-1e-400", "0.0001", "0.000001", "1,5", "1.000,5", "1.2.3",
    "12..3", "3.", ".5", "1 2", "  12  ", " 42 ", ",", ".", "+", "-", "+-", "--1", "--3", "e",
    "E", "1e", "e5", "1e+", "nan", "NaN", "inf", "$1F", "$FF", "0x10", "0x1F", "0X12",
    "$FFFFFFFF", "4294967295", "4294967296", "-2147483649", "999999999999",
    "99999999999999999999", "1234Z", "abc", "ab", "x", "ZZZZ", "NONE", "none", "probe.tip",
    "init.wav", "C:\\WZELKO\\DATA", "C:\\WZELKO\\DATA\\X.TIP", "\\\\server\\share", "\\", "/",
    ":", "[SECTION]", "[", "]", "A=B", "a=b", "=", ";comment", ";", "\"quoted\"", "'", " ",
    "\t", "%s", "%n",
    // Non-ASCII: in the ANSI code page, outside it, right to left, outside the basic plane.
    "\xc3\xa9", "\xc3\xbc", "\xc2\xa0", "Gr\xc3\xb6\xc3\x9f" "e",
    "\xc3\xa4\xc3\xb6\xc3\xbc\xc3\x9f", "\xc3\x9c" "n" "\xc3\xaf" "c" "\xc3\xb6" "d" "\xc3\xa9",
    "\xc3\xb1" "1.5", "\xe2\x82\xac", "\xe4\xb8\xad\xe6\x96\x87",
    "\xe6\x97\xa5\xe6\x9c\xac\xe8\xaa\x9e", "\xd9\xa1\xd9\xa2\xd9\xa3", "\xf0\x9f\x98\x80",
};
// clang-format on

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

void ClickIndicator(QAbstractButton* button) {
    QPoint where = button->rect().center();
    QStyleOptionButton option;
    option.initFrom(button);
    if (qobject_cast<QCheckBox*>(button)) {
        where =
            button->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, button).center();
    } else if (qobject_cast<QRadioButton*>(button)) {
        where = button->style()
                    ->subElementRect(QStyle::SE_RadioButtonIndicator, &option, button)
                    .center();
    }
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, where);
}

bool ChooseFromList(QComboBox* box, const QString& text) {
    const int index = box->findText(text, Qt::MatchExactly);
    if (index < 0) return false;
    box->setFocus(Qt::MouseFocusReason);
    box->showPopup();
    QAbstractItemView* view = box->view();
    const QRect item = view->visualRect(view->model()->index(index, box->modelColumn()));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, item.center());
    Settle();
    if (view->isVisible()) box->hidePopup();
    return box->currentIndex() == index;
}

std::vector<QString> Items(const QComboBox* box) {
    std::vector<QString> items;
    for (int i = 0; i < box->count(); ++i) items.push_back(box->itemText(i));
    return items;
}

QString RandomText::RandomCharacters(int length) {
    QString text;
    for (int i = 0; i < length; ++i) {
        switch (Below(4)) {
            case 0:  // digits are the most common
                text += QChar(static_cast<char16_t>(u'0' + Below(10)));
                break;
            case 1:  // printable ASCII
                text += QChar(static_cast<char16_t>(0x20 + Below(0x5F)));
                break;
            case 2:  // what numbers are written with
                text += QChar(static_cast<char16_t>(u".,+-eE$x"[Below(8)]));
                break;
            default:  // any character of the basic plane that is not a control or a surrogate
                text += QChar(static_cast<char16_t>(0xA0 + Below(0xD7FF - 0xA0)));
                break;
        }
    }
    return text;
}

QString RandomText::Piece() {
    return QString::fromUtf8(kPieces[Below(static_cast<int>(std::size(kPieces)))]);
}

QString RandomText::Number() {
    // In one of the forms people type: integer, decimal, signed, with an exponent.
    QString number;
    if (Below(4) == 0) number += Below(2) ? QLatin1Char('-') : QLatin1Char('+');
    number += QString::number(Below(Below(2) ? 300 : 100000));
    if (Below(2)) number += QLatin1Char('.') + QString::number(Below(10000));
    if (Below(6) == 0) number += QLatin1Char('e') + QString::number(Below(7) - 3);
    return number;
}

QString RandomText::Next() {
    switch (Below(16)) {
        case 0:
            return QString();
        case 1:  // very long: digits, letters, signs and separators
            return RandomCharacters(200 + Below(400));
        case 2:  // a very long number
            return QString::number(1 + Below(9)) + QString(200 + Below(200), QLatin1Char('7'));
        case 3:
        case 4:
            return RandomCharacters(Below(12));
        case 5:
        case 6:
        case 7:
        case 8:
            return Number();
        case 9:  // a number with something after it
            return Number() + RandomCharacters(1 + Below(2));
        default: {  // one to five pieces
            QString text;
            for (int pieces = 1 + Below(5); pieces > 0; --pieces) text += Piece();
            return text;
        }
    }
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

std::set<std::string> ChangedBeyond(const std::string& before, const std::string& after,
                                    const std::set<std::string>& keys) {
    std::set<std::string> changed;
    for (const std::string& key : DifferingKeys(before, after)) {
        if (!keys.count(key)) changed.insert(key);
    }
    return changed;
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
