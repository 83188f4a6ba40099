// The backup taken at the start of every whole-record save: WZELKO.INI copied to WZELKO.BAK
// (or WZELKO32.INI to WZELKO32.BAK when the first pair cannot be had).
//
// The bytes are those of the measuring application's own backups: the settings file copied
// character by character through a text-mode stream, with the end-of-file value of the last,
// failed read written too, so that a backup is one byte 0xFF longer than its source. How they
// reach the disk is the engine's: a temporary file, flushed and renamed over the old backup,
// so that an earlier backup survives a failed new one, and inside the whole-record save the
// backup is replaced together with the two settings files, or not at all (file_replace.h).

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>

#include "platform/dos_paths.h"
#include "platform/profile_files.h"
#include "platform/windows_directory.h"
#include "settings/backup_bytes.h"
#include "settings/colour_settings.h"
#include "settings/settings_files.h"

namespace wk {
namespace {

#ifdef _WIN32
void LockStream(std::FILE* file) {
    _lock_file(file);
}
void UnlockStream(std::FILE* file) {
    _unlock_file(file);
}
int GetCharUnlocked(std::FILE* file) {
    return _fgetc_nolock(file);
}
bool EndOrErrorUnlocked(std::FILE* source) {
    return std::feof(source) || std::ferror(source);
}
#else
void LockStream(std::FILE* file) {
    flockfile(file);
}
void UnlockStream(std::FILE* file) {
    funlockfile(file);
}
int GetCharUnlocked(std::FILE* file) {
    return getc_unlocked(file);
}
bool EndOrErrorUnlocked(std::FILE* source) {
    return feof_unlocked(source) || ferror_unlocked(source);
}
#endif

// What writing `c` to a text-mode stream puts in the file: on Windows a line feed becomes
// CR LF, elsewhere text mode is binary mode.
void AppendAsTextMode(std::string& bytes, int c) {
#ifdef _WIN32
    if (c == '\n') bytes.push_back('\r');
#endif
    bytes.push_back(static_cast<char>(c));
}

}  // namespace

// The copy loop whose end-of-file test comes before the read, so that the EOF of the last,
// failed read is written too (one byte 0xFF at the end).
std::optional<std::string> BackupBytes(const char* sourcePath) {
    std::FILE* source = platform::OpenFileA(sourcePath, "rt");
    if (source == nullptr) return std::nullopt;
    // One character at a time as always, through a large stream buffer and without taking
    // the stream lock per character (nothing else uses this stream): a 1 MB file then copies
    // in milliseconds.
    static constexpr std::size_t kBufferSize = 1 << 16;
    std::setvbuf(source, nullptr, _IOFBF, kBufferSize);
    std::string bytes;
    LockStream(source);
    // A read error (a disk that fails) ends the copy too: the end-of-file indicator alone
    // would never be set then.
    while (!EndOrErrorUnlocked(source)) AppendAsTextMode(bytes, GetCharUnlocked(source));
    UnlockStream(source);
    const bool readToTheEnd = !std::ferror(source);
    std::fclose(source);
    if (!readToTheEnd) return std::nullopt;
    return bytes;
}

namespace {

// "C:\windows" + "\WZELKO.INI", in the 500-character buffers of the measuring application.
std::optional<std::string> WindowsDirectoryPath(const char* name) {
    char path[500];
    const std::uint32_t n = GetWindowsDirectoryA(path, sizeof path);
    if (n == 0 || n >= sizeof path) return std::nullopt;
    std::strncat(path, name, sizeof path - std::strlen(path) - 1);
    return std::string(path);
}

enum class CopyResult { SourceNotOpened, TargetNotWritten, Copied };

CopyResult CopyForBackup(const char* sourceName, const char* targetName, std::string& problem) {
    const std::optional<std::string> sourcePath = WindowsDirectoryPath(sourceName);
    const std::optional<std::string> targetPath = WindowsDirectoryPath(targetName);
    if (!sourcePath || !targetPath) return CopyResult::SourceNotOpened;
    // The backup is touched only once its source has been read: a settings file that is
    // missing must not cost the user the backup of an earlier save.
    const std::optional<std::string> bytes = BackupBytes(sourcePath->c_str());
    if (!bytes) return CopyResult::SourceNotOpened;
    if (!platform::ReplaceWholeFile(*targetPath, *bytes)) {
        problem = platform::LastProfileFailure().Text();
        return CopyResult::TargetNotWritten;
    }
    return CopyResult::Copied;
}

}  // namespace

bool ColourSettings::BackupSettingsFiles() {
    Modified = false;
    backupProblem_.clear();
    std::string problem;
    const CopyResult first = CopyForBackup(kBackupSourcePath, kBackupTargetPath, problem);
    if (first == CopyResult::Copied) return true;
    // Either file of the first pair could not be had: the second pair is backed up instead.
    // A backup that could not be written is told even then: the user expects WZELKO.BAK.
    std::string problem32;
    const CopyResult second = CopyForBackup(kBackupSource32Path, kBackupTarget32Path, problem32);
    if (first == CopyResult::TargetNotWritten) {
        backupProblem_ = problem;
        if (second == CopyResult::Copied) backupProblem_ += " (WZELKO32.INI was backed up instead)";
    } else if (second == CopyResult::TargetNotWritten) {
        backupProblem_ = problem32;
    }
    return second == CopyResult::Copied;
}

}  // namespace wk
