#include "random_typing.h"

#include <QLineEdit>
#include <QTest>
#include <array>

namespace wk::test {

namespace {

// Texts that lie on the borders of what the conversions accept.
const std::array<const char*, 44> kEdgeTexts = {
    "0",
    "12.5",
    "-3",
    "+7",
    "1e3",
    "1E-2",
    " 42 ",
    "0.000001",
    "1.5E+3",
    "-0",
    "",
    " ",
    "-",
    "+",
    "e",
    "1e",
    "1e400",
    "-1e400",
    "1,5",
    "1.2.3",
    "0x1F",
    "$FF",
    "--1",
    "NaN",
    "inf",
    "12345",
    "1234Z",
    "ab",
    "ZZZZ",
    "0X12",
    ".",
    ",",
    "1 2",
    "3.",
    ".5",
    "1e+",
    "4294967295",
    "-2147483649",
    "99999999999999999999",
    "C:\\WZELKO\\DATA",
    "\\\\server\\share",
    "init.wav",
    "a=b",
    "[SECTION]",
};

// Non-ASCII text a user may type, some of it outside the ANSI code page.
const std::array<const char*, 6> kNonAscii = {"äöüß", "Ünïcödé", "日本語", "١٢٣", "ñ1.5", "€"};

}  // namespace

int RandomTyping::Below(int n) {
    return std::uniform_int_distribution<int>(0, n - 1)(rng_);
}

QString RandomTyping::RandomCharacters(int length) {
    QString text;
    for (int i = 0; i < length; ++i) {
        switch (Below(4)) {
            case 0:  // digits are the most common
                text += QChar(u'0' + Below(10));
                break;
            case 1:  // printable ASCII
                text += QChar(static_cast<char16_t>(0x20 + Below(0x5F)));
                break;
            case 2:
                text += QChar(static_cast<char16_t>(u".,+-eE$x"[Below(8)]));
                break;
            default:  // any character of the basic plane that is not a control or surrogate
                text += QChar(static_cast<char16_t>(0xA0 + Below(0xD7FF - 0xA0)));
                break;
        }
    }
    return text;
}

QString RandomTyping::Next() {
    switch (Below(6)) {
        case 0:
        case 1:
            return QString::fromUtf8(
                kEdgeTexts[static_cast<std::size_t>(Below(kEdgeTexts.size()))]);
        case 2:
            return QString::fromUtf8(kNonAscii[static_cast<std::size_t>(Below(kNonAscii.size()))]);
        case 3:  // very long
            return RandomCharacters(200 + Below(400));
        case 4:  // a number with random decoration
            return QString::number(Below(100000) - 50000) + RandomCharacters(Below(3));
        default:
            return RandomCharacters(Below(12));
    }
}

void Retype(QLineEdit* edit, const QString& text) {
    edit->setFocus(Qt::MouseFocusReason);
    edit->selectAll();
    if (text.isEmpty()) {
        QTest::keyClick(edit, Qt::Key_Delete);
        return;
    }
    for (const QChar c : text) {
        if (c.unicode() < 0x80) {
            QTest::keyClick(edit, c.toLatin1());
        } else {
            // A character no key of the test's keyboard has: a key event that carries it.
            QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_unknown, QString(c), Qt::NoModifier);
        }
    }
}

}  // namespace wk::test
