// The language libraries built from resources/strings, read as the program reads them.

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>

#include "platform/resource_library.h"

namespace wk::test {
namespace {

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

}  // namespace
}  // namespace wk::test
