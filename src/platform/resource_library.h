#pragma once
// LoadLibraryA, LoadStringA and FreeLibrary for resource libraries.
//
// The language libraries (Kes32_<lang>.dll) are Windows PE files whose only content the
// editor uses is the string table (resource type RT_STRING). Under Wine the editor runs
// natively, so the library is not mapped by a loader: its string table is read from the
// file, 32-bit (PE32) and 64-bit (PE32+) alike, so that the measuring application's own
// libraries work as they are.
//
// The string table is kept in blocks of 16 strings: block id = string id / 16 + 1, each
// string a 16-bit length and that many UTF-16LE characters. When a block exists in several
// languages, the language-neutral one is taken, else the first listed.
//
// A file that is not a PE image, is cut short, has a resource tree that points outside the
// file, or holds no string table does not load: LoadLibraryA returns nullptr, as Windows
// does for a file it cannot map. Every offset read from the file is checked first.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace wk {

// A loaded resource library: the string table, read once at load time.
struct ResourceModule;
using ModuleHandle = ResourceModule*;

// Loads the library. A bare or relative name is taken relative to the working directory;
// the last component matches an existing file without regard to case, so that
// "Kes32_ITA.dll" finds Kes32_ita.dll on a case-sensitive file system.
// nullptr when the file is missing or is no usable resource library.
ModuleHandle LoadLibraryA(const char* fileName);

// Copies string `id` into `buffer`, converted from UTF-16 to the ANSI code page
// (Windows-1252; a character it lacks becomes '?'), at most bufferMax - 1 characters and a
// NUL, and returns the number of characters copied. A missing string (or a null module)
// gives 0 and an empty buffer. bufferMax == 0 returns 0 and writes nothing.
int LoadStringA(ModuleHandle module, unsigned id, char* buffer, int bufferMax);

// Releases the library; nullptr is ignored. True when a library was released.
bool FreeLibrary(ModuleHandle module);

namespace platform {

// The ids of every string of the library, in ascending order (for listing a library).
std::vector<unsigned> StringIds(ModuleHandle module);

// Parses a resource library held in memory (what LoadLibraryA does after reading the
// file). Exposed for the fuzzer; nullptr on any defect, as LoadLibraryA.
ModuleHandle LoadLibraryFromBytes(const std::vector<unsigned char>& bytes);

}  // namespace platform
}  // namespace wk
