#include "platform/host_path.h"

#include "platform/windows_api.h"

namespace wk::platform {

#ifdef _WIN32

std::filesystem::path PathFromAnsi(std::string_view ansiName) {
    if (ansiName.empty()) return {};
    const int size = static_cast<int>(ansiName.size());
    const int length = ::MultiByteToWideChar(CP_ACP, 0, ansiName.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    ::MultiByteToWideChar(CP_ACP, 0, ansiName.data(), size, wide.data(), length);
    return std::filesystem::path(std::move(wide));
}

std::string PathToAnsi(const std::filesystem::path& path) {
    const std::wstring& wide = path.native();
    if (wide.empty()) return {};
    const int size = static_cast<int>(wide.size());
    const int length =
        ::WideCharToMultiByte(CP_ACP, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string ansi(static_cast<std::size_t>(length), '\0');
    ::WideCharToMultiByte(CP_ACP, 0, wide.data(), size, ansi.data(), length, nullptr, nullptr);
    return ansi;
}

#else

std::filesystem::path PathFromAnsi(std::string_view ansiName) {
    return std::filesystem::path(std::string(ansiName));
}

std::string PathToAnsi(const std::filesystem::path& path) {
    return path.string();
}

#endif

}  // namespace wk::platform
