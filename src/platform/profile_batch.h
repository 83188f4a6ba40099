#pragma once
// A scope in which profile writes are applied in memory and reach the disk once per file.
//
// Inside a batch, any number of WritePrivateProfileStringA calls to any files give exactly
// the bytes that the same writes one by one would give, reads see the pending values, and
// files are not checked on disk again. The end of the outermost batch replaces each changed
// file once, atomically. The whole-record write and the upgrade run in one batch each, so a
// save costs one replace per file instead of one per key.

namespace wk {

class ProfileBatch {
public:
    ProfileBatch();
    // Commits if Commit() was not called. A destructor has no way to report, so a failure
    // here is silent; call Commit() to learn about it.
    ~ProfileBatch();

    // Replaces every file changed in this batch. Returns false when any replace failed
    // (LastProfileError() says why); a file whose replace failed is left as it was on disk.
    // In a nested batch this does nothing and returns true: the outermost batch commits.
    bool Commit();

    ProfileBatch(const ProfileBatch&) = delete;
    ProfileBatch& operator=(const ProfileBatch&) = delete;

private:
    bool committed_ = false;
};

}  // namespace wk
