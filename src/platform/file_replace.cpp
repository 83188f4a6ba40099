#include "platform/file_replace.h"

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <set>
#include <system_error>

#include "platform/host_path.h"
#include "platform/profile_file.h"

#ifdef _WIN32
#include "platform/windows_error.h"
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace wk::platform {
namespace {

namespace fs = std::filesystem;

std::atomic<bool> replaceReadOnly{false};

constexpr std::size_t kTemporarySuffixLength = 6;
constexpr char kJournalHeader[] = "wkestel journal 1\n";
constexpr char kJournalTrailer[] = "end\n";

// Names are held as ANSI-code-page bytes and reach the file system through host_path.h, so
// that a name with an umlaut is one name on every side.
std::string DirectoryOf(const std::string& path) {
    const fs::path p = PathFromAnsi(path);
    return p.has_parent_path() ? PathToAnsi(p.parent_path()) : std::string(".");
}

std::string NameOf(const std::string& path) {
    return PathToAnsi(PathFromAnsi(path).filename());
}

std::string Join(const std::string& directory, const std::string& name) {
    return PathToAnsi(PathFromAnsi(directory) / PathFromAnsi(name));
}

std::string TemporaryPrefix(const std::string& target) {
    // Appended piece by piece: GCC 12 warns wrongly (-Wrestrict) about "." + a string.
    std::string prefix(1, '.');
    prefix += NameOf(target);
    prefix += kTemporaryInfix;
    return prefix;
}

// True for "." + a name + ".wkestel-" + six letters or digits: a temporary file of this
// program, and nothing else (a user's ".WZELKO.INI.wkestel-notes.txt" is not).
bool IsTemporaryName(const std::string& entryName) {
    const std::size_t infixLength = std::char_traits<char>::length(kTemporaryInfix);
    if (entryName.size() < 2 + infixLength + kTemporarySuffixLength || entryName[0] != '.')
        return false;
    const std::size_t infixAt = entryName.size() - kTemporarySuffixLength - infixLength;
    if (entryName.compare(infixAt, infixLength, kTemporaryInfix) != 0) return false;
    return std::all_of(entryName.end() - static_cast<std::ptrdiff_t>(kTemporarySuffixLength),
                       entryName.end(),
                       [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; });
}

// The same, for `target` only.
bool IsTemporaryNameOf(const std::string& entryName, const std::string& target) {
    const std::string prefix = TemporaryPrefix(target);
    if (entryName.size() != prefix.size() + kTemporarySuffixLength) return false;
    if (entryName.compare(0, prefix.size(), prefix) != 0) return false;
    return std::all_of(entryName.begin() + static_cast<std::ptrdiff_t>(prefix.size()),
                       entryName.end(),
                       [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; });
}

// The file a write replaces: a symbolic link is followed to its target, so that the link
// stays a link. A loop of links is an error.
bool FollowLinks(const std::string& path, std::string& target, FileError& error) {
    fs::path current = PathFromAnsi(path);
    std::error_code ec;
    for (int hops = 0; hops < 40; ++hops) {
        if (!fs::is_symlink(fs::symlink_status(current, ec))) {
            target = PathToAnsi(current);
            return true;
        }
        fs::path next = fs::read_symlink(current, ec);
        if (ec) {
            error = FileError{path, ec.message()};
            return false;
        }
        current = next.is_relative() ? current.parent_path() / next : next;
    }
    error = ErrnoError(path, ELOOP);
    return false;
}

void RemoveFile(const std::string& path);

// This program's temporary files in `directory` that interrupted saves left: names of the
// pattern only, regular files, and only those older than the running save, so that a
// temporary file another writer is filling right now is never among them.
std::vector<std::string> LeftoverTemporaries(const std::string& directory,
                                             fs::file_time_type before) {
    std::vector<std::string> leftovers;
    std::error_code ec;
    for (fs::directory_iterator it(PathFromAnsi(directory), ec), end; !ec && it != end;
         it.increment(ec)) {
        if (!IsTemporaryName(PathToAnsi(it->path().filename()))) continue;
        std::error_code entryEc;
        if (!it->is_regular_file(entryEc) || it->is_symlink(entryEc)) continue;
        const fs::file_time_type written = fs::last_write_time(it->path(), entryEc);
        if (entryEc || written >= before) continue;
        leftovers.push_back(PathToAnsi(it->path()));
    }
    return leftovers;
}

// ---- the system calls, one small block per system -------------------------------------------

#ifndef _WIN32

FileError ReadOnlyRefusal(const std::string& path, const std::string& target) {
    struct stat st {};
    if (::stat(target.c_str(), &st) != 0) return {};
    char mode[8];
    std::snprintf(mode, sizeof mode, "%04o", static_cast<unsigned>(st.st_mode & 07777));
    // No write permission for anybody is the read-only mark a user sets (chmod a-w); it binds
    // the administrator too, who could otherwise write anything.
    if ((st.st_mode & 0222) == 0)
        return FileError{
            path, std::string("the file is read-only (mode ") + mode + "); nothing was written"};
    if (::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0 && errno == EACCES)
        return FileError{path, std::string("this user may not write the file (mode ") + mode +
                                   ", owner " + std::to_string(st.st_uid) +
                                   "); nothing was written"};
    return {};
}

// The mode, owner and group a new file takes: the original's, or for a new file what any
// program here would give it.
struct Ownership {
    bool existed = false;
    mode_t mode = 0;
    uid_t uid = 0;
    gid_t gid = 0;
};

Ownership OwnershipOf(const std::string& target) {
    Ownership o;
    struct stat st {};
    if (::stat(target.c_str(), &st) == 0) {
        o.existed = true;
        o.mode = st.st_mode & 07777;
        o.uid = st.st_uid;
        o.gid = st.st_gid;
        return o;
    }
    const mode_t mask = ::umask(0);
    ::umask(mask);
    o.mode = 0666 & ~mask;
    return o;
}

bool WriteAllBytes(int fd, const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        done += static_cast<std::size_t>(n);
    }
    return true;
}

// Writes `bytes` to a new temporary file beside `target`, flushed to the disk, with the
// original's mode and owner. `temp` names it on success.
bool WriteTemporary(const std::string& path, const std::string& target, const std::string& bytes,
                    std::string& temp, FileError& error) {
    const Ownership owner = OwnershipOf(target);
    temp = Join(DirectoryOf(target), TemporaryPrefix(target) + "XXXXXX");
    const int fd = ::mkostemp(temp.data(), O_CLOEXEC);
    if (fd < 0) {
        error = ErrnoError(path, errno);
        temp.clear();
        return false;
    }
    const auto fail = [&](int errorNumber) {
        ::close(fd);
        ::unlink(temp.c_str());
        temp.clear();
        error = ErrnoError(path, errorNumber);
        return false;
    };
    if (!WriteAllBytes(fd, bytes)) return fail(errno);
    if (::fchmod(fd, owner.mode) != 0) return fail(errno);
    if (owner.existed && ::fchown(fd, owner.uid, owner.gid) != 0) {
        // Not the owner: the file becomes this user's, as any replace by another user makes
        // it; its group is kept where this user belongs to it.
        [[maybe_unused]] const int ignored = ::fchown(fd, static_cast<uid_t>(-1), owner.gid);
    }
    if (::fsync(fd) != 0) return fail(errno);
    if (::close(fd) != 0) {
        const int closeError = errno;
        ::unlink(temp.c_str());
        temp.clear();
        error = ErrnoError(path, closeError);
        return false;
    }
    return true;
}

// Renames `from` over `to`; false with the system's reason otherwise.
bool RenameOver(const std::string& from, const std::string& to, std::string& reason) {
    if (::rename(from.c_str(), to.c_str()) == 0) return true;
    reason = std::strerror(errno);
    return false;
}

// Writes the journal in its place, flushed. A link planted under its name is not followed.
bool WriteJournalFile(const std::string& path, const std::string& bytes, FileError& error) {
    const int fd =
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd < 0) {
        error = ErrnoError(path, errno);
        return false;
    }
    if (!WriteAllBytes(fd, bytes) || ::fsync(fd) != 0) {
        error = ErrnoError(path, errno);
        ::close(fd);
        return false;
    }
    if (::close(fd) != 0) {
        error = ErrnoError(path, errno);
        return false;
    }
    return true;
}

// A rename is on the disk once its directory is flushed.
void SyncDirectory(const std::string& directory) {
    const int fd = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

void RemoveFile(const std::string& path) {
    ::unlink(path.c_str());
}

bool EntryExists(const std::string& path) {
    struct stat st {};
    return ::lstat(path.c_str(), &st) == 0;
}

#else  // _WIN32

// The marks a file carries on Windows that a replacement keeps: read-only, hidden, system and
// archive, so that a file the user or an installer marked stays marked.
constexpr DWORD kKeptAttributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                                  FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;

FileError ReadOnlyRefusal(const std::string& path, const std::string& target) {
    const DWORD attributes = ::GetFileAttributesW(PathFromAnsi(target).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        return FileError{path, "the file is read-only; nothing was written"};
    return {};
}

// Writes `bytes` to a new temporary file beside `target`, flushed to the disk, with the
// original's attributes. `temp` names it on success. The file's security descriptor is the
// one the directory gives a new file (an explicit access list on the original is not copied).
bool WriteTemporary(const std::string& path, const std::string& target, const std::string& bytes,
                    std::string& temp, FileError& error) {
    const DWORD original = ::GetFileAttributesW(PathFromAnsi(target).c_str());
    const DWORD kept = original == INVALID_FILE_ATTRIBUTES ? 0 : original & kKeptAttributes;
    static std::mt19937 random{std::random_device{}()};
    static constexpr char kLetters[] =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    HANDLE file = INVALID_HANDLE_VALUE;
    for (int attempt = 0; attempt < 100 && file == INVALID_HANDLE_VALUE; ++attempt) {
        std::string suffix;
        for (std::size_t i = 0; i < kTemporarySuffixLength; ++i)
            suffix += kLetters[random() % (sizeof kLetters - 1)];
        temp = Join(DirectoryOf(target), TemporaryPrefix(target) + suffix);
        file = ::CreateFileW(PathFromAnsi(temp).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                             FILE_ATTRIBUTE_HIDDEN, nullptr);
        if (file == INVALID_HANDLE_VALUE && ::GetLastError() != ERROR_FILE_EXISTS) break;
    }
    if (file == INVALID_HANDLE_VALUE) {
        error = FileError{path, WindowsErrorText(::GetLastError())};
        temp.clear();
        return false;
    }
    bool ok = true;
    std::size_t done = 0;
    while (ok && done < bytes.size()) {
        DWORD n = 0;
        const DWORD want = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - done, 1u << 30));
        ok = ::WriteFile(file, bytes.data() + done, want, &n, nullptr) != 0;
        done += n;
    }
    ok = ok && ::FlushFileBuffers(file) != 0;
    DWORD code = ok ? 0 : ::GetLastError();
    ::CloseHandle(file);
    // The temporary file was hidden while it was written; the file it becomes has the
    // original's marks (none for a new file).
    if (ok && !::SetFileAttributesW(PathFromAnsi(temp).c_str(),
                                    kept != 0 ? kept : FILE_ATTRIBUTE_NORMAL)) {
        ok = false;
        code = ::GetLastError();
    }
    if (!ok) {
        RemoveFile(temp);
        temp.clear();
        error = FileError{path, WindowsErrorText(code)};
        return false;
    }
    return true;
}

// Renames `from` over `to`, written through to the disk. Windows refuses to rename over a
// read-only file; one is only reached here when the user allowed it (--force) or when a
// journal finishes such a save, so the mark is taken off for the rename, and the replacement
// carries it again (WriteTemporary gave it the original's marks). False with the system's
// reason otherwise: a file another program holds open without sharing it is "being used by
// another process".
bool RenameOver(const std::string& from, const std::string& to, std::string& reason) {
    const std::filesystem::path source = PathFromAnsi(from);
    const std::filesystem::path target = PathFromAnsi(to);
    constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (::MoveFileExW(source.c_str(), target.c_str(), kFlags)) return true;
    DWORD code = ::GetLastError();
    const DWORD attributes = ::GetFileAttributesW(target.c_str());
    if (code == ERROR_ACCESS_DENIED && attributes != INVALID_FILE_ATTRIBUTES &&
        (attributes & FILE_ATTRIBUTE_READONLY) != 0 &&
        ::SetFileAttributesW(target.c_str(), attributes & ~FILE_ATTRIBUTE_READONLY)) {
        if (::MoveFileExW(source.c_str(), target.c_str(), kFlags)) return true;
        code = ::GetLastError();
        ::SetFileAttributesW(target.c_str(), attributes);
    }
    reason = WindowsErrorText(code);
    return false;
}

// Writes the journal in its place, flushed (its name with it: NTFS logs the creation, and
// flushing the file flushes that log).
bool WriteJournalFile(const std::string& path, const std::string& bytes, FileError& error) {
    HANDLE file = ::CreateFileW(PathFromAnsi(path).c_str(), GENERIC_WRITE, 0, nullptr,
                                CREATE_ALWAYS, FILE_ATTRIBUTE_HIDDEN, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        error = FileError{path, WindowsErrorText(::GetLastError())};
        return false;
    }
    DWORD written = 0;
    const bool ok =
        ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != 0 &&
        written == bytes.size() && ::FlushFileBuffers(file) != 0;
    const DWORD code = ok ? 0 : ::GetLastError();
    ::CloseHandle(file);
    if (!ok) error = FileError{path, WindowsErrorText(code)};
    return ok;
}

// MOVEFILE_WRITE_THROUGH has flushed the rename already.
void SyncDirectory(const std::string&) {}

// A temporary file may carry the read-only mark of the file it was to replace; Windows
// deletes no read-only file, so the mark goes first.
void RemoveFile(const std::string& path) {
    const std::filesystem::path file = PathFromAnsi(path);
    if (!::DeleteFileW(file.c_str()) && ::GetLastError() == ERROR_ACCESS_DENIED) {
        ::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
        ::DeleteFileW(file.c_str());
    }
}

bool EntryExists(const std::string& path) {
    return ::GetFileAttributesW(PathFromAnsi(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

#endif

// ---- the journal ------------------------------------------------------------------------------

struct JournalEntry {
    std::string temp;
    std::string target;
};

std::string JournalPath(const std::string& directory) {
    return Join(directory, kJournalFileName);
}

// Names may hold any byte but NUL, so each is ended by a NUL.
std::string JournalBytes(const std::vector<JournalEntry>& entries) {
    std::string bytes = kJournalHeader;
    for (const JournalEntry& entry : entries) {
        bytes += entry.temp;
        bytes.push_back('\0');
        bytes += entry.target;
        bytes.push_back('\0');
    }
    bytes += kJournalTrailer;
    return bytes;
}

// The entries of a complete journal whose every temporary file is a temporary file of this
// program beside the file it replaces; false for anything else, so that a damaged or planted
// journal renames nothing.
bool ParseJournal(const std::string& bytes, std::vector<JournalEntry>& entries) {
    const std::string header = kJournalHeader;
    const std::string trailer = kJournalTrailer;
    if (bytes.size() < header.size() + trailer.size()) return false;
    if (bytes.compare(0, header.size(), header) != 0) return false;
    if (bytes.compare(bytes.size() - trailer.size(), trailer.size(), trailer) != 0) return false;
    std::size_t at = header.size();
    const std::size_t end = bytes.size() - trailer.size();
    while (at < end) {
        const std::size_t tempEnd = bytes.find('\0', at);
        if (tempEnd == std::string::npos || tempEnd >= end) return false;
        const std::size_t targetEnd = bytes.find('\0', tempEnd + 1);
        if (targetEnd == std::string::npos || targetEnd >= end) return false;
        JournalEntry entry{bytes.substr(at, tempEnd - at),
                           bytes.substr(tempEnd + 1, targetEnd - tempEnd - 1)};
        if (DirectoryOf(entry.temp) != DirectoryOf(entry.target) ||
            !IsTemporaryNameOf(NameOf(entry.temp), entry.target))
            return false;
        entries.push_back(std::move(entry));
        at = targetEnd + 1;
    }
    return true;
}

// Renames each temporary file that is still there over its file, in order; a temporary
// file that is gone was renamed before. Reports the first failure and goes on with the rest.
bool RenameEntries(const std::vector<JournalEntry>& entries, FileError& error) {
    bool ok = true;
    std::set<std::string> directories;
    for (const JournalEntry& entry : entries) {
        directories.insert(DirectoryOf(entry.target));
        if (!EntryExists(entry.temp)) continue;
        std::string reason;
        if (!RenameOver(entry.temp, entry.target, reason)) {
            if (ok) error = FileError{entry.target, reason};
            ok = false;
            RemoveFile(entry.temp);
        }
    }
    for (const std::string& directory : directories) SyncDirectory(directory);
    return ok;
}

}  // namespace

void SetReplaceReadOnlyFiles(bool allowed) {
    replaceReadOnly.store(allowed);
}

bool ReplaceReadOnlyFiles() {
    return replaceReadOnly.load();
}

FileError ReplaceRefusal(const std::string& path) {
    std::string target;
    FileError error;
    if (!FollowLinks(path, target, error)) return error;
    const FileStamp stamp = StatFile(target);
    if (stamp.kind == FileKind::Missing) return {};
    if (stamp.kind != FileKind::Regular) return FileError{path, DescribeUnusableFile(stamp)};
    if (ReplaceReadOnlyFiles()) return {};
    return ReadOnlyRefusal(path, target);
}

FileReplacement::FileReplacement(std::string journalDirectory)
    : journalDirectory_(std::move(journalDirectory)), start_(std::chrono::system_clock::now()) {}

FileReplacement::~FileReplacement() {
    Discard();
}

bool FileReplacement::Stage(const std::string& path, const std::string& bytes, FileError& error) {
    if (FileError refusal = ReplaceRefusal(path); !refusal.Empty()) {
        error = std::move(refusal);
        return false;
    }
    Staged staged{path, {}, {}};
    if (!FollowLinks(path, staged.target, error)) return false;
    // Leftovers of interrupted saves of this file go first; a journal still pending would
    // name some of them, so then they stay for its completion. The directory is listed once
    // for all the files of this replacement.
    if (!JournalPending(journalDirectory_)) {
        const std::string directory = DirectoryOf(staged.target);
        auto listed = leftovers_.find(directory);
        if (listed == leftovers_.end()) {
            const auto before =
                fs::file_time_type::clock::now() - (std::chrono::system_clock::now() - start_);
            listed = leftovers_.emplace(directory, LeftoverTemporaries(directory, before)).first;
        }
        std::vector<std::string>& leftovers = listed->second;
        for (auto it = leftovers.begin(); it != leftovers.end();) {
            if (IsTemporaryNameOf(NameOf(*it), staged.target)) {
                RemoveFile(*it);
                it = leftovers.erase(it);
            } else {
                ++it;
            }
        }
    }
    if (!WriteTemporary(path, staged.target, bytes, staged.temp, error)) return false;
    for (Staged& earlier : staged_) {
        if (earlier.target == staged.target) {
            RemoveFile(earlier.temp);
            earlier = std::move(staged);
            return true;
        }
    }
    staged_.push_back(std::move(staged));
    return true;
}

void FileReplacement::Discard() {
    for (const Staged& staged : staged_) RemoveFile(staged.temp);
    staged_.clear();
}

bool FileReplacement::Commit(FileError& error) {
    if (staged_.empty()) return true;
    if (staged_.size() == 1) {
        const Staged staged = staged_.front();
        staged_.clear();
        std::string reason;
        if (!RenameOver(staged.temp, staged.target, reason)) {
            RemoveFile(staged.temp);
            error = FileError{staged.path, reason};
            return false;
        }
        SyncDirectory(DirectoryOf(staged.target));
        return true;
    }

    std::vector<JournalEntry> entries;
    std::set<std::string> temporaryDirectories{journalDirectory_};
    for (const Staged& staged : staged_) {
        entries.push_back(JournalEntry{staged.temp, staged.target});
        temporaryDirectories.insert(DirectoryOf(staged.temp));
    }
    // The journal is written in its place, not renamed there: one cut short by a kill or a
    // power failure lacks its end, and a journal without its end renames nothing
    // (ParseJournal), so it needs no temporary file of its own. Flushing its directory puts its
    // name on the disk, and with it the temporary files' names, which it must find there.
    const std::string journal = JournalPath(journalDirectory_);
    if (!WriteJournalFile(journal, JournalBytes(entries), error)) {
        RemoveFile(journal);
        Discard();
        return false;
    }
    for (const std::string& directory : temporaryDirectories) SyncDirectory(directory);
    // From here the new set is decided: a kill leaves the journal, which the next access
    // completes.
    std::string reason;
    const Staged& first = staged_.front();
    if (!RenameOver(first.temp, first.target, reason)) {
        // Nothing is replaced yet, so the old set can still stand whole.
        error = FileError{first.path, reason};
        RemoveFile(journal);
        SyncDirectory(journalDirectory_);
        Discard();
        return false;
    }
    bool ok = true;
    std::set<std::string> directories{DirectoryOf(first.target)};
    for (std::size_t i = 1; i < staged_.size(); ++i) {
        const Staged& staged = staged_[i];
        directories.insert(DirectoryOf(staged.target));
        if (!RenameOver(staged.temp, staged.target, reason)) {
            // Under the lock only an outside hand (a directory put in the file's place) gets
            // here; the files already replaced stay, and the failure is reported.
            if (ok) {
                error = FileError{staged.path, reason};
                error.reason += " (the files before it in this save were replaced)";
            }
            ok = false;
            RemoveFile(staged.temp);
        }
    }
    staged_.clear();
    // The renames reach the disk before the journal goes: after a power failure the journal
    // is there to redo them, or they are all done. Its removal need not be flushed: a journal
    // that comes back finds its temporary files gone and renames nothing.
    for (const std::string& directory : directories) SyncDirectory(directory);
    RemoveFile(journal);
    return ok;
}

bool JournalPending(const std::string& directory) {
    return EntryExists(JournalPath(directory));
}

bool CompleteInterruptedCommit(const std::string& directory, FileError& error) {
    const std::string journal = JournalPath(directory);
    if (!EntryExists(journal)) return true;
    std::string bytes;
    FileStamp stamp;
    constexpr std::size_t kJournalLimit = 1 << 20;
    if (!ReadWholeFile(journal, kJournalLimit, bytes, stamp, error)) return false;
    std::vector<JournalEntry> entries;
    bool ok = true;
    if (ParseJournal(bytes, entries)) ok = RenameEntries(entries, error);
    RemoveFile(journal);
    SyncDirectory(directory);
    return ok;
}

}  // namespace wk::platform
