#pragma once
// The Windows private-profile functions, with Windows' own behaviour on every platform.
//
// The measuring application reads and writes its INI files through these calls, so the
// editor must see and leave the files exactly as they would on Windows: names matched
// without regard to (ASCII) case, values trimmed of blanks and of one pair of outer quotes,
// buffers truncated to size - 1, listings with the double-NUL rule, a new key after the
// last key line of its section, a new section at the end of the file. Every byte that a
// write was not asked to change survives it: comments, blank lines, line endings, bytes
// that are not text. Files are bytes in the ANSI code page; a file that starts with a
// UTF-16LE byte-order mark stays UTF-16LE.
//
// File names: nullptr means WIN.INI in the Windows directory; a bare name (no '\' or '/')
// lives in the Windows directory (see windows_directory.h) and matches an existing file
// there without regard to case; any other name is a path, a drive path ("C:\...") mapped
// to the host through the Wine prefix (see dos_paths.h).
//
// A parsed file is kept in memory and parsed again when it changed on disk. Only regular
// files are read (a pipe or device reads as a missing file, never blocking), up to 64 MiB.
// Every write holds the writers' lock of the file's directory (directory_lock.h) around its
// read-modify-write, and replaces the file atomically (temporary file beside it, flushed,
// renamed over it, with the original's mode and owner; a read-only file is not replaced:
// file_replace.h); inside a ProfileBatch (profile_batch.h) the replace is deferred to the
// end of the batch. What the Windows calls cannot say (a missing file or one that could not
// be read, which file a write failed on and why) is in profile_files.h.

#include <cstdint>
#include <string>

namespace wk {

// Copies the value of `key` in `section` into `buffer` (at most size - 1 characters and a
// NUL) and returns the number of characters copied. A missing file, section or key gives
// `defaultValue` (nullptr counts as "") with its trailing spaces removed.
// key == nullptr: the names of the keys of `section`, each NUL-terminated, plus a final NUL.
// section == nullptr: the names of all sections, likewise.
// A listing that does not fit is cut to size - 2 characters followed by two NULs, and the
// call returns size - 2. size == 0 returns 0 and leaves the buffer untouched.
std::uint32_t GetPrivateProfileStringA(const char* section, const char* key,
                                       const char* defaultValue, char* buffer, std::uint32_t size,
                                       const char* fileName);

// The value as an unsigned integer: leading characters up to 0x20 skipped, one optional
// sign, an optional 0x/0o/0b prefix, digits up to the first other character, modulo 2^32.
// No digits gives 0; a missing (or empty) value gives `defaultValue` as unsigned.
std::uint32_t GetPrivateProfileIntA(const char* section, const char* key, std::int32_t defaultValue,
                                    const char* fileName);

// Sets key = value. value == nullptr deletes the key; key == nullptr deletes the section
// (its comment lines stay); all three nullptr flushes (nothing to do here: writes are not
// cached) and succeeds. section == nullptr with a key fails without touching the file.
// Returns false when the file cannot be written; LastProfileError() says why.
bool WritePrivateProfileStringA(const char* section, const char* key, const char* value,
                                const char* fileName);

// The same read on the user's system profile, WIN.INI in the Windows directory.
std::uint32_t GetProfileStringA(const char* section, const char* key, const char* defaultValue,
                                char* buffer, std::uint32_t size);

// Why the last failed profile write (or batch commit) of this thread failed, in words
// ("/path/WZELKO.INI: Permission denied"). Empty after a success. LastProfileFailure()
// (profile_files.h) gives the file and the reason apart.
const std::string& LastProfileError();

}  // namespace wk
