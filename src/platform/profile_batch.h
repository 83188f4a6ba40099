#pragma once
// A scope in which profile writes are applied in memory and reach the disk once per file.
//
// Inside a batch, any number of WritePrivateProfileStringA calls to any files give exactly
// the bytes that the same writes one by one would give, reads see the pending values, and
// files are not checked on disk again. The end of the outermost batch replaces each changed
// file once, atomically. The whole-record write and the upgrade run in one batch each, so a
// save costs one replace per file instead of one per key.
//
// A batch begun AllOrNothing replaces every file it changed (and every file staged into it,
// such as the backup) or none: all new files are written and flushed first, and the set is
// then committed through a journal that a later run completes after a kill (file_replace.h).
// A batch holds the write lock of each directory it writes in (directory_lock.h) from its
// first write there, or from LockDirectory(), until it ends.

#include <string>

namespace wk {

class ProfileBatch {
public:
    enum class Mode {
        EachFile,     // each changed file is replaced by itself; a failure spares the others
        AllOrNothing  // every changed file is replaced, or none is
    };

    explicit ProfileBatch(Mode mode = Mode::EachFile);
    // Commits if neither Commit() nor Abandon() was called. A destructor has no way to
    // report, so a failure here is only in LastProfileError(); call Commit() to be told.
    ~ProfileBatch();

    // Takes the write lock of `directory` (a host path) now, before anything there is read,
    // so that what this batch reads is what it replaces; an AllOrNothing batch keeps its
    // commit journal there. False (LastProfileError() says why) when another program holds
    // the lock beyond the wait.
    bool LockDirectory(const std::string& directory);

    // Replaces every file changed in this batch. Returns false when any replace failed
    // (LastProfileError() says why); a file whose replace failed is left as it was on disk,
    // and in an AllOrNothing batch so is every other.
    // In a nested batch this does nothing and returns true: the outermost batch commits.
    bool Commit();

    // Forgets every write of the batch so far: nothing of it reaches the disk, and later
    // reads see the files as they are on disk. For the outermost batch only.
    void Abandon();

    ProfileBatch(const ProfileBatch&) = delete;
    ProfileBatch& operator=(const ProfileBatch&) = delete;

private:
    bool committed_ = false;
};

}  // namespace wk
