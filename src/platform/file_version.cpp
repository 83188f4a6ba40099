#include "platform/file_version.h"

#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/host_path.h"
#include "platform/windows_api.h"

namespace wk {

namespace {

// The resource as GetFileVersionInfoA hands it out: a small header naming the block, then
// the fixed file information.
struct VersionResource {
    char key[16];  // "VS_VERSION_INFO"
    VS_FIXEDFILEINFO fixed;
};

#if defined(WKESTEL_VERSION_MAJOR)
constexpr bool kHasVersion = true;
// A part the project's version leaves out (1.2 has no release or build) is 0; the "+ 0"
// turns an empty definition into 0 as well.
constexpr std::uint32_t kMajor = WKESTEL_VERSION_MAJOR + 0;
#if defined(WKESTEL_VERSION_MINOR)
constexpr std::uint32_t kMinor = WKESTEL_VERSION_MINOR + 0;
#else
constexpr std::uint32_t kMinor = 0;
#endif
#if defined(WKESTEL_VERSION_PATCH)
constexpr std::uint32_t kRelease = WKESTEL_VERSION_PATCH + 0;
#else
constexpr std::uint32_t kRelease = 0;
#endif
#if defined(WKESTEL_VERSION_TWEAK)
constexpr std::uint32_t kBuild = WKESTEL_VERSION_TWEAK + 0;
#else
constexpr std::uint32_t kBuild = 0;
#endif
#else
constexpr bool kHasVersion = false;
constexpr std::uint32_t kMajor = 0, kMinor = 0, kRelease = 0, kBuild = 0;
#endif

VersionResource BuildResource() {
    VersionResource resource{};
    std::memcpy(resource.key, "VS_VERSION_INFO", 16);
    VS_FIXEDFILEINFO& fixed = resource.fixed;
    fixed.dwSignature = kFixedFileInfoSignature;
    fixed.dwStrucVersion = 0x00010000;
    fixed.dwFileVersionMS = (kMajor & 0xFFFF) << 16 | (kMinor & 0xFFFF);
    fixed.dwFileVersionLS = (kRelease & 0xFFFF) << 16 | (kBuild & 0xFFFF);
    fixed.dwProductVersionMS = fixed.dwFileVersionMS;
    fixed.dwProductVersionLS = fixed.dwFileVersionLS;
    fixed.dwFileFlagsMask = 0x3F;
    fixed.dwFileOS = 0x00040004;  // VOS_NT_WINDOWS32
    fixed.dwFileType = 0x1;       // VFT_APP
    return resource;
}

// Whether `fileName` is the running program, the one file that carries the build's version.
bool IsThisProgram(const char* fileName) {
    if (!kHasVersion || !fileName || !*fileName) {
        return false;
    }
    std::error_code error;
#if defined(__linux__)
    const std::filesystem::path self("/proc/self/exe");
#elif defined(_WIN32)
    std::wstring name(32768, L'\0');
    name.resize(::GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
    const std::filesystem::path self(name);
#else
    const std::filesystem::path self = std::filesystem::path();
#endif
    if (self.empty()) {
        return false;
    }
    const bool same = std::filesystem::equivalent(platform::PathFromAnsi(fileName), self, error);
    return !error && same;
}

}  // namespace

std::uint32_t GetFileVersionInfoSizeA(const char* fileName, std::uint32_t* handle) {
    if (handle) {
        *handle = 0;
    }
    return IsThisProgram(fileName) ? static_cast<std::uint32_t>(sizeof(VersionResource)) : 0;
}

bool GetFileVersionInfoA(const char* fileName, std::uint32_t /*handle*/, std::uint32_t size,
                         void* data) {
    if (!data || size < sizeof(VersionResource) || !IsThisProgram(fileName)) {
        return false;
    }
    const VersionResource resource = BuildResource();
    std::memcpy(data, &resource, sizeof resource);
    return true;
}

bool VerQueryValueA(const void* block, const char* subBlock, void** buffer, std::uint32_t* length) {
    if (!block || !subBlock || !buffer || !length || std::strcmp(subBlock, "\\") != 0) {
        return false;
    }
    auto* resource = static_cast<const VersionResource*>(block);
    if (std::memcmp(resource->key, "VS_VERSION_INFO", 16) != 0 ||
        resource->fixed.dwSignature != kFixedFileInfoSignature) {
        return false;
    }
    *buffer = const_cast<VS_FIXEDFILEINFO*>(&resource->fixed);
    *length = static_cast<std::uint32_t>(sizeof(VS_FIXEDFILEINFO));
    return true;
}

}  // namespace wk
