#include "upgrade/kept_keys.h"

#include <string_view>

#include "platform/ascii_case.h"
#include "settings/controller_schema.h"
#include "settings/directory_schema.h"
#include "settings/machine_schema.h"

namespace wk {
namespace {

// The groups' own keys. The table holds for both files of the upgrade alike: the file of a
// declaration does not narrow it.
const SettingKey* const kKeptKeys[] = {
    &kSystemDir,     &kDataDir, &kPProgDir,      &kMeasDir,    &kUserDir,
    &kCmmSimulation, &kCnc,     &kPh9Simulation, &kPh9Present, &kControllerType,
    &kLegacyMethod,  // "COMPENS" "METHOD", the same section and key as kVolcompMethod
};

// The merge hands over the section name upper-cased: it must equal the declaration's section
// upper-cased. A name that is not upper case ("cmm") is not the merge's and matches nothing.
bool IsSectionOf(std::string_view upperSection, const SettingKey& key) {
    const std::string_view declared = key.Section;
    if (upperSection.size() != declared.size()) return false;
    for (std::size_t i = 0; i < declared.size(); ++i) {
        if (upperSection[i] != ToUpperAscii(declared[i])) return false;
    }
    return true;
}

}  // namespace

bool IsKeptAsInstalled(const std::string& section, const char* key) {
    for (const SettingKey* kept : kKeptKeys) {
        if (IsSectionOf(section, *kept) && EqualsIgnoringAsciiCase(key, kept->Key)) return true;
    }
    return false;
}

bool IsCompensationMethod(const std::string& section, const char* key) {
    return IsSectionOf(section, kVolcompMethod) && EqualsIgnoringAsciiCase(key, kVolcompMethod.Key);
}

bool IsControllerCompensation(const char* savedMethod) {
    return EqualsIgnoringAsciiCase(
        savedMethod, kVolcompMethodWords[static_cast<std::size_t>(kControllerVolcompMethod + 1)]);
}

}  // namespace wk
