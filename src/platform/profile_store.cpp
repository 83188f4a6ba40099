#include "platform/profile_store.h"

#include <cctype>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/dos_paths.h"
#include "platform/file_lookup.h"
#include "platform/host_path.h"
#include "platform/windows_directory.h"

namespace wk::platform {
namespace fs = std::filesystem;

namespace {

std::string Describe(const std::string& path, int errorNumber) {
    return path + ": " + std::strerror(errorNumber);
}

}  // namespace

ProfileStore& ProfileStore::Instance() {
    static ProfileStore store;
    return store;
}

std::string ProfileStore::ResolveBareName(const std::string& windowsDirectory,
                                          const std::string& name) {
    const std::string exact = windowsDirectory + "/" + name;
    if (StatFile(exact).exists) return exact;
#ifndef _WIN32
    // The measuring application names its files in any case ("Wzelko.ini" for WZELKO.INI);
    // on a case-sensitive file system the existing file is found by comparing names.
    if (auto entry = FindEntryIgnoringCase(windowsDirectory, name)) return entry->string();
#endif
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
    const FileStamp stamp = StatFile(path);
    const bool known = file.document != nullptr || !file.readError.empty() || file.stamp.exists;
    // A file that could not be read is tried again on every call (its permissions may have
    // been fixed without any change that the stamp shows).
    if (!known || !file.readError.empty() || !(stamp == file.stamp) ||
        (!stamp.exists && file.document)) {
        file.document.reset();
        file.readError.clear();
        file.stamp = stamp;
        if (stamp.exists && !stamp.isDirectory) {
            std::string bytes;
            FileStamp readStamp;
            std::string error;
            if (stamp.size > ProfileDocument::kMaxFileBytes) {
                file.readError = Describe(path, EFBIG);
            } else if (!ReadWholeFile(path, bytes, readStamp, error)) {
                file.readError = error;
            } else if (bytes.size() > ProfileDocument::kMaxFileBytes) {
                file.readError = Describe(path, EFBIG);
            } else {
                file.document = std::make_unique<ProfileDocument>(std::move(bytes));
                file.stamp = readStamp;
            }
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

bool ProfileStore::Save(const std::string& path, CachedFile& file, std::string& error) {
    const std::string bytes = file.document->Serialize();
    if (!ReplaceFileAtomically(path, bytes, error)) {
        files_.erase(path);  // what is on disk is what counts now
        return false;
    }
    file.dirty = false;
    file.mustCreate = false;
    file.stamp = StatFile(path);
    return true;
}

bool ProfileStore::Write(const char* fileName, const std::function<bool(ProfileDocument&)>& edit,
                         std::string& error) {
    std::string path;
    CachedFile& file = CurrentFor(fileName, path);
    if (file.stamp.isDirectory) {
        error = Describe(path, EISDIR);
        return false;
    }
    if (!file.readError.empty()) {
        // Never replace a file whose content could not be read: it would be lost.
        error = file.readError;
        return false;
    }
    bool created = false;
    if (!file.document) {
        std::error_code ec;
        const fs::path parent = PathFromAnsi(path).parent_path();
        if (!parent.empty() && !fs::is_directory(parent, ec)) {
            error = Describe(path, ENOENT);  // a missing directory is not created
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
        error.clear();
        return true;
    }
    if (!changed && !created) {
        error.clear();
        return true;
    }
    return Save(path, file, error);
}

void ProfileStore::BeginBatch() {
    if (batchDepth_++ == 0) ++batchNumber_;
}

bool ProfileStore::HasPendingWrites() const {
    for (const auto& [path, file] : files_) {
        if (file.dirty || file.mustCreate) return true;
    }
    return false;
}

bool ProfileStore::CommitBatch(std::string& error) {
    bool ok = true;
    std::string firstError;
    std::vector<std::string> pending;
    for (const auto& [path, file] : files_) {
        if (file.dirty || file.mustCreate) pending.push_back(path);
    }
    for (const std::string& path : pending) {
        CachedFile& file = files_[path];
        std::string saveError;
        if (!Save(path, file, saveError)) {
            if (ok) firstError = saveError;
            ok = false;
        }
    }
    // Files are checked again from now on.
    ++batchNumber_;
    error = ok ? std::string() : firstError;
    return ok;
}

void ProfileStore::AbandonBatch() {
    std::vector<std::string> pending;
    for (const auto& [path, file] : files_) {
        if (file.dirty || file.mustCreate) pending.push_back(path);
    }
    // The edited documents are dropped; the next read parses the files on disk again.
    for (const std::string& path : pending) files_.erase(path);
    ++batchNumber_;
}

void ProfileStore::EndBatch() {
    if (batchDepth_ > 0) --batchDepth_;
}

void ProfileStore::Clear() {
    files_.clear();
    resolvedNames_.clear();
}

}  // namespace wk::platform
