#pragma once
// The wave file a sound of the measuring application names, found on the host.
//
// The settings hold a sound as the measuring application names it: a path with a drive
// ("C:\WZELKO\SOUNDS\ERROR.WAV"), a path without one (on C:, the drive of the Windows
// directory), or a bare name ("error"). Before a sound is played for a test, the file is
// looked up here, so that a name that leads nowhere is reported in words instead of playing
// nothing.

#include <string>

namespace wk::platform {

enum class SoundFileProblem {
    None,         // a wave file that can be read
    NoFile,       // nothing is named
    NoSuchDrive,  // the drive is not one of the prefix's drives
    Missing,      // no such file
    NotAFile,     // a directory or a device
    Unreadable,   // it cannot be opened for reading
    NotWave,      // it is not a RIFF wave file
};

struct SoundFile {
    // The host file that was looked at; for a bare name that is found nowhere, the first place
    // it was looked for. Empty for NoFile and NoSuchDrive.
    std::string hostPath;
    SoundFileProblem problem = SoundFileProblem::None;
};

// Finds the file of a sound's stored value. A path with a drive or a backslash is mapped
// through the prefix's drives (on Windows it is used as it stands); a host path ("/...") is
// taken as it is; a bare name is looked for in the sounds location and then in the Windows
// directory, as given and, when it has no extension, with ".wav" added - the measuring
// application's sounds are wave files, and its initial event values are bare names.
SoundFile LocateSoundFile(const std::string& stored, const std::string& location);

// Whether a host file is a wave file that can be read (None) and otherwise why not.
SoundFileProblem CheckWaveFile(const std::string& hostPath);

}  // namespace wk::platform
