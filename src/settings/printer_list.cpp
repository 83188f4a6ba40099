#include "settings/printer_list.h"

#include <cstdint>
#include <cstring>

#include "platform/ascii_case.h"
#include "platform/profile.h"

namespace wk {

namespace {

// Section of the user's system profile (WIN.INI, or Windows' own store of it) that lists the
// installed printers, each key a printer and its value the driver and port.
constexpr const char* kDevicesSection = "DEVICES";
constexpr std::uint32_t kNamesSize = 512;
constexpr std::uint32_t kValueSize = 256;

}  // namespace

std::vector<std::string> ReadPrinterList() {
    char names[kNamesSize] = {};
    const std::uint32_t length = GetProfileStringA(kDevicesSection, nullptr, "", names, kNamesSize);
    std::vector<std::string> printers;
    std::uint32_t at = 0;
    while (at < length && names[at] != '\0') {
        const char* name = names + at;
        at += static_cast<std::uint32_t>(std::strlen(name)) + 1;
        char value[kValueSize] = {};
        GetProfileStringA(kDevicesSection, name, "", value, kValueSize);
        printers.push_back(std::string(name) + "," + value);
    }
    return printers;
}

int PrinterPosition(const std::vector<std::string>& printers, const std::string& printer) {
    for (std::size_t i = 0; i < printers.size(); ++i) {
        if (EqualsIgnoringAsciiCase(printers[i], printer)) return static_cast<int>(i);
    }
    return 0;
}

}  // namespace wk
