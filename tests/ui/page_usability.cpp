#include "page_usability.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QTabBar>
#include <QTest>
#include <algorithm>
#include <map>
#include <set>

#include "shell/kestel_main_wind.h"
#include "widgets/page_control.h"

namespace wk::test {

namespace {

std::string Str(const QString& text) {
    return text.toStdString();
}

std::string NameOf(const QWidget* widget) {
    const QString name = widget->objectName();
    return name.isEmpty() ? std::string("<a ") + widget->metaObject()->className() + ">"
                          : Str(name);
}

bool IsControl(const QWidget* widget) {
    return qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QComboBox*>(widget) ||
           qobject_cast<const QLineEdit*>(widget) ||
           qobject_cast<const QAbstractScrollArea*>(widget) ||
           qobject_cast<const QAbstractSlider*>(widget) ||
           qobject_cast<const QAbstractSpinBox*>(widget) || qobject_cast<const QGroupBox*>(widget);
}

// A part Qt builds inside a control (or a widget of a dialog the page owns), which the user
// does not see as a control of the page.
bool IsInner(const QWidget* widget, const QWidget* page) {
    if (widget->isWindow()) return true;
    for (const QWidget* p = widget->parentWidget(); p && p != page; p = p->parentWidget()) {
        if (p->isWindow() || qobject_cast<const QAbstractScrollArea*>(p) ||
            qobject_cast<const QComboBox*>(p) || qobject_cast<const QAbstractSpinBox*>(p) ||
            qobject_cast<const QTabBar*>(p)) {
            return true;
        }
    }
    return false;
}

// The labels of the page that the user sees as captions (not those of a dialog it owns).
std::vector<QLabel*> Labels(const QWidget* page) {
    std::vector<QLabel*> labels;
    for (QLabel* label : page->findChildren<QLabel*>()) {
        if (!IsInner(label, page)) labels.push_back(label);
    }
    return labels;
}

// The caption a control shows, or the one its label gives it.
QString CaptionOf(const QWidget* control, const QWidget* page) {
    if (auto* button = qobject_cast<const QAbstractButton*>(control)) return button->text();
    if (auto* group = qobject_cast<const QGroupBox*>(control)) return group->title();
    for (const QLabel* label : Labels(page)) {
        if (label->buddy() == control) return label->text();
    }
    return {};
}

// What a screen reader says a control is. A combo box is the exception: on some platforms Qt
// gives its value as its name and says what it is through the label it is labelled by.
QString AccessibleName(QWidget* control) {
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(control);
    if (!accessible) return {};
    if (qobject_cast<QComboBox*>(control)) {
        const auto labels = accessible->relations(QAccessible::Label);
        return labels.isEmpty() ? control->accessibleName()
                                : labels.first().first->text(QAccessible::Name);
    }
    return accessible->text(QAccessible::Name);
}

// The text a label shows: its mnemonic marks are not drawn.
QString Shown(const QString& caption) {
    QString text;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == QLatin1Char('&') && i + 1 < caption.size()) ++i;
        text += caption[i];
    }
    return text;
}

QRect OnPage(const QWidget* widget, const QWidget* page) {
    return QRect(widget->mapTo(page, QPoint(0, 0)), widget->size());
}

// The group box a control is in, or nullptr.
const QGroupBox* GroupOf(const QWidget* control, const QWidget* page) {
    for (const QWidget* p = control->parentWidget(); p && p != page; p = p->parentWidget()) {
        if (auto* group = qobject_cast<const QGroupBox*>(p)) return group;
    }
    return nullptr;
}

// A radio button that is not chosen while another of its group is: Tab stops at the chosen one
// of a group, and the arrow keys move between them.
bool ReachedByArrows(const QWidget* control) {
    auto* radio = qobject_cast<const QRadioButton*>(control);
    if (!radio || !radio->autoExclusive() || radio->isChecked()) return false;
    for (const QRadioButton* other :
         radio->parentWidget()->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly)) {
        if (other != radio && other->autoExclusive() && other->isChecked()) return true;
    }
    return false;
}

std::string Size(const QSize& size) {
    return std::to_string(size.width()) + "x" + std::to_string(size.height());
}

}  // namespace

std::vector<QWidget*> UserControls(const QWidget* page) {
    std::vector<QWidget*> controls;
    for (QWidget* widget : page->findChildren<QWidget*>()) {
        if (IsControl(widget) && !IsInner(widget, page)) controls.push_back(widget);
    }
    return controls;
}

QString Spoken(const QString& caption) {
    QString text = Shown(caption).trimmed();
    if (text.endsWith(QLatin1Char(':'))) text.chop(1);
    return text.trimmed();
}

QChar MnemonicOf(const QString& caption) {
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

std::vector<std::string> UnnamedControls(const QWidget* page) {
    std::vector<std::string> problems;
    for (QWidget* control : UserControls(page)) {
        const QString name = Spoken(AccessibleName(control));
        const QString caption = Spoken(CaptionOf(control, page));
        if (name.isEmpty()) {
            problems.push_back(NameOf(control) + " has no accessible name" +
                               (caption.isEmpty() ? std::string(" and no caption")
                                                  : " (its caption is \"" + Str(caption) + "\")"));
        } else if (!caption.isEmpty() && !name.contains(caption)) {
            problems.push_back(NameOf(control) + " is named \"" + Str(name) +
                               "\" but its caption is \"" + Str(caption) + "\"");
        }
    }
    return problems;
}

QStringList WindowMnemonicCaptions(const TKestelMainWind& window) {
    QStringList captions;
    const QTabBar* tabs = window.PageCtl()->TabBar();
    for (int i = 0; i < tabs->count(); ++i) captions << tabs->tabText(i);
    if (const QMenuBar* bar = window.findChild<QMenuBar*>()) {
        for (const QAction* popup : bar->actions()) {
            if (popup->isVisible()) captions << popup->text();
        }
    }
    return captions;
}

std::vector<std::string> MnemonicClashes(const QWidget* page, const QStringList& windowCaptions) {
    std::vector<std::string> problems;
    std::map<QChar, std::string> own;  // letter -> the control that has it, with its caption
    auto add = [&](const QWidget* widget, const QString& caption) {
        const QChar letter = MnemonicOf(caption);
        if (letter.isNull()) return;
        const std::string who = NameOf(widget) + " \"" + Str(caption) + "\"";
        if (own.count(letter)) {
            problems.push_back(who + " has the mnemonic of " + own[letter]);
        } else {
            own[letter] = who;
        }
    };
    // Shown or not: what a page hides in one state it shows in another, and a letter that the
    // user has learnt must not lead elsewhere then. Buttons and group boxes by their own
    // captions, the other controls by their labels.
    for (const QWidget* control : UserControls(page)) {
        if (auto* button = qobject_cast<const QAbstractButton*>(control)) {
            add(button, button->text());
        } else if (auto* group = qobject_cast<const QGroupBox*>(control)) {
            add(group, group->title());
        }
    }
    for (const QLabel* label : Labels(page)) {
        if (MnemonicOf(label->text()).isNull()) continue;
        if (!label->buddy()) {
            problems.push_back(NameOf(label) + " \"" + Str(label->text()) +
                               "\" has a mnemonic but no control to go to");
            continue;
        }
        add(label, label->text());
    }
    for (const QString& caption : windowCaptions) {
        const QChar letter = MnemonicOf(caption);
        if (!letter.isNull() && own.count(letter)) {
            problems.push_back(own[letter] + " has the mnemonic of the window's \"" + Str(caption) +
                               "\"");
        }
    }
    return problems;
}

std::vector<std::string> TabOrderProblems(TKestelMainWind& window, QWidget* page) {
    std::vector<std::string> problems;
    const std::vector<QWidget*> controls = UserControls(page);
    std::vector<QWidget*> stops;
    for (QWidget* control : controls) {
        if ((control->focusPolicy() & Qt::TabFocus) && control->isVisible() &&
            control->isEnabled() && !ReachedByArrows(control)) {
            stops.push_back(control);
        }
    }
    if (stops.empty()) return problems;

    // The control a focused widget belongs to (an editable list's edit belongs to the list).
    auto controlOf = [&](QWidget* widget) -> QWidget* {
        for (QWidget* w = widget; w && w != page; w = w->parentWidget()) {
            if (std::find(controls.begin(), controls.end(), w) != controls.end()) return w;
        }
        return widget;
    };

    window.PageCtl()->TabBar()->setFocus(Qt::TabFocusReason);
    std::vector<QWidget*> order;
    QWidget* focus = QApplication::focusWidget();
    for (std::size_t i = 0; focus && i < stops.size() + 2; ++i) {
        QTest::keyClick(focus, Qt::Key_Tab);
        focus = QApplication::focusWidget();
        if (!focus || !page->isAncestorOf(focus)) break;
        order.push_back(controlOf(focus));
    }
    if (order.empty()) {
        problems.push_back("Tab from the tabs does not enter the page but goes to " +
                           (focus ? NameOf(focus) : std::string("nothing")));
        return problems;
    }
    if (!focus || focus->objectName() != QLatin1String("pOK")) {
        problems.push_back("Tab leaves the page for " +
                           (focus ? NameOf(focus) : std::string("nothing")) + ", not for OK");
    }
    for (QWidget* stop : stops) {
        const auto times = std::count(order.begin(), order.end(), stop);
        if (times == 0) problems.push_back("Tab never reaches " + NameOf(stop));
        if (times > 1) problems.push_back("Tab reaches " + NameOf(stop) + " more than once");
    }
    std::set<const QGroupBox*> left;
    for (std::size_t i = 1; i < order.size(); ++i) {
        const QRect from = OnPage(order[i - 1], page);
        const QRect to = OnPage(order[i], page);
        if (to.bottom() < from.top() && to.right() < from.left()) {
            problems.push_back("Tab goes back up to the left, from " + NameOf(order[i - 1]) +
                               " to " + NameOf(order[i]));
        }
        const QGroupBox* before = GroupOf(order[i - 1], page);
        const QGroupBox* now = GroupOf(order[i], page);
        if (before != now) {
            if (before) left.insert(before);
            if (now && left.count(now)) {
                problems.push_back("Tab comes back into " + NameOf(now) + " at " +
                                   NameOf(order[i]));
            }
        }
    }
    return problems;
}

std::vector<std::string> LayoutProblems(const QWidget* page) {
    std::vector<std::string> problems;
    const std::string at = " (page " + Size(page->size()) + " at scale " +
                           QString::number(page->devicePixelRatio()).toStdString() + ")";
    std::vector<const QWidget*> shown;
    for (const QWidget* control : UserControls(page)) {
        if (control->isVisible()) shown.push_back(control);
    }
    for (const QLabel* label : Labels(page)) {
        if (label->isVisible() && (!label->text().isEmpty() || !label->pixmap().isNull())) {
            shown.push_back(label);
        }
    }

    for (const QWidget* widget : shown) {
        const std::string name = NameOf(widget);
        const QRect rect = OnPage(widget, page);
        if (!page->rect().contains(rect)) {
            problems.push_back(name + " reaches outside the page" + at);
        }
        const QSize need = widget->minimumSizeHint();
        const QSizePolicy policy = widget->sizePolicy();
        // A push button's hint holds a width the style likes buttons to have; what it needs is
        // room for its caption, checked below.
        auto* push = qobject_cast<const QPushButton*>(widget);
        if (!push && policy.horizontalPolicy() != QSizePolicy::Ignored &&
            need.width() > widget->width()) {
            problems.push_back(name + " is " + std::to_string(widget->width()) +
                               " wide, it needs " + std::to_string(need.width()) + at);
        }
        if (policy.verticalPolicy() != QSizePolicy::Ignored && need.height() > widget->height()) {
            problems.push_back(name + " is " + std::to_string(widget->height()) +
                               " high, it needs " + std::to_string(need.height()) + at);
        }
        if (push && !push->text().isEmpty()) {
            const QStyle* style = push->style();
            const int frame = 2 * style->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, push);
            const int margin = style->pixelMetric(QStyle::PM_ButtonMargin, nullptr, push);
            const int icon = push->icon().isNull() ? 0 : push->iconSize().width() + 4;
            const int width = push->fontMetrics().horizontalAdvance(Shown(push->text()));
            if (width + icon + margin + frame > push->width()) {
                problems.push_back(name + " \"" + Str(Shown(push->text())) +
                                   "\" is cut: it needs " +
                                   std::to_string(width + icon + margin + frame) + ", it has " +
                                   std::to_string(push->width()) + at);
            }
        }
        // A caption cut by a size set by hand, which the size hint does not see.
        if (auto* label = qobject_cast<const QLabel*>(widget);
            label && !label->wordWrap() && !label->text().isEmpty()) {
            const QFontMetrics metrics = label->fontMetrics();
            const QString text = Shown(label->text());
            const int room =
                label->contentsRect().width() - 2 * label->margin() - std::max(label->indent(), 0);
            const int width = metrics.horizontalAdvance(text);
            if (width > room || metrics.height() > label->contentsRect().height()) {
                problems.push_back(name + " \"" + Str(text) + "\" is cut: it needs " +
                                   std::to_string(width) + " by " +
                                   std::to_string(metrics.height()) + ", it has " +
                                   Size(label->contentsRect().size()) + at);
            }
        }
    }

    for (std::size_t i = 0; i < shown.size(); ++i) {
        for (std::size_t j = i + 1; j < shown.size(); ++j) {
            const QWidget* a = shown[i];
            const QWidget* b = shown[j];
            if (a->isAncestorOf(b) || b->isAncestorOf(a)) continue;
            if (OnPage(a, page).intersects(OnPage(b, page))) {
                problems.push_back(NameOf(a) + " overlaps " + NameOf(b) + at);
            }
        }
    }
    return problems;
}

}  // namespace wk::test
