// version_info [FILE]: the version the editor's about box would show for FILE (default: this
// program itself, as GetModuleFileNameA names it), through GetFileVersionInfoA and
// VerQueryValueA. Prints "none" for a file without one.

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#include <vector>

#include "platform/file_version.h"

int main(int argc, char** argv) {
    _setmode(_fileno(stdout), _O_BINARY);
    char self[MAX_PATH] = {};
    ::GetModuleFileNameA(nullptr, self, MAX_PATH);
    const char* file = argc > 1 ? argv[1] : self;
    std::uint32_t handle = 0;
    const std::uint32_t size = wk::GetFileVersionInfoSizeA(file, &handle);
    std::vector<unsigned char> data(size);
    void* block = nullptr;
    std::uint32_t length = 0;
    if (size == 0 || !wk::GetFileVersionInfoA(file, handle, size, data.data()) ||
        !wk::VerQueryValueA(data.data(), "\\", &block, &length)) {
        std::printf("none\n");
        return 0;
    }
    const auto* fixed = static_cast<const wk::VS_FIXEDFILEINFO*>(block);
    std::printf("%u.%u.%u.%u\n", fixed->dwFileVersionMS >> 16, fixed->dwFileVersionMS & 0xFFFF,
                fixed->dwFileVersionLS >> 16, fixed->dwFileVersionLS & 0xFFFF);
    return 0;
}
