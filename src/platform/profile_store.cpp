#include "platform/profile_store.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "platform/ascii_case.h"
#include "platform/dos_paths.h"
#include "platform/file_lookup.h"
#include "platform/host_path.h"
#include "platform/windows_directory.h"

namespace wk::platform {
namespace fs = std::filesystem;

namespace {

std::string DirectoryOf(const std::string& path) {
    const fs::path p(path);
    return p.has_parent_path() ? p.parent_path().string() : std::string(".");
}

// Completes a commit that a killed writer left unfinished in `directory`, for a read that
// finds its journal: the read must see the whole new set, not half of it. A read cannot
// report a failure; the next write in the directory tries again and reports it.
void CompleteCommitForRead(const std::string& directory) {
    if (!JournalPending(directory)) return;
    DirectoryLock lock;
    FileError error;
    if (!lock.Acquire(directory, error)) return;
    CompleteInterruptedCommit(directory, error);
}

// The same for a writer, which holds the directory's lock and must not go on when an
// earlier save cannot be completed: its temporary files would be in the way.
bool CompleteCommitForWrite(const std::string& directory, FileError& error) {
    if (!JournalPending(directory)) return true;
    if (CompleteInterruptedCommit(directory, error)) return true;
    error.reason = "an interrupted save could not be completed: " + error.reason;
    return false;
}

}  // namespace

ProfileStore& ProfileStore::Instance() {
    static ProfileStore store;
    return store;
}

void ProfileStore::DeclareNewFileSpelling(const std::string& name) {
    if (std::find(newFileSpellings_.begin(), newFileSpellings_.end(), name) ==
        newFileSpellings_.end())
        newFileSpellings_.push_back(name);
    resolvedNames_.clear();
}

std::string ProfileStore::ResolveBareName(const std::string& windowsDirectory,
                                          const std::string& name) {
    const std::string exact = windowsDirectory + "/" + name;
    if (StatFile(exact).kind != FileKind::Missing) return exact;
#ifndef _WIN32
    // The measuring application names its files in any case ("Wzelko.ini" for WZELKO.INI);
    // on a case-sensitive file system the existing file is found by comparing names.
    if (auto entry = FindEntryIgnoringCase(windowsDirectory, name)) return entry->string();
#endif
    for (const std::string& spelling : newFileSpellings_) {
        if (EqualsIgnoringAsciiCase(spelling, name)) return windowsDirectory + "/" + spelling;
    }
    return exact;  // a new file is created under the name given
}

std::string ProfileStore::ResolveName(const char* fileName, bool& fromCache) {
    fromCache = false;
    const std::string name = fileName != nullptr ? fileName : "WIN.INI";
    if (fileName != nullptr &&
        (name.find('\\') != std::string::npos || name.find('/') != std::string::npos)) {
        // A path: a drive path through the prefix, anything else from the working directory.
#ifdef _WIN32
        return name;
#else
        if (name.size() >= 2 && std::isalpha(static_cast<unsigned char>(name[0])) &&
            name[1] == ':') {
            if (auto host = DosToHostPath(name)) return *host;
        }
        std::string slashed = name;
        for (char& c : slashed) {
            if (c == '\\') c = '/';
        }
        return slashed;
#endif
    }
    const std::string windowsDirectory = WindowsDirectoryHostPath();
    if (name.empty()) return windowsDirectory;  // the directory itself: reads give defaults
    std::string key = windowsDirectory;
    key.push_back('\0');
    key += name;
    if (auto it = resolvedNames_.find(key); it != resolvedNames_.end()) {
        fromCache = true;
        return it->second;
    }
    std::string path = ResolveBareName(windowsDirectory, name);
    resolvedNames_.emplace(std::move(key), path);
    return path;
}

ProfileStore::CachedFile& ProfileStore::Current(const std::string& path) {
    CachedFile& file = files_[path];
    if (batchDepth_ > 0 && file.checkedInBatch == batchNumber_) return file;
    FileStamp stamp = StatFile(path);
    const bool known = file.document != nullptr || !file.readError.Empty() || file.stamp.exists;
    // A file that could not be read is tried again on every call (its permissions may have
    // been fixed without any change that the stamp shows).
    if (!known || !file.readError.Empty() || !(stamp == file.stamp) ||
        (!stamp.exists && file.document)) {
        // The file is new to us or changed: a save that a kill interrupted may be what
        // changed it, and the rest of that save is completed before the file is read.
        if (JournalPending(DirectoryOf(path))) {
            CompleteCommitForRead(DirectoryOf(path));
            stamp = StatFile(path);
        }
        file.document.reset();
        file.readError.Clear();
        file.stamp = stamp;
        if (stamp.kind == FileKind::Regular) {
            std::string bytes;
            FileStamp readStamp;
            FileError error;
            if (!ReadWholeFile(path, ProfileDocument::kMaxFileBytes, bytes, readStamp, error)) {
                file.readError = error;
                if (readStamp.exists) file.stamp = readStamp;
            } else {
                file.document = std::make_unique<ProfileDocument>(std::move(bytes));
                file.stamp = readStamp;
            }
        } else if (stamp.kind == FileKind::NotRegular || stamp.kind == FileKind::Unusable) {
            // Never opened: a pipe would block, a device would never end.
            file.readError = FileError{path, DescribeUnusableFile(stamp)};
        }
    }
    if (batchDepth_ > 0) file.checkedInBatch = batchNumber_;
    return file;
}

ProfileStore::CachedFile& ProfileStore::CurrentFor(const char* fileName, std::string& path) {
    bool fromCache = false;
    path = ResolveName(fileName, fromCache);
    CachedFile* file = &Current(path);
    if (fromCache && !file->stamp.exists && !file->dirty && !file->mustCreate) {
        // The file the name was matched to is gone: match the name again.
        bool unused = false;
        std::string key = WindowsDirectoryHostPath();
        key.push_back('\0');
        key += fileName != nullptr ? fileName : "WIN.INI";
        resolvedNames_.erase(key);
        const std::string again = ResolveName(fileName, unused);
        if (again != path) {
            path = again;
            file = &Current(path);
        }
    }
    return *file;
}

const ProfileDocument* ProfileStore::Read(const char* fileName) {
    std::string path;
    return CurrentFor(fileName, path).document.get();
}

ProfileStore::FileInfo ProfileStore::Inspect(const char* fileName) {
    FileInfo info;
    const CachedFile& file = CurrentFor(fileName, info.path);
    info.stamp = file.stamp;
    info.readError = file.readError;
    info.readable = file.document != nullptr;
    return info;
}

// Outside a batch the lock is held for this one write (`local`); in a batch it is held until
// the batch ends.
bool ProfileStore::LockForWrite(const std::string& directory, DirectoryLock& local,
                                FileError& error) {
    if (batchDepth_ > 0) return LockDirectoryForBatch(directory, error);
    if (!local.Acquire(directory, error)) return false;
    return CompleteCommitForWrite(directory, error);
}

bool ProfileStore::LockDirectoryForBatch(const std::string& directory, FileError& error) {
    // A dry run writes nothing, so it keeps no other writer waiting.
    if (batchMode_ == CommitMode::DryRun) return true;
    const std::string key = fs::path(directory).lexically_normal().string();
    if (batchLocks_.count(key) != 0) return true;
    DirectoryLock lock;
    if (!lock.Acquire(directory, error)) return false;
    if (!CompleteCommitForWrite(directory, error)) return false;
    batchLocks_.emplace(key, std::move(lock));
    if (batchJournalDirectory_.empty()) batchJournalDirectory_ = directory;
    // What was read there before the lock was held may have been changed by another writer
    // since: look again. (No file there has writes pending: writing needs this lock.)
    for (auto& [path, file] : files_) {
        if (!file.dirty && !file.mustCreate &&
            fs::path(DirectoryOf(path)).lexically_normal().string() == key)
            file.checkedInBatch = 0;
    }
    return true;
}

bool ProfileStore::Save(const std::string& path, CachedFile& file, FileError& error) {
    FileReplacement replacement(DirectoryOf(path));
    if (!replacement.Stage(path, file.document->Serialize(), error) || !replacement.Commit(error)) {
        files_.erase(path);  // what is on disk is what counts now
        return false;
    }
    file.dirty = false;
    file.mustCreate = false;
    file.stamp = StatFile(path);
    return true;
}

bool ProfileStore::Write(const char* fileName, const std::function<bool(ProfileDocument&)>& edit,
                         FileError& error) {
    bool unused = false;
    DirectoryLock lock;
    if (!LockForWrite(DirectoryOf(ResolveName(fileName, unused)), lock, error)) return false;
    std::string path;
    CachedFile& file = CurrentFor(fileName, path);
    if (file.stamp.isDirectory) {
        error = ErrnoError(path, EISDIR);
        return false;
    }
    if (!file.readError.Empty()) {
        // Never replace a file whose content could not be read: it would be lost.
        error = file.readError;
        return false;
    }
    bool created = false;
    if (!file.document) {
        std::error_code ec;
        const fs::path parent = PathFromAnsi(path).parent_path();
        if (!parent.empty() && !fs::is_directory(parent, ec)) {
            error = ErrnoError(path, ENOENT);  // a missing directory is not created
            return false;
        }
        file.document = std::make_unique<ProfileDocument>(std::string());
        created = true;
    }
    const bool changed = edit(*file.document);
    if (batchDepth_ > 0) {
        file.dirty = file.dirty || changed;
        file.mustCreate = file.mustCreate || created;
        file.checkedInBatch = batchNumber_;
        error.Clear();
        return true;
    }
    if (!changed && !created) {
        error.Clear();
        return true;
    }
    return Save(path, file, error);
}

FileReplacement& ProfileStore::BatchReplacement(const std::string& directoryHint) {
    if (!batchReplacement_) {
        batchReplacement_ = std::make_unique<FileReplacement>(
            batchJournalDirectory_.empty() ? directoryHint : batchJournalDirectory_);
    }
    return *batchReplacement_;
}

bool ProfileStore::StageFile(const std::string& hostPath, const std::string& bytes,
                             FileError& error) {
    const std::string directory = DirectoryOf(hostPath);
    if (batchDepth_ > 0 && batchMode_ == CommitMode::DryRun) {
        error.Clear();  // a dry run replaces no file, the backup included
        return true;
    }
    if (batchDepth_ > 0 && batchMode_ == CommitMode::AllOrNothing) {
        if (!LockDirectoryForBatch(directory, error)) return false;
        return BatchReplacement(directory).Stage(hostPath, bytes, error);
    }
    DirectoryLock lock;
    if (!LockForWrite(directory, lock, error)) return false;
    FileReplacement replacement(directory);
    return replacement.Stage(hostPath, bytes, error) && replacement.Commit(error);
}

void ProfileStore::BeginBatch(CommitMode mode) {
    if (batchDepth_++ == 0) {
        ++batchNumber_;
        batchMode_ = mode;
    }
}

bool ProfileStore::HasPendingWrites() const {
    for (const auto& [path, file] : files_) {
        if (file.dirty || file.mustCreate) return true;
    }
    return batchReplacement_ && !batchReplacement_->Empty();
}

// In path order, so that a save replaces its files in the same order every time.
std::vector<std::string> ProfileStore::PendingPaths() const {
    std::vector<std::string> pending;
    for (const auto& [path, file] : files_) {
        if (file.dirty || file.mustCreate) pending.push_back(path);
    }
    std::sort(pending.begin(), pending.end());
    return pending;
}

void ProfileStore::DropPendingWrites() {
    for (const std::string& path : PendingPaths()) files_.erase(path);
    if (batchReplacement_) batchReplacement_->Discard();
}

bool ProfileStore::CommitEachFile(FileError& error) {
    bool ok = true;
    for (const std::string& path : PendingPaths()) {
        CachedFile& file = files_[path];
        FileError saveError;
        if (!Save(path, file, saveError)) {
            if (ok) error = saveError;
            ok = false;
        }
    }
    return ok;
}

bool ProfileStore::CommitAllOrNothing(FileError& error) {
    const std::vector<std::string> pending = PendingPaths();
    if (pending.empty() && (!batchReplacement_ || batchReplacement_->Empty())) return true;
    FileReplacement& replacement =
        BatchReplacement(pending.empty() ? std::string(".") : DirectoryOf(pending.front()));
    for (const std::string& path : pending) {
        if (!replacement.Stage(path, files_[path].document->Serialize(), error)) {
            DropPendingWrites();  // what is on disk is what counts now
            return false;
        }
    }
    if (!replacement.Commit(error)) {
        DropPendingWrites();
        return false;
    }
    for (const std::string& path : pending) {
        CachedFile& file = files_[path];
        file.dirty = false;
        file.mustCreate = false;
        file.stamp = StatFile(path);
    }
    return true;
}

bool ProfileStore::CommitBatch(FileError& error) {
    error.Clear();
    if (batchMode_ == CommitMode::DryRun) {
        AbandonBatch();
        return true;
    }
    const bool ok =
        batchMode_ == CommitMode::AllOrNothing ? CommitAllOrNothing(error) : CommitEachFile(error);
    // Files are checked again from now on.
    ++batchNumber_;
    return ok;
}

void ProfileStore::AbandonBatch() {
    DropPendingWrites();
    ++batchNumber_;
}

void ProfileStore::EndBatch() {
    if (batchDepth_ > 0 && --batchDepth_ == 0) {
        batchReplacement_.reset();  // removes temporary files that were never committed
        batchLocks_.clear();
        batchJournalDirectory_.clear();
        batchMode_ = CommitMode::EachFile;
    }
}

void ProfileStore::CompleteInterruptedCommit(const std::string& directory) {
    CompleteCommitForRead(directory);
}

void ProfileStore::Clear() {
    files_.clear();
    resolvedNames_.clear();
}

}  // namespace wk::platform
