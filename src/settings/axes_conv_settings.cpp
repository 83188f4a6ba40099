#include "settings/axes_conv_settings.h"

#include "platform/profile_batch.h"
#include "platform/profile_files.h"
#include "platform/windows_directory.h"
#include "settings/key_profile_helpers.h"

namespace wk {

AxesConvSettings::AxesConvSettings(const ControllerFlags& controllerFlags)
    : ControllerSettings(controllerFlags) {}

bool AxesConvSettings::Read() {
    const bool result = ControllerSettings::Read();
    // Anything but "STANDARD", a missing key included, is the QEN convention.
    QenAxesConvention = !ReadProfileBool(kQenAxesConvention, "STANDARD");
    return result;
}

bool AxesConvSettings::Write() {
    const bool result = ControllerSettings::Write();
    WriteProfileText(kQenAxesConvention, QenAxesConvention ? "QEN" : "STANDARD");
    return result;
}

bool AxesConvSettings::ReadAll() {
    // Some two hundred reads of the same two files: inside a batch each file is checked on
    // disk once, at its first read, instead of at every key. No write happens here, so the
    // batch has nothing to commit; the values read are those of the files as found.
    ProfileBatch batch;
    return Read();
}

bool AxesConvSettings::WriteAll(SaveResult& result) {
    result = SaveResult{};
    const bool wasModified = Modified;  // the backup clears it; a failed save puts it back
    const auto fail = [&](const platform::FileError& why) {
        result.File = why.path;
        result.Reason = why.reason;
        Modified = wasModified;
        return false;
    };
    ProfileBatch batch(ProfileBatch::Mode::AllOrNothing);
    if (!batch.LockDirectory(platform::WindowsDirectoryHostPath())) {
        batch.Abandon();
        return fail(platform::LastProfileFailure());
    }
    const std::uint64_t failedBefore = FailedProfileWrites();
    const bool written = Write();
    if (!written || FailedProfileWrites() != failedBefore) {
        const platform::FileError why = LastFailedProfileWrite();
        batch.Abandon();
        return fail(why);
    }
    if (!batch.Commit()) return fail(platform::LastProfileFailure());
    result.Saved = true;
    result.BackupProblem = BackupProblem();
    return true;
}

bool AxesConvSettings::WriteAll() {
    SaveResult ignored;
    return WriteAll(ignored);
}

}  // namespace wk
