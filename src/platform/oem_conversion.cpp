#include "platform/oem_conversion.h"

#include <iconv.h>

#include <array>
#include <cstdlib>
#include <mutex>
#include <string>

namespace wk {
namespace {

constexpr const char* kDefaultOemCodePage = "CP850";
constexpr const char* kAnsiCodePage = "CP1252";

// "850" -> "CP850"; names are passed to iconv as they are.
std::string IconvName(const std::string& codePage) {
    bool digits = !codePage.empty();
    for (char c : codePage) digits = digits && c >= '0' && c <= '9';
    return digits ? "CP" + codePage : codePage;
}

using Table = std::array<unsigned char, 256>;

// The conversion of every byte, from iconv one byte at a time (the OEM code pages are all
// single-byte). False when iconv does not know the code page.
bool BuildTable(const std::string& oem, Table& table) {
    iconv_t cd = iconv_open(kAnsiCodePage, oem.c_str());
    if (cd == reinterpret_cast<iconv_t>(-1)) return false;
    for (unsigned b = 0; b < 256; ++b) {
        if (b < 0x80) {
            table[b] = static_cast<unsigned char>(b);
            continue;
        }
        char in = static_cast<char>(b);
        char out[8] = {};
        char* inPtr = &in;
        char* outPtr = out;
        std::size_t inLeft = 1;
        std::size_t outLeft = sizeof out;
        iconv(cd, nullptr, nullptr, nullptr, nullptr);  // reset the shift state
        std::size_t r = iconv(cd, &inPtr, &inLeft, &outPtr, &outLeft);
        bool single = r != static_cast<std::size_t>(-1) && inLeft == 0 && outPtr - out == 1;
        table[b] = single ? static_cast<unsigned char>(out[0]) : static_cast<unsigned char>('?');
    }
    iconv_close(cd);
    return true;
}

// The table for the code page the environment names now; rebuilt when that changes.
const Table& CurrentTable() {
    static std::mutex mutex;
    static std::string builtFor;
    static Table table{};
    static bool built = false;
    std::lock_guard<std::mutex> lock(mutex);
    const char* env = std::getenv("WKESTEL_OEM_CODEPAGE");
    std::string wanted = env && *env ? IconvName(env) : kDefaultOemCodePage;
    if (!built || wanted != builtFor) {
        if (!BuildTable(wanted, table) && !BuildTable(kDefaultOemCodePage, table)) {
            // iconv without its code page modules: ASCII passes, the rest cannot be mapped.
            for (unsigned b = 0; b < 256; ++b)
                table[b] = static_cast<unsigned char>(b < 0x80 ? b : '?');
        }
        builtFor = wanted;
        built = true;
    }
    return table;
}

}  // namespace

bool OemToCharBuffA(const char* source, char* destination, std::uint32_t length) {
    if (length == 0) return true;
    if (!source || !destination) return false;
    const Table& table = CurrentTable();
    for (std::uint32_t i = 0; i < length; ++i)
        destination[i] = static_cast<char>(table[static_cast<unsigned char>(source[i])]);
    return true;
}

}  // namespace wk
