#include "upgrade/kept_keys.h"

#include <cstring>

#include "platform/ascii_case.h"

namespace wk {
namespace {

struct KeptKey {
    const char* section;
    const char* key;
};

constexpr KeptKey kKeptKeys[] = {
    {"WZELKO", "SYSTEM_DIR"}, {"WZELKO", "DATA_DIR"}, {"WZELKO", "PPROG_DIR"},
    {"WZELKO", "MEAS_DIR"},   {"WZELKO", "USER_DIR"}, {"CMM", "SIMULATION"},
    {"CMM", "CNC"},           {"PH9", "SIMULATION"},  {"PH9", "PH9PRESENT"},
    {"CONTROLLER", "TYPE"},   {"COMPENS", "METHOD"},
};

constexpr char kCompensSection[] = "COMPENS";
constexpr char kMethodKey[] = "METHOD";
constexpr char kControllerMethod[] = "CTRL";

}  // namespace

bool IsKeptAsInstalled(const std::string& section, const char* key) {
    for (const KeptKey& kept : kKeptKeys) {
        if (section == kept.section && EqualsIgnoringAsciiCase(key, kept.key)) return true;
    }
    return false;
}

bool IsCompensationMethod(const std::string& section, const char* key) {
    return section == kCompensSection && EqualsIgnoringAsciiCase(key, kMethodKey);
}

bool IsControllerCompensation(const char* savedMethod) {
    return EqualsIgnoringAsciiCase(savedMethod, kControllerMethod);
}

}  // namespace wk
