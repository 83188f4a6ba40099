#include "settings/axes_conv_settings.h"

#include "platform/profile_batch.h"
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

bool AxesConvSettings::WriteAll() {
    const std::uint64_t failedBefore = FailedProfileWrites();
    ProfileBatch batch;
    const bool written = Write();
    const bool committed = batch.Commit();
    return written && committed && FailedProfileWrites() == failedBefore;
}

}  // namespace wk
