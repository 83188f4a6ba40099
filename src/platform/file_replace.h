#pragma once
// Replacing settings files so that nothing is ever half written, one file or a set of them.
//
// One file: its new bytes go to a temporary file beside it (same directory, so the same file
// system), which is flushed to the disk, given the original's mode and owner, and renamed
// over the original. A rename is atomic: a reader, or the next run after a crash or a kill,
// finds the old file or the new one, never a mix, and a failure before the rename leaves the
// old file as it was.
//
// A set of files: a save replaces the backup, WZELKO.INI and WZELKO32.INI, which belong
// together. Each rename is atomic, the three are not: a kill between two renames would leave
// a new WZELKO.INI beside an old WZELKO32.INI. So a set is committed through a journal:
//   1. every temporary file is written and flushed (Stage). A failure here removes them all
//      and replaces nothing.
//   2. The journal ".wkestel.journal" (each temporary file and the file it replaces, then
//      "end") is written in its place in the journal directory and flushed, and the directory
//      is flushed, which puts the journal's name and the temporary files' names on the disk:
//      from this moment the new set is decided. A journal cut short (no "end") decides
//      nothing, so it needs no temporary file and rename of its own.
//   3. The temporaries are renamed over their files, in the order they were staged, and the
//      directory is flushed again, so that the renames are on the disk before the journal
//      goes.
//   4. The journal is removed.
// Every flush of a save is needed for that: each temporary file's (no file is torn), the
// journal's and the directory's before the renames (the decision survives a power failure),
// and the directory's after them (no journal is gone while a rename is not yet on the disk).
// A kill before step 2 ends leaves the old set (with temporary files, which the next save of
// each file removes, and perhaps a journal cut short, which the next access removes); from
// then on it leaves the journal, and the next access of this program to the directory (every
// read or write of the profile engine, so the window's start-up and every command of
// `wkestel`) renames the temporary files that are still there and removes the journal: the
// new set. So right after a kill each file is old or new, and the set is the old or the new
// one when no complete journal is left; after the next access the set is the old or the new
// one, whole.
//
// Temporary files are named "." + the file's name + ".wkestel-" + six letters or digits
// (".WZELKO.INI.wkestel-a1B2c3"). A save removes the leftovers of interrupted saves of the
// same file: names of exactly this pattern beside it, older than the save itself. The
// directory is listed once for all the files a save replaces there.
//
// Read-only files: a file that has no write permission at all (mode 0444 and the like), or
// that this user may not write, is not replaced; SetReplaceReadOnlyFiles(true) (the command
// line's --force) allows it. A replaced file keeps its mode, and its owner and group where
// the system lets this user give them (the group alone otherwise).
//
// Symbolic links: the file a link names is read, and a write replaces that file (the link
// stays a link, as an administrator who linked the settings files elsewhere wants). A link
// that leads nowhere but to itself (a loop) is an error and is never replaced.

#include <chrono>
#include <map>
#include <string>
#include <vector>

#include "platform/file_error.h"

namespace wk::platform {

inline constexpr const char* kJournalFileName = ".wkestel.journal";
inline constexpr const char* kTemporaryInfix = ".wkestel-";

// Whether files without write permission may be replaced. Off unless the user says so.
void SetReplaceReadOnlyFiles(bool allowed);
bool ReplaceReadOnlyFiles();

// Why the file that `path` names may not be replaced (a directory, a pipe or device, a link
// loop, a read-only file); an empty error when it may be, or when it does not exist yet.
FileError ReplaceRefusal(const std::string& path);

class FileReplacement {
public:
    // `journalDirectory` holds the journal of a set of more than one file: the directory
    // whose lock the writer holds.
    explicit FileReplacement(std::string journalDirectory);
    ~FileReplacement();  // removes the temporary files of a set that was not committed

    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    // Writes the new bytes of the file `path` names to a flushed temporary file beside it
    // (a link is followed to its target). Staging the same file again replaces the earlier
    // bytes. False with `error` (the file, and why) when it cannot be done.
    bool Stage(const std::string& path, const std::string& bytes, FileError& error);

    // Replaces every staged file, through the journal when there is more than one. False
    // with `error` when a file could not be replaced; when that happens before the first
    // rename (and always for a single file) nothing has been replaced.
    bool Commit(FileError& error);

    // Removes the temporary files; nothing is replaced.
    void Discard();

    bool Empty() const { return staged_.empty(); }

private:
    struct Staged {
        std::string path;    // as named
        std::string target;  // the file that is replaced (a link followed)
        std::string temp;
    };

    std::string journalDirectory_;
    std::chrono::system_clock::time_point start_;
    std::vector<Staged> staged_;
    // By directory, listed at the first file staged there: the temporary files that
    // interrupted saves left, not yet removed.
    std::map<std::string, std::vector<std::string>> leftovers_;
};

// True when an interrupted commit left its journal in `directory`.
bool JournalPending(const std::string& directory);

// Finishes the commit whose journal is in `directory` (call with the directory's lock held):
// every temporary file it lists that is still there is renamed over its file, then the
// journal is removed. True when there was nothing to do or it is done. A journal that is not
// complete (never true of one this program wrote) is removed without renaming anything.
bool CompleteInterruptedCommit(const std::string& directory, FileError& error);

}  // namespace wk::platform
