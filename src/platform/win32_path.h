#pragma once
// Paths for the wide-character Windows calls. The program holds paths as ANSI text (they come
// from GetWindowsDirectoryA and from the settings files, which are in the ANSI code page), so
// they are widened through that code page. Windows only.

#ifdef _WIN32

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <string>

namespace wk::platform {

inline std::wstring WidePath(const std::string& path) {
    if (path.empty()) return {};
    const int n =
        ::MultiByteToWideChar(CP_ACP, 0, path.data(), static_cast<int>(path.size()), nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(n), L'\0');
    ::MultiByteToWideChar(CP_ACP, 0, path.data(), static_cast<int>(path.size()), wide.data(), n);
    return wide;
}

// The system's text for a Windows error code, without the trailing line end.
inline std::string WindowsErrorText(DWORD code) {
    char* text = nullptr;
    const DWORD n = ::FormatMessageA(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, code, 0, reinterpret_cast<char*>(&text), 0, nullptr);
    std::string result =
        n > 0 && text != nullptr ? std::string(text, n) : "error " + std::to_string(code);
    if (text != nullptr) ::LocalFree(text);
    while (!result.empty() &&
           (result.back() == '\n' || result.back() == '\r' || result.back() == ' '))
        result.pop_back();
    return result;
}

}  // namespace wk::platform

#endif  // _WIN32
