#include "settings/colour_settings.h"

#include <cstdio>
#include <cstring>
#include <optional>

#include "platform/dos_paths.h"
#include "platform/profile_dry_run.h"
#include "platform/text_to_number.h"
#include "platform/windows_directory.h"
#include "settings/key_profile_helpers.h"
#include "settings/settings_files.h"

// Numbers in the settings files always use '.' as decimal point. The C formatting and
// scanning below (snprintf "%lf", sscanf "%d") follow LC_NUMERIC, which the programs keep at
// "C": they never call setlocale for numbers.

namespace wk {

ColourSettings::ColourSettings() {
    metric_ = kMetric.Default;
    Modified = false;
    // A file that does not say METRIC is an inch machine: a missing key selects inches.
    metric_ = ReadProfileBool(kMetric, "METRIC");
    for (ColourEntry& entry : ColourTable) entry = ColourEntry{MakeColour(255, 255, 255), false};
    for (int i = 0; i < kColourKeyCount; ++i) {
        ColourTable[static_cast<std::size_t>(i)] =
            ColourEntry{kWindowBackgroundKeys[static_cast<std::size_t>(i)].Default, true};
    }
}

std::uint32_t ColourSettings::MakeColour(int red, int green, int blue) {
    return (static_cast<std::uint32_t>(red) & 0xFF) |
           ((static_cast<std::uint32_t>(green) & 0xFF) << 8) |
           ((static_cast<std::uint32_t>(blue) & 0xFF) << 16);
}

void ColourSettings::SetColour(int index, int red, int green, int blue) {
    if (index < 0 || index >= kColourEntryCount) return;
    ColourTable[static_cast<std::size_t>(index)].Colour = MakeColour(red, green, blue);
}

std::string ColourSettings::FormatLength(double mm, int width, int precision) {
    double value = mm;
    if (!metric_) value = static_cast<double>(mm * (1.0L / 25.4L));
    if (width == 0 && precision == 0) {
        std::snprintf(ScratchText, sizeof ScratchText, "%lf", value);
    } else {
        std::snprintf(ScratchText, sizeof ScratchText, "%*.*lf", width, precision, value);
    }
    return ScratchText;
}

double ColourSettings::ParseLength(const std::string& text) const {
    double value = StrToFloat(text);
    if (!metric_) value *= 25.4;
    return value;
}

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
bool EndOrErrorUnlocked(std::FILE* source, std::FILE* target) {
    return std::feof(source) || std::ferror(source) || std::ferror(target);
}
void PutCharUnlocked(int c, std::FILE* file) {
    _fputc_nolock(c, file);
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
bool EndOrErrorUnlocked(std::FILE* source, std::FILE* target) {
    return feof_unlocked(source) || ferror_unlocked(source) || ferror_unlocked(target);
}
void PutCharUnlocked(int c, std::FILE* file) {
    putc_unlocked(c, file);
}
#endif

// Copies one file character by character. The end-of-file test comes before the read, so
// the EOF of the last, failed read is written too: the backup ends with one byte 0xFF more
// than the source. The measuring application's backups have always looked like this.
// nullopt when either file could not be opened; else whether the copy went through.
std::optional<bool> CopyForBackup(const char* sourceName, const char* targetName) {
    char sourcePath[500];
    char targetPath[500];
    const std::uint32_t n1 = GetWindowsDirectoryA(sourcePath, sizeof sourcePath);
    const std::uint32_t n2 = GetWindowsDirectoryA(targetPath, sizeof targetPath);
    if (n1 == 0 || n1 >= sizeof sourcePath || n2 == 0 || n2 >= sizeof targetPath) {
        return std::nullopt;
    }
    std::strncat(sourcePath, sourceName, sizeof sourcePath - std::strlen(sourcePath) - 1);
    std::strncat(targetPath, targetName, sizeof targetPath - std::strlen(targetPath) - 1);

    // The backup is opened (and so emptied) only once its source has opened: a settings
    // file that is missing must not cost the user the backup of an earlier save.
    std::FILE* source = platform::OpenFileA(sourcePath, "rt");
    if (source == nullptr) return std::nullopt;
    std::FILE* target = platform::OpenFileA(targetPath, "wt");
    if (target == nullptr) {
        // The measuring application left the file of a half-opened pair open; we close it
        // so that a failed backup holds no file open.
        std::fclose(source);
        return std::nullopt;
    }
    // A read or write error (a directory in the file's place, a full disk) ends the copy
    // too: the end-of-file indicator alone would never be set then.
    // One character at a time as always, through large stream buffers and without taking the
    // stream locks per character (nothing else uses these streams): a 1 MB file then copies
    // in milliseconds.
    static constexpr std::size_t kBufferSize = 1 << 16;
    std::setvbuf(source, nullptr, _IOFBF, kBufferSize);
    std::setvbuf(target, nullptr, _IOFBF, kBufferSize);
    LockStream(source);
    LockStream(target);
    while (!EndOrErrorUnlocked(source, target)) {
        const int c = GetCharUnlocked(source);
        PutCharUnlocked(c, target);
    }
    UnlockStream(target);
    UnlockStream(source);
    const bool copied = !std::ferror(source) && !std::ferror(target);
    std::fclose(source);
    return std::fclose(target) == 0 && copied;
}

}  // namespace

bool ColourSettings::BackupSettingsFiles() {
    Modified = false;
    // A save that is only tried out, to tell what it would change, writes no file: no backup.
    if (ProfileDryRun::Active()) return false;
    if (const std::optional<bool> copied = CopyForBackup(kBackupSourcePath, kBackupTargetPath)) {
        return *copied;
    }
    return CopyForBackup(kBackupSource32Path, kBackupTarget32Path).value_or(false);
}

bool ColourSettings::Read() {
    Modified = false;
    // The components live across the loop: a value that does not scan keeps the previous
    // window's component. Before the first window they are white.
    int red = 255;
    int green = 255;
    int blue = 255;
    for (int i = 0; i < kColourEntryCount; ++i) {
        // The spare entries have no key: the scratch text still holds "DATA INPUT WINDOW",
        // so they take its colour and become listed. Kept as the measuring application has it.
        if (i < kColourKeyCount) {
            ReadProfileText(kWindowBackgroundKeys[static_cast<std::size_t>(i)], ScratchText, 80);
        }
        if (EqualsIgnoringAsciiCase(ScratchText, "NONE")) continue;  // "NONE": the default colour
        std::sscanf(ScratchText, "%d,%d,%d", &red, &green, &blue);
        ColourEntry& entry = ColourTable[static_cast<std::size_t>(i)];
        entry.Colour = MakeColour(red, green, blue);
        entry.Listed = true;
    }
    return true;
}

bool ColourSettings::Write() {
    // The result of the backup is not looked at: a write goes ahead without one.
    BackupSettingsFiles();
    for (int i = 0; i < kColourKeyCount; ++i) {
        const std::uint32_t colour = ColourTable[static_cast<std::size_t>(i)].Colour;
        std::snprintf(ScratchText, sizeof ScratchText, "%d,%d,%d", RedOf(colour), GreenOf(colour),
                      BlueOf(colour));
        WriteProfileText(kWindowBackgroundKeys[static_cast<std::size_t>(i)], ScratchText);
    }
    return true;
}

}  // namespace wk
