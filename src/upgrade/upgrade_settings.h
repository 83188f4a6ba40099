#pragma once
// The UPGRADE merge: after a new installation of the measuring application, the user's
// previous values are carried from the saved files into the freshly installed ones.
//
// Two passes, in this order, each only when its saved file exists in the Windows directory:
//   1. "WZELKO.SAV"       into "WZELKO.INI"
//   2. "WZELKO32INI.SAVE" into "WZELKO32.INI"   (the saved name is irregular on purpose)
// Every key of every section of the fresh file takes the saved file's value, except the keys
// that must stay as installed (kept_keys.h) and except where the saved file has no value or
// the value "NONE". Keys that only the saved file has are not carried.
//
// The window and `wkestel upgrade` share this one implementation: what the window does
// around a pass (status line, hidden controls, hourglass, repaint) comes in through
// UpgradeProgress, and what each pass did comes back in an UpgradeReport.

#include <string>
#include <vector>

namespace wk {

// What the caller shows while a pass runs. Called once per pass that runs, Prepare before
// the pass touches any file and Finish after it, also when the pass fails.
class UpgradeProgress {
public:
    virtual ~UpgradeProgress() = default;
    // Remember and hide the controls, set the hourglass, show the text, repaint at once
    // (the message loop does not run during the merge).
    virtual void Prepare(const std::string& statusText) = 0;
    // Restore what Prepare remembered, and repaint.
    virtual void Finish() = 0;
};

// What became of one key of the fresh file.
enum class UpgradeKeyFate {
    Carried,          // the saved value was written into the fresh file
    KeptAsInstalled,  // one of the keys that always keep the installed value
    MethodNotCtrl,    // "METHOD" of "COMPENS" in WZELKO32.INI whose saved value is not "CTRL"
    NotInSavedFile,   // the saved file has no such key
    SavedValueNone,   // the saved value is "NONE", which is never carried
};

struct UpgradeKeyEntry {
    std::string section;  // upper-cased, as the merge names it
    std::string key;      // as the fresh file spells it
    UpgradeKeyFate fate = UpgradeKeyFate::Carried;
    std::string savedValue;      // the value read from the saved file; empty when not read
    std::string installedValue;  // Carried only: the fresh file's value before the merge
};

enum class UpgradePassStatus {
    Merged,              // the pass ran to its end and its writes reached the fresh file
    NoSavedFile,         // the saved file does not exist: the pass was skipped silently
    FreshFileNotOpened,  // the fresh file could not be opened or read: nothing written, ended
    WorkFileNotCreated,  // the work file could not be written: nothing written, upgrade ended
    WriteFailed,         // the merged fresh file could not be written: it is as it was
    NotReached,          // an earlier pass ended the upgrade
};

struct UpgradePassReport {
    int number = 0;          // 1 or 2
    std::string freshFile;   // paths as the measuring application names them
    std::string savedFile;   //   ("C:\windows\WZELKO.INI")
    std::string statusText;  // what the progress showed ("Upgrading WZELKO.INI. Please Wait...")
    UpgradePassStatus status = UpgradePassStatus::NotReached;
    std::string problem;                // in words, for the failures
    std::vector<UpgradeKeyEntry> keys;  // in the order the merge met them
};

struct UpgradeReport {
    std::vector<UpgradePassReport> passes;  // always both, in pass order

    // False when a pass failed (a file could not be opened, created or written).
    bool Succeeded() const;
};

// Runs both passes. `progress` is the main window, or the CLI's stand-in for it.
UpgradeReport UpgradeSettingsFiles(UpgradeProgress& progress);

}  // namespace wk
