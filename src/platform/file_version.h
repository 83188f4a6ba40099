#pragma once
// The version resource of a program file: GetFileVersionInfoSizeA, GetFileVersionInfoA and
// VerQueryValueA.
//
// The build stamps its version (the project's version, four parts) into the program. A file
// has that version resource exactly when it is the running program itself; any other file
// (or a program built without a version) has none, as a Windows program without a VERSIONINFO
// resource has none.

#include <cstdint>

namespace wk {

// The fixed part of a version resource, with the Windows layout and signature.
struct VS_FIXEDFILEINFO {
    std::uint32_t dwSignature;  // 0xFEEF04BD
    std::uint32_t dwStrucVersion;
    std::uint32_t dwFileVersionMS;  // major << 16 | minor
    std::uint32_t dwFileVersionLS;  // release << 16 | build
    std::uint32_t dwProductVersionMS;
    std::uint32_t dwProductVersionLS;
    std::uint32_t dwFileFlagsMask;
    std::uint32_t dwFileFlags;
    std::uint32_t dwFileOS;
    std::uint32_t dwFileType;
    std::uint32_t dwFileSubtype;
    std::uint32_t dwFileDateMS;
    std::uint32_t dwFileDateLS;
};

inline constexpr std::uint32_t kFixedFileInfoSignature = 0xFEEF04BD;

// The size of the file's version resource, 0 when it has none. `handle` is set to 0.
std::uint32_t GetFileVersionInfoSizeA(const char* fileName, std::uint32_t* handle);

// Copies the version resource into `data` (at most `size` bytes). False when the file has
// none or the buffer is too small.
bool GetFileVersionInfoA(const char* fileName, std::uint32_t handle, std::uint32_t size,
                         void* data);

// Finds a value in a version resource read by GetFileVersionInfoA. Only the root block "\"
// (the fixed file information) is known; other blocks give false.
bool VerQueryValueA(const void* block, const char* subBlock, void** buffer, std::uint32_t* length);

}  // namespace wk
