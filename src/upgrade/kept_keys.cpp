#include "upgrade/kept_keys.h"

#include <cstring>

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

char LowerAscii(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

bool EqualsIgnoringCase(const char* a, const char* b) {
    for (; *a != '\0' && *b != '\0'; ++a, ++b) {
        if (LowerAscii(*a) != LowerAscii(*b)) return false;
    }
    return *a == *b;
}

}  // namespace

bool IsKeptAsInstalled(const std::string& section, const char* key) {
    for (const KeptKey& kept : kKeptKeys) {
        if (section == kept.section && EqualsIgnoringCase(key, kept.key)) return true;
    }
    return false;
}

bool IsCompensationMethod(const std::string& section, const char* key) {
    return section == kCompensSection && EqualsIgnoringCase(key, kMethodKey);
}

bool IsControllerCompensation(const char* savedMethod) {
    return EqualsIgnoringCase(savedMethod, kControllerMethod);
}

}  // namespace wk
