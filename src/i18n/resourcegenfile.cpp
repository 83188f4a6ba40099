#include "i18n/resourcegenfile.h"

#include "platform/file_lookup.h"
#include "platform/message_box.h"

namespace wk {

std::string ResourceFileRetryName(const std::string& fileName) {
    std::size_t separator = fileName.find_last_of("\\/");
    std::size_t nameStart = separator == std::string::npos ? 0 : separator + 1;
    std::size_t dot = fileName.find_last_of('.');
    if (dot == std::string::npos || dot < nameStart) return fileName + "32";
    return fileName.substr(0, dot) + "32" + fileName.substr(dot);
}

ResourceGenFile::ResourceGenFile(const std::string& fileName) {
    module_ = LoadLibraryA(fileName.c_str());
    if (!module_) {
        std::string retry = ResourceFileRetryName(fileName);
        if (platform::FindFileIgnoringCase(retry)) module_ = LoadLibraryA(retry.c_str());
    }
    if (!module_) {
        std::string text =
            "In ResourceFile::ResourceFile(const char *) -> Error while loading " + fileName;
        MessageBoxA(nullptr, text.c_str(), "ERROR", MB_TOPMOST);
    }
}

ResourceGenFile::~ResourceGenFile() {
    Release();
}

void ResourceGenFile::Release() {
    FreeLibrary(module_);
    module_ = nullptr;
}

}  // namespace wk
