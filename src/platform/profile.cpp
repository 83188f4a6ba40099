#include "platform/profile.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/dos_paths.h"
#include "platform/profile_dry_run.h"
#include "platform/profile_files.h"
#include "platform/profile_store.h"
#include "platform/text_codec.h"
#include "platform/windows_api.h"
#include "platform/windows_directory.h"

namespace wk {
namespace {

using platform::ProfileDocument;
using platform::ProfileStore;

struct LastFailure {
    platform::FileError error;
    std::string text;
};

LastFailure& Last() {
    thread_local LastFailure last;
    return last;
}

void Fail(const std::string& path, const std::string& reason) {
    platform::RecordProfileFailure(platform::FileError{path, reason});
}

// Arguments are trimmed of spaces only: a TAB is part of the name, as on Windows.
std::string_view TrimSpaces(const char* text) {
    std::string_view s(text);
    while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
    while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
    return s;
}

// A name or value as the document holds it: the bytes themselves in an ANSI file, UTF-8 in
// a UTF-16 file.
std::string Internal(const ProfileDocument& doc, std::string_view ansi) {
    return doc.IsUtf16() ? platform::AnsiToUtf8(ansi) : std::string(ansi);
}

std::uint32_t CopyText(std::string_view text, char* buffer, std::uint32_t size) {
    const std::size_t n = std::min<std::size_t>(text.size(), size - 1);
    std::memcpy(buffer, text.data(), n);
    buffer[n] = '\0';
    return static_cast<std::uint32_t>(n);
}

// The default, without its trailing spaces (only spaces: a trailing TAB stays).
std::uint32_t CopyDefault(const char* defaultValue, char* buffer, std::uint32_t size) {
    std::string_view text(defaultValue != nullptr ? defaultValue : "");
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return CopyText(text, buffer, size);
}

// A list of NUL-terminated names with the final NUL. One that does not fit (an exact fit
// included) is cut to size - 2 characters and two NULs, and the call returns size - 2.
std::uint32_t CopyList(std::string_view list, char* buffer, std::uint32_t size) {
    if (list.size() + 2 <= size) {
        std::memcpy(buffer, list.data(), list.size());
        buffer[list.size()] = '\0';
        return static_cast<std::uint32_t>(list.size());
    }
    if (size < 2) {
        buffer[0] = '\0';
        return 0;
    }
    const std::uint32_t n = size - 2;
    std::memcpy(buffer, list.data(), n);
    buffer[n] = '\0';
    buffer[n + 1] = '\0';
    return n;
}

// The text GetPrivateProfileStringA would give, for GetPrivateProfileIntA: the value, the
// first name of a listing, or nothing. `found` says whether the call would copy characters.
std::string IntText(const char* section, const char* key, const char* fileName, bool& found) {
    found = false;
    ProfileStore& store = ProfileStore::Instance();
    const ProfileDocument* doc = store.Read(fileName);
    if (doc == nullptr) return {};
    std::string text;
    if (section == nullptr) {
        doc->AppendSectionNames(text);
    } else if (key == nullptr) {
        doc->AppendKeyNames(Internal(*doc, TrimSpaces(section)), text);
    } else if (auto value = doc->Value(Internal(*doc, TrimSpaces(section)),
                                       Internal(*doc, TrimSpaces(key)))) {
        text = *value;
    }
    found = !text.empty();
    if (doc->IsUtf16()) text = platform::Utf8ToAnsi(text);
    return text.substr(0, text.find('\0'));
}

// The Windows run-time's base-0 conversion: leading characters up to 0x20 skipped, one sign,
// a lower-case 0x, 0o or 0b prefix, digits up to the first other character, modulo 2^32.
std::uint32_t ParseProfileInt(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && static_cast<unsigned char>(text[i]) <= 0x20) ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        negative = text[i] == '-';
        ++i;
    }
    unsigned base = 10;
    if (i + 1 < text.size() && text[i] == '0') {
        if (text[i + 1] == 'x') base = 16;
        if (text[i + 1] == 'o') base = 8;
        if (text[i + 1] == 'b') base = 2;
        if (base != 10) i += 2;
    }
    std::uint32_t value = 0;
    for (; i < text.size(); ++i) {
        const char c = text[i];
        unsigned digit = 0;
        if (c >= '0' && c <= '9') {
            digit = static_cast<unsigned>(c - '0');
        } else if (c >= 'a' && c <= 'f') {
            digit = static_cast<unsigned>(c - 'a' + 10);
        } else if (c >= 'A' && c <= 'F') {
            digit = static_cast<unsigned>(c - 'A' + 10);
        } else {
            break;
        }
        if (digit >= base) break;
        value = value * base + digit;
    }
    return negative ? 0u - value : value;
}

}  // namespace

// Values of 65,536 characters and more come back whole: the 16-bit length wrap of Windows
// (a value of 65,537 characters reading as 1) is a defect no caller relies on, and is not
// reproduced.
std::uint32_t GetPrivateProfileStringA(const char* section, const char* key,
                                       const char* defaultValue, char* buffer, std::uint32_t size,
                                       const char* fileName) {
    if (buffer == nullptr || size == 0) return 0;
    ProfileStore& store = ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    const ProfileDocument* doc = store.Read(fileName);
    if (section == nullptr) {
        if (doc == nullptr) {
            buffer[0] = '\0';  // no second NUL for a file that is not there
            return 0;
        }
        std::string list;
        doc->AppendSectionNames(list);
        if (doc->IsUtf16()) list = platform::Utf8ToAnsi(list);
        return CopyList(list, buffer, size);
    }
    if (doc == nullptr) return CopyDefault(defaultValue, buffer, size);
    if (key == nullptr) {
        std::string list;
        doc->AppendKeyNames(Internal(*doc, TrimSpaces(section)), list);
        if (list.empty()) return CopyDefault(defaultValue, buffer, size);
        if (doc->IsUtf16()) list = platform::Utf8ToAnsi(list);
        return CopyList(list, buffer, size);
    }
    if (!doc->IsUtf16()) {
        if (auto value = doc->Value(TrimSpaces(section), TrimSpaces(key))) {
            return CopyText(*value, buffer, size);
        }
        return CopyDefault(defaultValue, buffer, size);
    }
    if (auto value =
            doc->Value(Internal(*doc, TrimSpaces(section)), Internal(*doc, TrimSpaces(key)))) {
        return CopyText(platform::Utf8ToAnsi(*value), buffer, size);
    }
    return CopyDefault(defaultValue, buffer, size);
}

std::uint32_t GetPrivateProfileIntA(const char* section, const char* key, std::int32_t defaultValue,
                                    const char* fileName) {
    std::string text;
    bool found = false;
    {
        std::lock_guard lock(ProfileStore::Instance().Mutex());
        text = IntText(section, key, fileName, found);
    }
    if (!found) return static_cast<std::uint32_t>(defaultValue);
    return ParseProfileInt(text);
}

bool WritePrivateProfileStringA(const char* section, const char* key, const char* value,
                                const char* fileName) {
    if (section == nullptr && key == nullptr && value == nullptr) {
        platform::RecordProfileFailure({});  // a flush: writes are never held back outside a batch
        return true;
    }
    if (section == nullptr) {
        Fail(fileName != nullptr ? fileName : "WIN.INI",
             "a key cannot be written without a section");
        return false;
    }
    const std::string_view sectionName = TrimSpaces(section);
    const std::size_t length = sectionName.size() + (key != nullptr ? std::strlen(key) : 0) +
                               (value != nullptr ? std::strlen(value) : 0);
    if (length > ProfileDocument::kMaxFileBytes / 4) {
        Fail(fileName != nullptr ? fileName : "WIN.INI", std::strerror(EFBIG));
        return false;
    }
    ProfileStore& store = ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    const std::string_view keyName = key != nullptr ? TrimSpaces(key) : std::string_view();
    platform::FileError error;
    const bool ok = store.Write(
        fileName,
        [&](ProfileDocument& doc) {
            const std::string s = Internal(doc, sectionName);
            const std::string k = key != nullptr ? Internal(doc, keyName) : std::string();
            // A save that is only tried out records what each write changes.
            ProfileDryRun::NoteWriteBefore(doc, fileName, s, key != nullptr ? &k : nullptr);
            bool changed = false;
            if (key == nullptr) {
                changed = doc.DeleteSection(s);
            } else if (value == nullptr) {
                changed = doc.DeleteKey(s, k);
            } else {
                changed = doc.SetValue(s, k, Internal(doc, value));
            }
            ProfileDryRun::NoteWriteAfter(doc);
            return changed;
        },
        error);
    platform::RecordProfileFailure(ok ? platform::FileError{} : error);
    return ok;
}

std::uint32_t GetProfileStringA(const char* section, const char* key, const char* defaultValue,
                                char* buffer, std::uint32_t size) {
#ifdef _WIN32
    // Windows keeps the user's profile (the printers of [devices] among it) in the registry
    // and answers for it; only a stand-in Windows directory (SetWinePrefixOverride) has its
    // WIN.INI read as a file.
    if (platform::WinePrefixOverride().empty()) {
        if (size == 0) return 0;
        return ::GetProfileStringA(section, key, defaultValue, buffer, size);
    }
#endif
    return GetPrivateProfileStringA(section, key, defaultValue, buffer, size, nullptr);
}

const std::string& LastProfileError() {
    return Last().text;
}

ProfileFileStatus GetProfileFileStatus(const char* fileName) {
    ProfileStore& store = ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    const ProfileStore::FileInfo info = store.Inspect(fileName);
    ProfileFileStatus status;
    status.path = info.path;
    if (info.readable) {
        status.state = ProfileFileState::Readable;
    } else if (info.stamp.kind == platform::FileKind::Directory) {
        status.state = ProfileFileState::Directory;
        status.problem = platform::DescribeUnusableFile(info.stamp);
    } else if (info.stamp.kind == platform::FileKind::NotRegular) {
        status.state = ProfileFileState::NotRegular;
        status.problem = platform::DescribeUnusableFile(info.stamp);
    } else if (!info.readError.Empty()) {
        status.state = ProfileFileState::Unreadable;
        status.problem = info.readError.reason;
    } else {
        status.state = ProfileFileState::Missing;
        status.problem = "does not exist";
    }
    return status;
}

namespace platform {

void DeclareNewProfileFileSpelling(const std::string& name) {
    ProfileStore& store = ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    store.DeclareNewFileSpelling(name);
}

void CompleteInterruptedSaves() {
    ProfileStore& store = ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    store.CompleteInterruptedCommit(WindowsDirectoryHostPath());
}

bool ReplaceWholeFile(const std::string& path, const std::string& bytes) {
    ProfileStore& store = ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    FileError error;
    const bool ok = store.StageFile(ToHostPath(path), bytes, error);
    RecordProfileFailure(ok ? FileError{} : error);
    return ok;
}

void RecordProfileFailure(const FileError& error) {
    Last().error = error;
    Last().text = error.Empty() ? std::string() : error.Text();
}

const FileError& LastProfileFailure() {
    return Last().error;
}

}  // namespace platform

}  // namespace wk
