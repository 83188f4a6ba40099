#pragma once
// Finding files by names the measuring application spells in its own case.
//
// The language libraries and help files are named with the language code as the settings
// file holds it ("Kes32_ITA.dll", "MarvaneIta.hlp"); on Windows the file system ignores
// case, on Linux it does not. These helpers give the Windows answer on both.

#include <filesystem>
#include <optional>
#include <string>

namespace wk::platform {

// The host path of the existing regular file that `path` names, each component matched
// first exactly and then without regard to (ASCII) case; '\' separates components as '/'
// does (except on Windows, where paths are left to the system). A relative path stays
// relative to the working directory. nullopt when there is no such file.
std::optional<std::string> FindFileIgnoringCase(const std::string& path);

// The entry of `dir` named `name`: the exact name when it exists, else the first name in
// sorted order that matches without regard to (ASCII) case, so that two files differing only
// in case always resolve the same way. nullopt when there is none.
std::optional<std::filesystem::path> FindEntryIgnoringCase(const std::filesystem::path& dir,
                                                           const std::string& name);

// The working directory, as GetCurrentDirectory gives it; empty when it cannot be read.
std::string CurrentDirectory();

}  // namespace wk::platform
