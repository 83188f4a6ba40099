#pragma once
// ResourceGenFile: one loaded language library.

#include <string>

#include "platform/resource_library.h"

namespace wk {

class ResourceGenFile {
public:
    // Loads the library `fileName` (relative to the working directory). When it does not
    // load, the same name with "32" before the extension is tried (Kes32_ITA.dll ->
    // Kes32_ITA32.dll) if such a file exists. When neither loads, the "ERROR" message
    // names the first file and the object stays, without a module: its strings are empty.
    explicit ResourceGenFile(const std::string& fileName);
    ~ResourceGenFile();

    ResourceGenFile(const ResourceGenFile&) = delete;
    ResourceGenFile& operator=(const ResourceGenFile&) = delete;

    // The loaded library; nullptr when loading failed.
    ModuleHandle Module() const { return module_; }

    // Releases the module now (the destructor then has nothing to release).
    void Release();

private:
    ModuleHandle module_ = nullptr;
};

// The name the library is retried under: directory and base name of `fileName`, "32", and
// its extension ("Kes32_ITA.dll" -> "Kes32_ITA32.dll"; without an extension "32" is
// appended).
std::string ResourceFileRetryName(const std::string& fileName);

}  // namespace wk
