// profile_reference: the Windows private-profile functions themselves (kernel32's
// GetPrivateProfileStringA, GetPrivateProfileIntA, WritePrivateProfileStringA), driven with the
// same command line as `wkestel profile`, so that a test can make the same calls through both
// and compare what they write and what they read.
//
//   profile_reference get FILE SECTION KEY [--default TEXT] [--size N]
//   profile_reference keys FILE SECTION [--size N]
//   profile_reference sections FILE [--size N]
//   profile_reference int FILE SECTION KEY DEFAULT
//   profile_reference set FILE SECTION KEY VALUE
//   profile_reference delete FILE SECTION [KEY]
//
// Output is byte for byte what the buffer receives, in the format `wkestel profile` prints.

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

constexpr DWORD kDefaultBufferSize = 65536;

int Usage() {
    std::fputs("usage: profile_reference get|keys|sections|int|set|delete FILE ...\n", stderr);
    return 2;
}

void Print(const char* bytes, std::size_t length) {
    std::fwrite(bytes, 1, length, stdout);
}

// A listing as the buffer delivers it: NUL-separated names within the returned length.
void PrintNameList(const std::vector<char>& buffer, DWORD length) {
    std::string name;
    for (DWORD i = 0; i < length; ++i) {
        if (buffer[i] == '\0') {
            name += '\n';
            Print(name.data(), name.size());
            name.clear();
        } else {
            name += buffer[i];
        }
    }
    if (!name.empty()) {
        name += '\n';
        Print(name.data(), name.size());
    }
}

int WriteResult(BOOL ok) {
    if (ok) return 0;
    std::fprintf(stderr, "profile_reference: the write failed, error %lu\n",
                 static_cast<unsigned long>(GetLastError()));
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);

    std::vector<std::string> words;
    const char* defaultText = "";
    DWORD size = kDefaultBufferSize;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--default" && i + 1 < argc) {
            defaultText = argv[++i];
        } else if (word == "--size" && i + 1 < argc) {
            size = static_cast<DWORD>(std::strtoul(argv[++i], nullptr, 10));
        } else {
            words.push_back(word);
        }
    }
    if (words.size() < 2 || size == 0) return Usage();
    const std::string& command = words[0];
    const char* file = words[1].c_str();
    std::vector<char> buffer(size, '\0');

    if (command == "get" && words.size() == 4) {
        const DWORD n = GetPrivateProfileStringA(words[2].c_str(), words[3].c_str(), defaultText,
                                                 buffer.data(), size, file);
        std::string line(buffer.data(), n);
        line += '\n';
        Print(line.data(), line.size());
        return 0;
    }
    if (command == "keys" && words.size() == 3) {
        const DWORD n =
            GetPrivateProfileStringA(words[2].c_str(), nullptr, "", buffer.data(), size, file);
        PrintNameList(buffer, n);
        return 0;
    }
    if (command == "sections" && words.size() == 2) {
        const DWORD n = GetPrivateProfileStringA(nullptr, nullptr, "", buffer.data(), size, file);
        PrintNameList(buffer, n);
        return 0;
    }
    if (command == "int" && words.size() == 5) {
        const UINT value = GetPrivateProfileIntA(
            words[2].c_str(), words[3].c_str(),
            static_cast<INT>(std::strtol(words[4].c_str(), nullptr, 10)), file);
        std::printf("%u\n", value);
        return 0;
    }
    if (command == "set" && words.size() == 5) {
        return WriteResult(
            WritePrivateProfileStringA(words[2].c_str(), words[3].c_str(), words[4].c_str(), file));
    }
    if (command == "delete" && (words.size() == 3 || words.size() == 4)) {
        const char* key = words.size() == 4 ? words[3].c_str() : nullptr;
        return WriteResult(WritePrivateProfileStringA(words[2].c_str(), key, nullptr, file));
    }
    return Usage();
}
