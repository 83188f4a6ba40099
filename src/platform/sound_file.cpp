#include "platform/sound_file.h"

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>
#include <vector>

#include "platform/dos_paths.h"
#include "platform/file_lookup.h"
#include "platform/host_path.h"
#include "platform/windows_directory.h"

namespace wk::platform {

namespace fs = std::filesystem;

namespace {

bool IsBareName(const std::string& name) {
    return name.find_first_of("\\/:") == std::string::npos;
}

bool HasExtension(const std::string& name) {
    return name.find('.') != std::string::npos;
}

std::string Joined(const std::string& hostDir, const std::string& name) {
    return PathToAnsi(PathFromAnsi(hostDir) / PathFromAnsi(name));
}

// The host file of a bare name: the sounds location first, then the Windows directory; the
// name matches without regard to case, as it does for the measuring application.
std::string LocateBareName(const std::string& name, const std::string& location) {
    std::vector<std::string> dirs;
    if (!location.empty()) dirs.push_back(ToHostPath(location));
    dirs.push_back(WindowsDirectoryHostPath());
    std::vector<std::string> names{name};
    if (!HasExtension(name)) names.push_back(name + ".wav");
    for (const std::string& dir : dirs) {
        for (const std::string& candidate : names) {
            if (auto found = FindEntryIgnoringCase(PathFromAnsi(dir), candidate)) {
                return PathToAnsi(*found);
            }
        }
    }
    return Joined(dirs.front(), name);
}

}  // namespace

SoundFileProblem CheckWaveFile(const std::string& hostPath) {
    const fs::path path = PathFromAnsi(hostPath);
    std::error_code ec;
    const fs::file_status status = fs::status(path, ec);
    if (ec || !fs::exists(status)) return SoundFileProblem::Missing;
    if (!fs::is_regular_file(status)) return SoundFileProblem::NotAFile;
    std::ifstream in(path, std::ios::binary);
    if (!in) return SoundFileProblem::Unreadable;
    // A wave file is a RIFF file of form type "WAVE".
    std::array<char, 12> header{};
    in.read(header.data(), static_cast<std::streamsize>(header.size()));
    if (in.gcount() != static_cast<std::streamsize>(header.size()) ||
        std::memcmp(header.data(), "RIFF", 4) != 0 ||
        std::memcmp(header.data() + 8, "WAVE", 4) != 0) {
        return SoundFileProblem::NotWave;
    }
    return SoundFileProblem::None;
}

SoundFile LocateSoundFile(const std::string& stored, const std::string& location) {
    SoundFile file;
    if (stored.empty()) {
        file.problem = SoundFileProblem::NoFile;
        return file;
    }
    if (IsBareName(stored)) {
        file.hostPath = LocateBareName(stored, location);
    } else if (IsDosPath(stored)) {
        const std::optional<std::string> host = DosToHostPath(stored);
        if (!host) {
            file.problem = SoundFileProblem::NoSuchDrive;
            return file;
        }
        file.hostPath = *host;
    } else {
        file.hostPath = stored;
    }
    file.problem = CheckWaveFile(file.hostPath);
    return file;
}

}  // namespace wk::platform
