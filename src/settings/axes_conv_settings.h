#pragma once
// Axes convention, the top level of the settings record: its read and write run the whole
// chain, base level first.

#include "settings/axes_conv_schema.h"
#include "settings/controller_settings.h"

namespace wk {

class AxesConvSettings : public ControllerSettings {
public:
    // The record takes the start-up controller flags because the machine level's TCP/IP
    // rule needs them while reading, and start-up has already computed them from "Type":
    // passing the flags (not a bare "accepts TCP/IP" bool) keeps one source for the answer
    // the window and the record both use.
    explicit AxesConvSettings(const ControllerFlags& controllerFlags);

    // True: the "QEN" convention of the machine family; false: the standard one. The read
    // always sets it; true is what a missing key gives.
    bool QenAxesConvention = kQenAxesConvention.Default;

    bool Read();
    bool Write();

    // The whole record: every level, base first, in one batch of the profile engine (each
    // file checked on disk once). ReadAll clears the modified flag.
    bool ReadAll();
    // Backup first, then every level's keys in order, all in one batch of the profile
    // engine (one replace per file). True when every key went to disk.
    bool WriteAll();
};

// The most derived level is the settings record.
using SetupSettings = AxesConvSettings;

}  // namespace wk
