#include "platform/message_box.h"

#include <iostream>
#include <utility>

namespace wk {
namespace {

// Headless, a message is all there is to say: it goes to standard error, and a question
// takes the answer that changes nothing.
int ShowOnStandardError(const MessageBoxRequest& request) {
    std::cerr << (request.caption.empty() ? std::string() : request.caption + ": ") << request.text
              << '\n';
    if (!request.details.empty()) std::cerr << request.details << '\n';
    switch (request.type & 0xF) {
        case MB_YESNOCANCEL:
            return IDCANCEL;
        case MB_YESNO:
            return IDNO;
        default:
            return IDOK;
    }
}

MessageBoxPresenter& CurrentPresenter() {
    static MessageBoxPresenter presenter = ShowOnStandardError;
    return presenter;
}

}  // namespace

int MessageBoxA(void* owner, const char* text, const char* caption, unsigned type) {
    return MessageBoxWithDetails(owner, text, caption, type, std::string());
}

int MessageBoxWithDetails(void* owner, const char* text, const char* caption, unsigned type,
                          const std::string& details) {
    MessageBoxRequest request;
    request.owner = owner;
    request.text = text ? text : "";
    request.caption = caption ? caption : "";
    request.type = type;
    request.details = details;
    return CurrentPresenter()(request);
}

MessageBoxPresenter SetMessageBoxPresenter(MessageBoxPresenter presenter) {
    MessageBoxPresenter previous = std::move(CurrentPresenter());
    CurrentPresenter() =
        presenter ? std::move(presenter) : MessageBoxPresenter(ShowOnStandardError);
    return previous;
}

}  // namespace wk
