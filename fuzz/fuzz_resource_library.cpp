// libFuzzer target: any bytes as a language library. Loading must fail cleanly or give a
// string table whose every string can be fetched into any buffer, with no read outside the
// bytes (AddressSanitizer watches).

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/resource_library.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<unsigned char> bytes(data, data + size);
    wk::ModuleHandle module = wk::platform::LoadLibraryFromBytes(bytes);
    if (!module) return 0;
    char buffer[256];
    for (unsigned id : wk::platform::StringIds(module)) {
        for (int bufferMax : {256, 200, 2, 1}) {
            int length = wk::LoadStringA(module, id, buffer, bufferMax);
            if (length < 0 || length >= bufferMax) __builtin_trap();
        }
    }
    wk::FreeLibrary(module);
    return 0;
}
