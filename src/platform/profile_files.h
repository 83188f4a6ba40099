#pragma once
// What the profile engine tells, and what it is told, beside the Windows calls of profile.h.
//
// The Windows calls cannot tell a missing file from one they could not read: both give the
// default. The program must not be silent about that, so the state of a file can be asked
// for here, and a failed write says which file failed and why in two parts.

#include <string>

#include "platform/file_error.h"

namespace wk {

enum class ProfileFileState {
    Readable,    // a regular file whose content the profile functions read
    Missing,     // no such file: reads give the default, as on Windows
    Directory,   // a directory has the name
    NotRegular,  // a named pipe, device or socket has the name: never read
    Unreadable,  // it exists but cannot be read (permissions, too large, a link loop)
};

struct ProfileFileStatus {
    ProfileFileState state = ProfileFileState::Missing;
    std::string path;     // the host path the name resolves to
    std::string problem;  // in words, empty for a readable file: "does not exist", ...
};

// The state of the file that a profile call with this file name reads, as of now.
ProfileFileStatus GetProfileFileStatus(const char* fileName);

namespace platform {

// The last failed profile write or batch commit of this thread: the file and the reason.
// Empty after a success. LastProfileError() is its Text().
const FileError& LastProfileFailure();

// A bare name that matches no existing file creates it under this spelling when the two
// match without regard to case: the settings layer declares "WZELKO.INI" so that a save
// through "Wzelko.ini" and "WZELKO.INI" alike creates one file, named as the measuring
// application's installation names it. An existing file is found whatever its case.
void DeclareNewProfileFileSpelling(const std::string& name);

// Completes a save of the settings files that a kill interrupted in the Windows directory
// (file_replace.h). The engine does so by itself when it first reads or writes a file there;
// this is for code that reads the files by other means first (the upgrade opens them with
// OpenFileA).
void CompleteInterruptedSaves();

// Replaces the whole file `path` (a path of the measuring application, "C:\windows\WZELKO.BAK",
// or a host path; an existing file is matched without regard to case) with `bytes`, as the
// engine replaces its own files: inside an AllOrNothing ProfileBatch together with the
// batch's files, else at once. False when it cannot be done; LastProfileFailure() says why.
bool ReplaceWholeFile(const std::string& path, const std::string& bytes);

}  // namespace platform
}  // namespace wk
