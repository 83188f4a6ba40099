#pragma once
// The section names of a fresh settings file, as the upgrade lists them in its work file.
//
// The fresh file is read as plain text in pieces of at most 99 characters (fgets with a
// buffer of 100), not parsed as an INI file: every piece that holds a '[' gives one name,
// the characters after the '[' up to the ']', the line break or the end of the piece. So a
// line longer than a piece can give a name from each piece, and a header that starts near
// the end of a piece gives its name cut at the piece's end. The measuring application's
// installation writes short lines, and this is how its files have always been upgraded.

#include <cstdio>
#include <optional>
#include <string>

namespace wk {

// The size of the buffer each read of the fresh file and of the work file goes through.
inline constexpr int kUpgradeLineBuffer = 100;

// The section name in one piece of the fresh file, or nullopt when the piece holds no '['.
std::optional<std::string> SectionNameInPiece(const char* piece);

// Reads `freshFile` to its end and writes each name, followed by a line break, to
// `workFile`. Returns false when writing to the work file failed.
bool ListSectionNames(std::FILE* freshFile, std::FILE* workFile);

// The name of a line read back from the work file, ready for the merge: line break cut,
// surrounding blanks removed (as the profile functions ignore them around a section name),
// upper-cased.
std::string SectionNameForMerge(const char* workLine);

}  // namespace wk
