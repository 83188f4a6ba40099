#include "platform/profile_batch.h"

#include "platform/profile_store.h"

namespace wk {

namespace {
std::string& BatchError() {
    thread_local std::string error;
    return error;
}
}  // namespace

ProfileBatch::ProfileBatch() {
    platform::ProfileStore& store = platform::ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    store.BeginBatch();
}

ProfileBatch::~ProfileBatch() {
    platform::ProfileStore& store = platform::ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    // Writes made after an explicit Commit() are not lost either.
    if (store.IsOutermostBatch() && (!committed_ || store.HasPendingWrites())) {
        store.CommitBatch(BatchError());
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
