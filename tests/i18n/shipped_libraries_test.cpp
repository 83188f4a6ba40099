// The language libraries built from resources/strings, read as the program reads them.

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "i18n/own_strings.h"
#include "platform/resource_library.h"

namespace wk::test {
namespace {

// The names of the libraries built from resources/strings.
std::vector<std::string> ShippedLibraries() {
    std::istringstream names(WKESTEL_SHIPPED_LIBRARIES);
    std::vector<std::string> libraries;
    std::string name;
    while (std::getline(names, name, ',')) {
        if (!name.empty()) libraries.push_back(name);
    }
    return libraries;
}

// A shipped library, loaded for a test's life.
class Shipped {
public:
    explicit Shipped(const std::string& name)
        : module_(
              LoadLibraryA((std::filesystem::path(WKESTEL_PROGRAM_DIR) / name).string().c_str())) {}
    ~Shipped() { FreeLibrary(module_); }
    Shipped(const Shipped&) = delete;
    Shipped& operator=(const Shipped&) = delete;

    ModuleHandle Module() const { return module_; }
    // String `id` as the library holds it (ANSI), empty when it lacks it.
    std::string Text(int id) const {
        char text[256] = {};
        LoadStringA(module_, static_cast<unsigned>(id), text, sizeof text);
        return text;
    }

private:
    ModuleHandle module_;
};

TEST(ShippedLibraries, EveryLibraryBuiltBesideTheProgramsLoadsAndHasTheWindowCaption) {
    std::istringstream names(WKESTEL_SHIPPED_LIBRARIES);
    std::string name;
    int count = 0;
    while (std::getline(names, name, ',')) {
        if (name.empty()) continue;
        ++count;
        std::filesystem::path path = std::filesystem::path(WKESTEL_PROGRAM_DIR) / name;
        ModuleHandle module = LoadLibraryA(path.string().c_str());
        ASSERT_NE(module, nullptr) << path;
        char caption[256];
        EXPECT_GT(LoadStringA(module, 1, caption, sizeof caption), 0) << name;
        EXPECT_GT(platform::StringIds(module).size(), 1u) << name;
        FreeLibrary(module);
    }
    // Without string tables in resources/strings there is nothing to check, and nothing built.
    if (count == 0) GTEST_SKIP() << "no string tables in resources/strings";
}

TEST(ShippedLibraries, EveryLibraryHasTheStringIdsOfTheEnglishOne) {
    const Shipped english("Kes32_eng.dll");
    ASSERT_NE(english.Module(), nullptr);
    const std::vector<unsigned> ids = platform::StringIds(english.Module());
    for (const std::string& name : ShippedLibraries()) {
        const Shipped library(name);
        ASSERT_NE(library.Module(), nullptr) << name;
        EXPECT_EQ(platform::StringIds(library.Module()), ids) << name;
    }
}

TEST(ShippedLibraries, TheEnglishLibraryHoldsTheFallBackTextOfEveryOwnString) {
    const Shipped english("Kes32_eng.dll");
    ASSERT_NE(english.Module(), nullptr);
    for (const OwnString& string : kOwnStrings) {
        EXPECT_EQ(english.Text(string.Id), string.English) << string.Id;
    }
}

TEST(ShippedLibraries, EveryStringOfTheProgramsOwnRangeIsKnownToTheProgram) {
    // A string from 1000 on that the program does not list would have no English fall-back.
    std::vector<unsigned> own;
    for (const OwnString& string : kOwnStrings) own.push_back(static_cast<unsigned>(string.Id));
    const Shipped english("Kes32_eng.dll");
    std::vector<unsigned> ranged;
    for (unsigned id : platform::StringIds(english.Module())) {
        if (id >= 1000) ranged.push_back(id);
    }
    EXPECT_EQ(ranged, own);
}

TEST(ShippedLibraries, EveryTranslationOfAnOwnStringKeepsItsPlaceholdersAndFitsTheFetch) {
    for (const std::string& name : ShippedLibraries()) {
        const Shipped library(name);
        for (const OwnString& string : kOwnStrings) {
            const std::string text = library.Text(string.Id);
            EXPECT_FALSE(text.empty()) << name << ' ' << string.Id;
            EXPECT_LE(text.size(), 199u) << name << ' ' << string.Id;
            EXPECT_EQ(PlaceholderCount(text), PlaceholderCount(string.English))
                << name << ' ' << string.Id;
        }
    }
}

}  // namespace
}  // namespace wk::test
