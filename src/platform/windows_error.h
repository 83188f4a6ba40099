#pragma once
// The text of a Windows error code, for the messages that name a file and the reason it could
// not be read or written. Windows only; file names reach the wide calls through host_path.h.

#ifdef _WIN32

#include <string>

#include "platform/windows_api.h"

namespace wk::platform {

// The system's text for a Windows error code.
inline std::string WindowsErrorText(DWORD code) {
    char* text = nullptr;
    const DWORD n = ::FormatMessageA(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, code, 0, reinterpret_cast<char*>(&text), 0, nullptr);
    std::string result =
        n > 0 && text != nullptr ? std::string(text, n) : "error " + std::to_string(code);
    if (text != nullptr) ::LocalFree(text);
    // Without the line end and the full stop, so that the text reads on inside a message.
    while (!result.empty() && (result.back() == '\n' || result.back() == '\r' ||
                               result.back() == ' ' || result.back() == '.'))
        result.pop_back();
    return result;
}

}  // namespace wk::platform

#endif  // _WIN32
