#include "platform/profile_batch.h"

#include "platform/profile_store.h"

namespace wk {

using platform::ProfileStore;

ProfileBatch::ProfileBatch(Mode mode) {
    ProfileStore& store = ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    store.BeginBatch(mode == Mode::AllOrNothing ? ProfileStore::CommitMode::AllOrNothing
                                                : ProfileStore::CommitMode::EachFile);
}

ProfileBatch::~ProfileBatch() {
    ProfileStore& store = ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    // Writes made after an explicit Commit() are not lost either. Nothing is thrown from
    // here; LastProfileError() still says why a commit failed.
    if (store.IsOutermostBatch() && (!committed_ || store.HasPendingWrites())) {
        platform::FileError error;
        if (!store.CommitBatch(error)) platform::RecordProfileFailure(error);
    }
    store.EndBatch();
}

bool ProfileBatch::LockDirectory(const std::string& directory) {
    ProfileStore& store = ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    platform::FileError error;
    const bool ok = store.LockDirectoryForBatch(directory, error);
    if (!ok) platform::RecordProfileFailure(error);
    return ok;
}

bool ProfileBatch::Commit() {
    committed_ = true;
    ProfileStore& store = ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    if (!store.IsOutermostBatch()) return true;
    platform::FileError error;
    const bool ok = store.CommitBatch(error);
    platform::RecordProfileFailure(error);
    return ok;
}

void ProfileBatch::Abandon() {
    committed_ = true;
    ProfileStore& store = ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    if (store.IsOutermostBatch()) store.AbandonBatch();
}

}  // namespace wk
