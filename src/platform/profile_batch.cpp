#include "platform/profile_batch.h"

#include "platform/profile_store.h"

namespace wk {

ProfileBatch::ProfileBatch() {
    platform::ProfileStore& store = platform::ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    store.BeginBatch();
}

ProfileBatch::~ProfileBatch() {
    platform::ProfileStore& store = platform::ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    // Writes made after an explicit Commit() are not lost either. Nothing is thrown from
    // here; LastProfileError() still says why a commit failed.
    if (store.IsOutermostBatch() && (!committed_ || store.HasPendingWrites())) {
        std::string error;
        if (!store.CommitBatch(error)) platform::LastProfileErrorText() = error;
    }
    store.EndBatch();
}

bool ProfileBatch::Commit() {
    committed_ = true;
    platform::ProfileStore& store = platform::ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    if (!store.IsOutermostBatch()) return true;
    std::string error;
    const bool ok = store.CommitBatch(error);
    if (!ok) platform::LastProfileErrorText() = error;
    return ok;
}

}  // namespace wk
