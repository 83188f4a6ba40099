#pragma once
// MessageBoxA, routed through a replaceable presenter.
//
// The core shows a few messages itself (a language library that cannot be loaded, start-up
// failures). Headless, they go to standard error and take the default answer; the window
// installs a presenter that shows a real message box; tests install one that records the
// message and gives a preset answer.

#include <functional>
#include <string>

namespace wk {

// Button sets and icons, with the Windows values.
inline constexpr unsigned MB_OK = 0x0;
inline constexpr unsigned MB_YESNOCANCEL = 0x3;
inline constexpr unsigned MB_YESNO = 0x4;
inline constexpr unsigned MB_ICONSTOP = 0x10;
inline constexpr unsigned MB_ICONQUESTION = 0x20;
inline constexpr unsigned MB_ICONEXCLAMATION = 0x30;
inline constexpr unsigned MB_TOPMOST = 0x40000;

// Answers, with the Windows values.
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;

struct MessageBoxRequest {
    void* owner = nullptr;  // the owning window, or nullptr
    std::string text;
    std::string caption;
    unsigned type = MB_OK;
    // A longer text the user may open under the message ("Show Details..."): the list of
    // keys a save or a restore would change. Empty for no details section.
    std::string details;
};

using MessageBoxPresenter = std::function<int(const MessageBoxRequest&)>;

// Shows the message through the current presenter and returns its answer.
int MessageBoxA(void* owner, const char* text, const char* caption, unsigned type);

// As MessageBoxA, with a details text under the message (none when `details` is empty).
int MessageBoxWithDetails(void* owner, const char* text, const char* caption, unsigned type,
                          const std::string& details);

// Replaces the presenter; returns the previous one. An empty function restores the
// default (standard error, answer IDOK or, for a question, IDCANCEL or IDNO).
MessageBoxPresenter SetMessageBoxPresenter(MessageBoxPresenter presenter);

}  // namespace wk
