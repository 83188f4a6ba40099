#include "platform/oem_conversion.h"

#include "platform/windows_api.h"

#ifndef _WIN32
#include <iconv.h>
#endif

#include <array>
#include <cstdlib>
#include <mutex>
#include <string>

#include "platform/ascii_case.h"

namespace wk {
namespace {

using Table = std::array<unsigned char, 256>;

constexpr const char* kDefaultOemCodePage = "850";

#ifdef _WIN32

constexpr UINT kAnsiCodePage = 1252;

// "850", "CP850" or "IBM850" (any case) -> 850; 0 for anything else, which Windows does not
// know by name.
UINT CodePageNumber(const std::string& name) {
    std::string digits = ToUpperAscii(name);
    for (const char* prefix : {"CP", "IBM"}) {
        const std::string p = prefix;
        if (digits.rfind(p, 0) == 0) {
            digits.erase(0, p.size());
            break;
        }
    }
    if (digits.empty() || digits.size() > 5) return 0;
    UINT number = 0;
    for (char c : digits) {
        if (c < '0' || c > '9') return 0;
        number = number * 10 + static_cast<UINT>(c - '0');
    }
    return number;
}

// The conversion of every byte by Windows itself, through UTF-16. No best-fit mapping: a
// character that Windows-1252 lacks becomes '?' instead of a look-alike ('i' for the dotless
// i of 850), so that the text is the same on every platform.
bool BuildTable(const std::string& oemName, Table& table) {
    const UINT oem = CodePageNumber(oemName);
    if (oem == 0 || !::IsValidCodePage(oem)) return false;
    CPINFO info{};
    if (!::GetCPInfo(oem, &info) || info.MaxCharSize != 1) return false;  // single-byte only
    for (unsigned b = 0; b < 256; ++b) {
        if (b < 0x80) {
            table[b] = static_cast<unsigned char>(b);
            continue;
        }
        const char in = static_cast<char>(b);
        wchar_t wide = 0;
        char out = '?';
        BOOL usedDefault = FALSE;
        const bool ok = ::MultiByteToWideChar(oem, MB_ERR_INVALID_CHARS, &in, 1, &wide, 1) == 1 &&
                        ::WideCharToMultiByte(kAnsiCodePage, WC_NO_BEST_FIT_CHARS, &wide, 1, &out,
                                              1, "?", &usedDefault) == 1 &&
                        !usedDefault;
        table[b] = ok ? static_cast<unsigned char>(out) : static_cast<unsigned char>('?');
    }
    return true;
}

#else

constexpr const char* kAnsiCodePage = "CP1252";

// "850" -> "CP850"; names are passed to iconv as they are.
std::string IconvName(const std::string& codePage) {
    bool digits = !codePage.empty();
    for (char c : codePage) digits = digits && c >= '0' && c <= '9';
    return digits ? "CP" + codePage : codePage;
}

// The conversion of every byte, from iconv one byte at a time (the OEM code pages are all
// single-byte). False when iconv does not know the code page.
bool BuildTable(const std::string& oemName, Table& table) {
    iconv_t cd = iconv_open(kAnsiCodePage, IconvName(oemName).c_str());
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

#endif

// The table for the code page the environment names now; rebuilt when that changes.
const Table& CurrentTable() {
    static std::mutex mutex;
    static std::string builtFor;
    static Table table{};
    static bool built = false;
    std::lock_guard<std::mutex> lock(mutex);
    const char* env = std::getenv("WKESTEL_OEM_CODEPAGE");
    std::string wanted = env && *env ? env : kDefaultOemCodePage;
    if (!built || wanted != builtFor) {
        if (!BuildTable(wanted, table) && !BuildTable(kDefaultOemCodePage, table)) {
            // No conversion available (iconv without its code page modules): ASCII passes,
            // the rest cannot be mapped.
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
