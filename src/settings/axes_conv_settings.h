#pragma once
// Axes convention, the top level of the settings record: its read and write run the whole
// chain, base level first.

#include "settings/axes_conv_schema.h"
#include "settings/controller_settings.h"
#include "settings/save_result.h"

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
    // engine. True when every key went to disk.
    //
    // All or nothing: the lock of the Windows directory is taken first (so that no other
    // writer of this program changes the files meanwhile, and the backup is of the file this
    // save replaces), every new file (backup, WZELKO.INI, WZELKO32.INI) is written to a
    // flushed temporary file, and only then are they renamed into place together
    // (file_replace.h). A key that cannot be written, a file that cannot be read or is
    // read-only, a lock held too long by another writer: nothing is replaced, the temporary
    // files are removed, and the modified flag is as it was before the save, so that the
    // edits are neither lost nor taken for saved. `result` says which file failed and why,
    // and whether the save went ahead without its backup.
    bool WriteAll(SaveResult& result);
    bool WriteAll();
};

// The most derived level is the settings record.
using SetupSettings = AxesConvSettings;

}  // namespace wk
