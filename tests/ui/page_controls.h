#pragma once
// The controls of each page of the window, by name, as its table of controls lists them: the
// test data of the contract every page of the table is checked against (page_contract_test).
// A page of the table without an entry here fails that test.

#include <vector>

namespace wk::test {

// What pCancel does to an edit field that has the focus and a typed text.
enum class CancelRule {
    PutsBackTheRecord,  // the edit shows the record's value again
    KeepsTheTypedText,  // the page puts back its other edits and leaves the one being typed
};

struct PageControls {
    const char* sheetName;
    // Every control of the page's table, the tab sheet itself and the dialogs left out.
    std::vector<const char*> controls;
    CancelRule cancel;
    // Edit fields whose Load shows something else than initialisation did (another form of
    // the value, another value, or nothing at all): the generic checks of typing, Load(true)
    // and Cancel leave them to the page's own tests.
    std::vector<const char*> ownLoadRule;
};

// The entry of a tab sheet, or nullptr.
const PageControls* ControlsOf(const char* sheetName);
// Every entry, in tab order.
const std::vector<PageControls>& AllPageControls();

}  // namespace wk::test
