#include "platform/resource_library.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>

#include "platform/ansi_code_page.h"
#include "platform/file_lookup.h"
#include "platform/host_path.h"

namespace wk {

// The library's bytes and where each string lies in them: strings are decoded when fetched,
// so a library whose blocks all point at the same large data costs no more than its size.
struct ResourceModule {
    struct StringSpan {
        std::uint64_t offset;  // of the first UTF-16LE character
        std::uint32_t count;   // characters
    };
    std::vector<unsigned char> bytes;
    std::map<unsigned, StringSpan> strings;
};

namespace platform {
namespace {

constexpr std::uint32_t kResourceTypeString = 6;  // RT_STRING
constexpr std::uint32_t kResourceDirectoryIndex = 2;
constexpr std::uint32_t kLanguageNeutral = 0;
// A language library is a few hundred kilobytes; a file beyond this is not one, and is not
// read into memory.
constexpr std::uintmax_t kMaxLibrarySize = 64u * 1024u * 1024u;
// Block ids run from 1 to 4096. A block is given in a language or a few; a list of more
// languages than this is damage, and is not searched (it would make loading slow).
constexpr std::uint64_t kMaxBlocks = 4096;
constexpr std::uint64_t kMaxLanguagesPerBlock = 1024;

// Bounds-checked little-endian reads from the file image. Every accessor fails (returns
// false) rather than read past the end, so a damaged file can only fail to load.
class Image {
public:
    explicit Image(const std::vector<unsigned char>& bytes) : bytes_(bytes) {}

    bool Has(std::uint64_t offset, std::uint64_t length) const {
        return offset <= bytes_.size() && length <= bytes_.size() - offset;
    }
    bool U16(std::uint64_t offset, std::uint32_t& value) const {
        if (!Has(offset, 2)) return false;
        value = static_cast<std::uint32_t>(bytes_[offset]) |
                static_cast<std::uint32_t>(bytes_[offset + 1]) << 8;
        return true;
    }
    bool U32(std::uint64_t offset, std::uint32_t& value) const {
        if (!Has(offset, 4)) return false;
        value = static_cast<std::uint32_t>(bytes_[offset]) |
                static_cast<std::uint32_t>(bytes_[offset + 1]) << 8 |
                static_cast<std::uint32_t>(bytes_[offset + 2]) << 16 |
                static_cast<std::uint32_t>(bytes_[offset + 3]) << 24;
        return true;
    }

private:
    const std::vector<unsigned char>& bytes_;
};

struct Section {
    std::uint32_t virtualAddress;
    std::uint32_t virtualSize;
    std::uint32_t rawSize;
    std::uint32_t rawOffset;
};

// Where in the file `length` bytes at relative virtual address `rva` lie. Only bytes that
// the file holds count: data in the zero-filled tail of a section is not a string table.
std::optional<std::uint64_t> RvaToOffset(const Image& image, const std::vector<Section>& sections,
                                         std::uint32_t rva, std::uint32_t length) {
    for (const Section& s : sections) {
        std::uint64_t start = s.virtualAddress;
        std::uint64_t span = std::max(s.virtualSize, s.rawSize);
        if (rva < start || rva - start >= span) continue;
        std::uint64_t within = rva - start;
        if (within + length > s.rawSize) return std::nullopt;
        std::uint64_t offset = static_cast<std::uint64_t>(s.rawOffset) + within;
        if (!image.Has(offset, length)) return std::nullopt;
        return offset;
    }
    return std::nullopt;
}

struct DirectoryEntry {
    std::uint32_t id;
    bool isNamed;
    bool isDirectory;
    std::uint32_t offset;  // from the start of the resource directory
};

// The entries of the resource directory at `offset` (from `base`, the start of the
// resource data in the file, which holds `size` bytes).
bool ReadDirectory(const Image& image, std::uint64_t base, std::uint32_t size, std::uint32_t offset,
                   std::vector<DirectoryEntry>& entries, std::uint64_t maxEntries) {
    entries.clear();
    std::uint32_t named = 0;
    std::uint32_t numbered = 0;
    if (offset > size || size - offset < 16) return false;
    if (!image.U16(base + offset + 12, named) || !image.U16(base + offset + 14, numbered))
        return false;
    std::uint64_t count = static_cast<std::uint64_t>(named) + numbered;
    if ((size - offset - 16) / 8 < count || count > maxEntries) return false;
    for (std::uint64_t i = 0; i < count; ++i) {
        std::uint64_t at = base + offset + 16 + i * 8;
        std::uint32_t name = 0;
        std::uint32_t data = 0;
        if (!image.U32(at, name) || !image.U32(at + 4, data)) return false;
        entries.push_back({name & 0x7fffffffu, (name & 0x80000000u) != 0, (data & 0x80000000u) != 0,
                           data & 0x7fffffffu});
    }
    return true;
}

// The entry of a block's language directory to use: language neutral, else the first.
const DirectoryEntry* ChooseLanguage(const std::vector<DirectoryEntry>& languages) {
    const DirectoryEntry* chosen = nullptr;
    for (const DirectoryEntry& e : languages) {
        if (e.isDirectory) continue;
        if (!e.isNamed && e.id == kLanguageNeutral) return &e;
        if (!chosen) chosen = &e;
    }
    return chosen;
}

// Adds the 16 strings of block `blockId` held in `length` bytes at file offset `offset`.
bool ReadStringBlock(const Image& image, std::uint64_t offset, std::uint32_t length,
                     std::uint32_t blockId, ResourceModule& module) {
    std::uint64_t at = offset;
    std::uint64_t end = offset + length;
    for (unsigned index = 0; index < 16; ++index) {
        if (at == end) break;  // a block may end early: the strings after it are missing
        std::uint32_t count = 0;
        if (end - at < 2 || !image.U16(at, count)) return false;
        at += 2;
        if ((end - at) / 2 < count) return false;
        if (count > 0) {
            if (!image.Has(at, 2ull * count)) return false;
            unsigned id = (blockId - 1) * 16 + index;
            module.strings.emplace(id, ResourceModule::StringSpan{at, count});
        }
        at += 2ull * count;
    }
    return true;
}

}  // namespace

ModuleHandle LoadLibraryFromBytes(const std::vector<unsigned char>& bytes) {
    Image image(bytes);
    std::uint32_t magic = 0;
    std::uint32_t peOffset = 0;
    if (!image.U16(0, magic) || magic != 0x5a4d /* "MZ" */) return nullptr;
    if (!image.U32(0x3c, peOffset)) return nullptr;
    std::uint32_t signature = 0;
    if (!image.U32(peOffset, signature) || signature != 0x00004550 /* "PE\0\0" */) return nullptr;

    std::uint64_t coff = static_cast<std::uint64_t>(peOffset) + 4;
    std::uint32_t sectionCount = 0;
    std::uint32_t optionalSize = 0;
    if (!image.U16(coff + 2, sectionCount) || !image.U16(coff + 16, optionalSize)) return nullptr;

    std::uint64_t optional = coff + 20;
    std::uint32_t optionalMagic = 0;
    if (!image.U16(optional, optionalMagic)) return nullptr;
    std::uint32_t directoriesAt = 0;
    if (optionalMagic == 0x10b) {
        directoriesAt = 96;  // PE32
    } else if (optionalMagic == 0x20b) {
        directoriesAt = 112;  // PE32+
    } else {
        return nullptr;
    }
    std::uint32_t directoryCount = 0;
    if (!image.U32(optional + directoriesAt - 4, directoryCount)) return nullptr;
    if (directoryCount <= kResourceDirectoryIndex) return nullptr;
    std::uint64_t resourceEntry = optional + directoriesAt + 8ull * kResourceDirectoryIndex;
    if (resourceEntry + 8 > optional + optionalSize) return nullptr;
    std::uint32_t resourceRva = 0;
    std::uint32_t resourceSize = 0;
    if (!image.U32(resourceEntry, resourceRva) || !image.U32(resourceEntry + 4, resourceSize))
        return nullptr;
    if (resourceRva == 0 || resourceSize < 16) return nullptr;

    std::vector<Section> sections;
    std::uint64_t sectionTable = optional + optionalSize;
    for (std::uint32_t i = 0; i < sectionCount; ++i) {
        std::uint64_t at = sectionTable + 40ull * i;
        Section s{};
        if (!image.U32(at + 8, s.virtualSize) || !image.U32(at + 12, s.virtualAddress) ||
            !image.U32(at + 16, s.rawSize) || !image.U32(at + 20, s.rawOffset))
            return nullptr;
        // As the Windows loader: every section the header declares must be in the file, so
        // a copy cut short does not load even when its string table lies before the cut.
        if (s.rawSize > 0 && !image.Has(s.rawOffset, s.rawSize)) return nullptr;
        sections.push_back(s);
    }

    // The whole resource directory as the header declares it must be in the file.
    std::optional<std::uint64_t> base = RvaToOffset(image, sections, resourceRva, resourceSize);
    if (!base) return nullptr;

    auto module = std::make_unique<ResourceModule>();
    module->bytes = bytes;
    std::vector<DirectoryEntry> types;
    // Types are numbered 1 to 65535 or named; the count is bounded by the directory's size.
    if (!ReadDirectory(image, *base, resourceSize, 0, types, 0x20000)) return nullptr;
    bool haveStringTable = false;
    for (const DirectoryEntry& type : types) {
        if (type.isNamed || type.id != kResourceTypeString) continue;
        if (!type.isDirectory) return nullptr;
        haveStringTable = true;
        std::vector<DirectoryEntry> blocks;
        if (!ReadDirectory(image, *base, resourceSize, type.offset, blocks, kMaxBlocks))
            return nullptr;
        for (const DirectoryEntry& block : blocks) {
            // Blocks are numbered 1 to 4096 (ids 0 to 65535); anything else is not a block.
            if (block.isNamed || !block.isDirectory || block.id < 1 || block.id > 4096)
                return nullptr;
            std::vector<DirectoryEntry> languages;
            if (!ReadDirectory(image, *base, resourceSize, block.offset, languages,
                               kMaxLanguagesPerBlock))
                return nullptr;
            const DirectoryEntry* language = ChooseLanguage(languages);
            if (!language) return nullptr;
            std::uint32_t dataRva = 0;
            std::uint32_t dataSize = 0;
            if (language->offset > resourceSize || resourceSize - language->offset < 16 ||
                !image.U32(*base + language->offset, dataRva) ||
                !image.U32(*base + language->offset + 4, dataSize))
                return nullptr;
            std::optional<std::uint64_t> data = RvaToOffset(image, sections, dataRva, dataSize);
            if (!data) return nullptr;
            if (!ReadStringBlock(image, *data, dataSize, block.id, *module)) return nullptr;
        }
        break;
    }
    if (!haveStringTable) return nullptr;
    return module.release();
}

std::vector<unsigned> StringIds(ModuleHandle module) {
    std::vector<unsigned> ids;
    if (!module) return ids;
    for (const auto& entry : module->strings) ids.push_back(entry.first);
    return ids;
}

}  // namespace platform

ModuleHandle LoadLibraryA(const char* fileName) {
    if (!fileName) return nullptr;
    std::optional<std::string> path = platform::FindFileIgnoringCase(fileName);
    if (!path) return nullptr;
    std::error_code ec;
    const std::filesystem::path hostPath = platform::PathFromAnsi(*path);
    std::uintmax_t size = std::filesystem::file_size(hostPath, ec);
    if (ec || size > platform::kMaxLibrarySize) return nullptr;
    std::ifstream in(hostPath, std::ios::binary);
    if (!in) return nullptr;
    std::vector<unsigned char> bytes(static_cast<std::size_t>(size));
    if (size > 0 &&
        !in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size())))
        return nullptr;
    return platform::LoadLibraryFromBytes(bytes);
}

int LoadStringA(ModuleHandle module, unsigned id, char* buffer, int bufferMax) {
    if (!buffer || bufferMax <= 0) return 0;
    buffer[0] = '\0';
    if (!module) return 0;
    auto it = module->strings.find(id);
    if (it == module->strings.end()) return 0;
    // Only what can fit is decoded: twice the buffer in UTF-16 units covers it even when
    // every character is a surrogate pair.
    const ResourceModule::StringSpan& span = it->second;
    std::u16string text;
    std::uint64_t wanted =
        std::min<std::uint64_t>(span.count, 2ull * static_cast<unsigned>(bufferMax));
    text.reserve(wanted);
    for (std::uint64_t i = 0; i < wanted; ++i) {
        std::uint64_t at = span.offset + 2ull * i;
        text.push_back(static_cast<char16_t>(module->bytes[at] | module->bytes[at + 1] << 8));
    }
    std::string ansi = platform::Utf16ToAnsi(text);
    std::size_t count = std::min(ansi.size(), static_cast<std::size_t>(bufferMax - 1));
    std::copy_n(ansi.data(), count, buffer);
    buffer[count] = '\0';
    return static_cast<int>(count);
}

bool FreeLibrary(ModuleHandle module) {
    if (!module) return false;
    delete module;
    return true;
}

}  // namespace wk
