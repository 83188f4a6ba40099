#include "shell/main_menu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>

#include "shell/language_text.h"

namespace wk {

namespace {

struct MenuText {
    const char* name;  // objectName
    const char* designCaption;
    int captionId;
    int hintId;
};

constexpr MenuText kFilePopup{"KestelFile_PopUp", "&File", 2, 0};
constexpr MenuText kSave{"KestelFile_Save", "&Save", 3, 26};
constexpr MenuText kExit{"KestelFile_Exit", "E&xit", 4, 25};
// The restore entry's strings are the program's own: an older library lacks them, and the
// entry then keeps its English caption and hint.
constexpr const char* kRestoreName = "KestelFile_Restore";
constexpr MenuText kHelpPopup{"KestelHelp_PopUp", "&Help", 20, 0};
constexpr MenuText kHelpIndex{"KestelHelp_Index", "&Index", 21, 0};
constexpr MenuText kAbout{"KestelHelp_About", "&About...", 22, 0};

// The popups of the page entries, in the menu bar's order.
struct PagePopup {
    MenuPopup popup;
    MenuText text;
};
constexpr PagePopup kPagePopups[] = {
    {MenuPopup::GeneralConfiguration, {"KestelGenConf_PopUp", "&General configuration", 10, 0}},
    {MenuPopup::ElementParameters, {"KestelElemPar_PopUp", "&Element parameters", 11, 0}},
    {MenuPopup::Other, {"KestelOther_PopUp", "&Other", 15, 0}},
};

}  // namespace

MainMenu::MainMenu(QMenuBar& bar, std::span<const PageEntry> pages)
    : pages_(pages), pageEntries_(pages.size()) {
    auto addPopup = [&](const MenuText& text) {
        QMenu* menu = bar.addMenu(QString::fromLatin1(text.designCaption));
        menu->setObjectName(QString::fromLatin1(text.name));
        menu->menuAction()->setObjectName(QString::fromLatin1(text.name));
        frameEntries_.push_back({menu->menuAction(), text.captionId, text.hintId});
        return menu;
    };
    auto addEntry = [&](QMenu* menu, const MenuText& text) {
        QAction* action = menu->addAction(QString::fromLatin1(text.designCaption));
        action->setObjectName(QString::fromLatin1(text.name));
        frameEntries_.push_back({action, text.captionId, text.hintId});
        return action;
    };

    QMenu* file = addPopup(kFilePopup);
    save_ = addEntry(file, kSave);
    restore_ = file->addAction(QString::fromLatin1(kRestoreEntryCaption.English));
    restore_->setObjectName(QString::fromLatin1(kRestoreName));
    restore_->setStatusTip(QString::fromLatin1(kRestoreEntryHint.English));
    file->addSeparator();
    exit_ = addEntry(file, kExit);

    for (const PagePopup& popup : kPagePopups) {
        QMenu* menu = addPopup(popup.text);
        std::vector<std::size_t> rows;
        for (std::size_t row = 0; row < pages.size(); ++row) {
            if (pages[row].menu.popup == popup.popup) rows.push_back(row);
        }
        std::stable_sort(rows.begin(), rows.end(), [&](std::size_t a, std::size_t b) {
            return pages[a].menu.position < pages[b].menu.position;
        });
        for (std::size_t row : rows) {
            const PageEntry& page = pages[row];
            PageEntryActions& entry = pageEntries_[row];
            if (page.menu.separatorBefore) {
                entry.separator = menu->addSeparator();
                entry.separator->setObjectName(QString::fromLatin1(page.menu.separatorBefore));
            }
            entry.action =
                menu->addAction(QStringLiteral("&") + QString::fromLatin1(page.designCaption));
            entry.action->setObjectName(QString::fromLatin1(page.menu.name));
            // A page that is not built is not offered.
            entry.action->setEnabled(page.factory != nullptr);
        }
    }

    QMenu* help = addPopup(kHelpPopup);
    helpIndex_ = addEntry(help, kHelpIndex);
    about_ = addEntry(help, kAbout);
}

void MainMenu::Caption(const ControllerFlags& flags) {
    for (const Captioned& entry : frameEntries_) {
        entry.action->setText(LanguageCaption(entry.captionId));
        if (entry.hintId) entry.action->setStatusTip(LanguageCaption(entry.hintId));
    }
    restore_->setText(OwnCaption(kRestoreEntryCaption));
    restore_->setStatusTip(OwnCaption(kRestoreEntryHint));
    for (std::size_t row = 0; row < pages_.size(); ++row) {
        const PageMenuEntry& menu = pages_[row].menu;
        const PageEntryActions& entry = pageEntries_[row];
        const bool shown = menu.shownFor == nullptr || menu.shownFor(flags);
        entry.action->setVisible(shown);
        if (entry.separator) entry.separator->setVisible(shown);
        if (!shown) continue;
        if (menu.captionId) entry.action->setText(LanguageCaption(menu.captionId));
        if (menu.hintId) entry.action->setStatusTip(LanguageCaption(menu.hintId));
    }
}

}  // namespace wk
