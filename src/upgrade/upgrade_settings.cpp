#include "upgrade/upgrade_settings.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>

#include "platform/dos_paths.h"
#include "platform/profile.h"
#include "platform/profile_batch.h"
#include "platform/windows_directory.h"
#include "upgrade/kept_keys.h"
#include "upgrade/section_names.h"

namespace wk {
namespace {

struct PassFiles {
    int number;
    const char* freshName;
    const char* savedName;
    const char* statusText;
    // Only WZELKO32.INI carries a saved compensation method "CTRL"; in WZELKO.INI the
    // method always stays as installed. The difference between the passes is intended.
    bool carriesControllerMethod;
};

constexpr PassFiles kPasses[] = {
    {1, "\\WZELKO.INI", "\\WZELKO.SAV", "Upgrading WZELKO.INI. Please Wait...", false},
    {2, "\\WZELKO32.INI", "\\WZELKO32INI.SAVE", "Upgrading WZELKO32.INI. Please Wait...", true},
};

constexpr char kWorkFileName[] = "\\TEMP.TMP";

// Read sizes of the merge: one key listing of a section, and one saved value.
constexpr std::uint32_t kKeyListSize = 512;
constexpr std::uint32_t kSavedValueSize = 100;
// Only for the report: the fresh value that a carried value replaces.
constexpr std::uint32_t kInstalledValueSize = 1024;

// Asks the saved file for a key it may not have: a missing key gives this, and a saved value
// of "NONE" stays in the fresh file just as a missing key does, deliberately.
constexpr char kNoSavedValue[] = "NONE";

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

// The Windows directory as the measuring application names it ("C:\windows"). Earlier
// versions of the editor built their paths in buffers of 144 characters; a longer directory
// is taken whole here rather than cut.
std::string WindowsDirectory() {
    std::string buffer(144, '\0');
    std::uint32_t length =
        GetWindowsDirectoryA(buffer.data(), static_cast<std::uint32_t>(buffer.size()));
    if (length >= buffer.size()) {
        buffer.assign(length, '\0');
        length = GetWindowsDirectoryA(buffer.data(), static_cast<std::uint32_t>(buffer.size()));
        if (length >= buffer.size()) length = 0;
    }
    buffer.resize(length);
    return buffer;
}

std::string CannotOpen(const std::string& path, int error) {
    return "cannot open " + path + (error != 0 ? std::string(": ") + std::strerror(error) : "");
}

// Shows the progress for the whole of a pass, failures and exceptions included.
class ProgressScope {
public:
    ProgressScope(UpgradeProgress& progress, const std::string& statusText) : progress_(progress) {
        progress_.Prepare(statusText);
    }
    ~ProgressScope() { progress_.Finish(); }
    ProgressScope(const ProgressScope&) = delete;
    ProgressScope& operator=(const ProgressScope&) = delete;

private:
    UpgradeProgress& progress_;
};

class Pass {
public:
    Pass(const PassFiles& files, const std::string& windowsDirectory, UpgradePassReport& report)
        : files_(files),
          freshPath_(windowsDirectory + files.freshName),
          savedPath_(windowsDirectory + files.savedName),
          workPath_(windowsDirectory + kWorkFileName),
          report_(report) {}

    // Steps 2 to 4 of a pass; the caller has shown the progress.
    void Run() {
        if (!ListSections()) return;
        CarryValues();
        platform::DeleteFileA(workPath_.c_str());
    }

private:
    // Writes the fresh file's section names to the work file. False ends the upgrade.
    bool ListSections() {
        errno = 0;
        File fresh(platform::OpenFileA(freshPath_.c_str(), "rt"));
        if (!fresh) {
            Fail(UpgradePassStatus::FreshFileNotOpened, CannotOpen(freshPath_, errno));
            return false;
        }
        // Earlier versions of the editor did not check that the work file could be created.
        // Without it there is no list of sections to merge, so the pass ends as it does for a
        // fresh file that cannot be opened: nothing is written and the upgrade stops.
        errno = 0;
        File work(platform::OpenFileA(workPath_.c_str(), "w"));
        if (!work) {
            Fail(UpgradePassStatus::WorkFileNotCreated, CannotOpen(workPath_, errno));
            return false;
        }
        const bool listed = ListSectionNames(fresh.get(), work.get());
        const bool closed = std::fclose(work.release()) == 0;
        if (std::ferror(fresh.get())) {
            // A fresh file that cannot be read to its end (a directory of that name, a bad
            // disk) is as good as one that cannot be opened.
            Fail(UpgradePassStatus::FreshFileNotOpened, "cannot read " + freshPath_);
            platform::DeleteFileA(workPath_.c_str());
            return false;
        }
        if (!listed || !closed) {
            // A list cut short by a full disk would leave sections silently unmerged.
            Fail(UpgradePassStatus::WorkFileNotCreated, "cannot write " + workPath_);
            platform::DeleteFileA(workPath_.c_str());
            return false;
        }
        return true;
    }

    // Carries the saved values section by section, all writes of the pass in one batch: the
    // fresh file is replaced once, with the bytes the writes one by one would give.
    void CarryValues() {
        ProfileBatch batch;
        if (File work{platform::OpenFileA(workPath_.c_str(), "rt")}) {
            char line[kUpgradeLineBuffer];
            while (std::fgets(line, sizeof line, work.get()) != nullptr) {
                CarrySection(SectionNameForMerge(line));
            }
        }
        if (batch.Commit()) {
            report_.status = UpgradePassStatus::Merged;
        } else {
            Fail(UpgradePassStatus::WriteFailed, LastProfileError());
        }
    }

    void CarrySection(const std::string& section) {
        // One listing of the section's keys. A list longer than the buffer is cut, and the
        // name cut in two is looked up as it stands, like any other.
        char keys[kKeyListSize];
        const std::uint32_t length = GetPrivateProfileStringA(section.c_str(), nullptr, "", keys,
                                                              kKeyListSize, freshPath_.c_str());
        for (std::uint32_t at = 0; at < length && keys[at] != '\0';) {
            const char* key = keys + at;
            CarryKey(section, key);
            at += static_cast<std::uint32_t>(std::strlen(key)) + 1;
        }
    }

    void CarryKey(const std::string& section, const char* key) {
        UpgradeKeyEntry entry;
        entry.section = section;
        entry.key = key;
        const bool method = IsCompensationMethod(section, key);
        if (IsKeptAsInstalled(section, key) && !(method && files_.carriesControllerMethod)) {
            entry.fate = UpgradeKeyFate::KeptAsInstalled;
            report_.keys.push_back(std::move(entry));
            return;
        }
        char saved[kSavedValueSize];
        GetPrivateProfileStringA(section.c_str(), key, kNoSavedValue, saved, kSavedValueSize,
                                 savedPath_.c_str());
        entry.savedValue = saved;
        if (std::strcmp(saved, kNoSavedValue) == 0) {
            entry.fate = InSavedFile(section, key) ? UpgradeKeyFate::SavedValueNone
                                                   : UpgradeKeyFate::NotInSavedFile;
            if (entry.fate == UpgradeKeyFate::NotInSavedFile) entry.savedValue.clear();
        } else if (method && !IsControllerCompensation(saved)) {
            entry.fate = UpgradeKeyFate::MethodNotCtrl;
        } else {
            char installed[kInstalledValueSize];
            const std::uint32_t n = GetPrivateProfileStringA(
                section.c_str(), key, "", installed, kInstalledValueSize, freshPath_.c_str());
            entry.installedValue.assign(installed, n);
            WritePrivateProfileStringA(section.c_str(), key, saved, freshPath_.c_str());
            entry.fate = UpgradeKeyFate::Carried;
        }
        report_.keys.push_back(std::move(entry));
    }

    // Tells a saved "NONE" from a missing key, for the report: both read as "NONE".
    bool InSavedFile(const std::string& section, const char* key) const {
        char probe[2];
        return GetPrivateProfileStringA(section.c_str(), key, "", probe, sizeof probe,
                                        savedPath_.c_str()) != 0;
    }

    void Fail(UpgradePassStatus status, std::string problem) {
        report_.status = status;
        report_.problem = std::move(problem);
    }

    const PassFiles& files_;
    const std::string freshPath_;
    const std::string savedPath_;
    const std::string workPath_;
    UpgradePassReport& report_;
};

}  // namespace

bool UpgradeReport::Succeeded() const {
    for (const UpgradePassReport& pass : passes) {
        if (pass.status != UpgradePassStatus::Merged &&
            pass.status != UpgradePassStatus::NoSavedFile)
            return false;
    }
    return true;
}

UpgradeReport UpgradeSettingsFiles(UpgradeProgress& progress) {
    const std::string windowsDirectory = WindowsDirectory();
    UpgradeReport report;
    for (const PassFiles& files : kPasses) {
        UpgradePassReport& pass = report.passes.emplace_back();
        pass.number = files.number;
        pass.freshFile = windowsDirectory + files.freshName;
        pass.savedFile = windowsDirectory + files.savedName;
        pass.statusText = files.statusText;
    }
    for (std::size_t i = 0; i < report.passes.size(); ++i) {
        UpgradePassReport& pass = report.passes[i];
        if (!platform::FileExistsA(pass.savedFile.c_str())) {
            pass.status = UpgradePassStatus::NoSavedFile;
            continue;
        }
        {
            ProgressScope shown(progress, pass.statusText);
            Pass(kPasses[i], windowsDirectory, pass).Run();
        }
        // A file that could not be opened, read or listed ends the upgrade. A pass whose merged
        // file could not be written is reported, and the next pass still runs, as it did when
        // every key was written by itself and a failed write went unnoticed.
        if (pass.status == UpgradePassStatus::FreshFileNotOpened ||
            pass.status == UpgradePassStatus::WorkFileNotCreated)
            break;
    }
    return report;
}

}  // namespace wk
