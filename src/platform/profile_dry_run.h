#pragma once
// A scope in which profile writes are tried out: nothing of them reaches the disk.
//
// Inside a dry run every WritePrivateProfileStringA is applied to the files in memory, exactly
// as in a batch (profile_batch.h), so that later writes and reads see it; each is recorded,
// in order, with the value the key had before it and has after it, as the profile functions
// read them. At the end of the scope every change is dropped: the files on disk are as they
// were, and later reads see them so. A whole file that would be replaced (the backup) is not,
// and no lock is taken: a dry run keeps no other writer waiting. The window asks "what would this
// save change?" this way without taking the backup or writing a byte.
//
// A dry run is the outermost batch: it cannot be begun inside a batch, whose writes it would
// otherwise drop or mix with its own (std::logic_error). The profile engine has one batch for
// the process; the program writes its files from one thread.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wk {

namespace platform {
class ProfileDocument;
}

class ProfileDryRun {
public:
    // One write of a key, as tried.
    struct Write {
        std::string FileName;  // as the caller named the file ("Wzelko.ini", "WZELKO32.INI")
        std::string Section;   // as the caller spelt it, without surrounding spaces
        // The key; nullopt for the deletion of a whole section.
        std::optional<std::string> Key;
        // The key's value as GetPrivateProfileStringA reads it, before and after the write;
        // nullopt when the key is not there (not yet, or no longer).
        std::optional<std::string> Before;
        std::optional<std::string> After;
    };

    ProfileDryRun();
    // Drops every change made in the scope.
    ~ProfileDryRun();

    ProfileDryRun(const ProfileDryRun&) = delete;
    ProfileDryRun& operator=(const ProfileDryRun&) = delete;

    // The writes tried so far, in the order they were made.
    const std::vector<Write>& Writes() const { return writes_; }

    // Whether a dry run is in progress on this thread: nothing may reach the disk then.
    static bool Active();

    // For the profile functions: a write is about to change `document`, and has changed it.
    // Nothing happens outside a dry run. `key` is nullptr for the deletion of a section.
    static void NoteWriteBefore(const platform::ProfileDocument& document, const char* fileName,
                                std::string_view section, const std::string* key);
    static void NoteWriteAfter(const platform::ProfileDocument& document);

private:
    std::vector<Write> writes_;
    ProfileDryRun* previous_ = nullptr;
};

}  // namespace wk
