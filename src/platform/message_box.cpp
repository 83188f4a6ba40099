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
    return (request.type & 0xF) == MB_YESNOCANCEL ? IDCANCEL : IDOK;
}

MessageBoxPresenter& CurrentPresenter() {
    static MessageBoxPresenter presenter = ShowOnStandardError;
    return presenter;
}

}  // namespace

int MessageBoxA(void* owner, const char* text, const char* caption, unsigned type) {
    MessageBoxRequest request;
    request.owner = owner;
    request.text = text ? text : "";
    request.caption = caption ? caption : "";
    request.type = type;
    return CurrentPresenter()(request);
}

MessageBoxPresenter SetMessageBoxPresenter(MessageBoxPresenter presenter) {
    MessageBoxPresenter previous = std::move(CurrentPresenter());
    CurrentPresenter() = presenter ? std::move(presenter) : MessageBoxPresenter(ShowOnStandardError);
    return previous;
}

}  // namespace wk
