#include "platform/profile_dry_run.h"

#include <mutex>
#include <stdexcept>

#include "platform/profile_document.h"
#include "platform/profile_store.h"
#include "platform/text_codec.h"

namespace wk {
namespace {

thread_local ProfileDryRun* activeDryRun = nullptr;
// Where the write in progress is: its document's names, for reading the value after it.
thread_local std::string noteSection;
thread_local std::string noteKey;

// The value as GetPrivateProfileStringA gives it: ANSI also for a UTF-16 file.
std::optional<std::string> ReadValue(const platform::ProfileDocument& document,
                                     std::string_view section, std::string_view key) {
    const std::optional<std::string_view> value = document.Value(section, key);
    if (!value) return std::nullopt;
    return document.IsUtf16() ? platform::Utf8ToAnsi(*value) : std::string(*value);
}

std::string Ansi(const platform::ProfileDocument& document, std::string_view text) {
    return document.IsUtf16() ? platform::Utf8ToAnsi(text) : std::string(text);
}

}  // namespace

ProfileDryRun::ProfileDryRun() {
    platform::ProfileStore& store = platform::ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    store.BeginBatch(platform::ProfileStore::CommitMode::DryRun);
    if (!store.IsOutermostBatch()) {
        store.EndBatch();
        throw std::logic_error("a dry run of profile writes cannot be begun inside a batch");
    }
    previous_ = activeDryRun;
    activeDryRun = this;
}

ProfileDryRun::~ProfileDryRun() {
    platform::ProfileStore& store = platform::ProfileStore::Instance();
    std::lock_guard lock(store.Mutex());
    store.AbandonBatch();
    store.EndBatch();
    activeDryRun = previous_;
}

bool ProfileDryRun::Active() {
    return activeDryRun != nullptr;
}

void ProfileDryRun::NoteWriteBefore(const platform::ProfileDocument& document, const char* fileName,
                                    std::string_view section, const std::string* key) {
    if (activeDryRun == nullptr) return;
    Write write;
    write.FileName = fileName != nullptr ? fileName : "WIN.INI";
    write.Section = Ansi(document, section);
    noteSection.assign(section);
    noteKey.clear();
    if (key != nullptr) {
        write.Key = Ansi(document, *key);
        write.Before = ReadValue(document, section, *key);
        noteKey = *key;
    }
    activeDryRun->writes_.push_back(std::move(write));
}

void ProfileDryRun::NoteWriteAfter(const platform::ProfileDocument& document) {
    if (activeDryRun == nullptr || activeDryRun->writes_.empty()) return;
    Write& write = activeDryRun->writes_.back();
    if (write.Key) write.After = ReadValue(document, noteSection, noteKey);
}

}  // namespace wk
