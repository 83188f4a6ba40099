#pragma once
// One settings file in memory: its bytes, the table of its lines, its sections, and the edits
// the profile functions make to it.
//
// The file's bytes are kept in one buffer; a line is a view into it (or into the arena that
// holds edited and new lines) with its terminator and its kind. A section is a run of lines
// starting at its header; a section that is edited gets its own copy of its lines, so that
// adding a key to it does not move the rest of the file. Saving concatenates the line views,
// so every byte that was not edited is written back as it was read.
//
// Names are compared without regard to ASCII case only: bytes 0x80 and above must match
// exactly. The measuring application's sections and keys are plain ASCII, and this keeps a
// name's meaning independent of the code page.
//
// A file that starts with the UTF-16LE byte-order mark FF FE is held as WTF-8 (UTF-8 that
// keeps unpaired surrogates), since the grammar's delimiters are all ASCII; saving encodes it
// back to UTF-16LE, giving the same bytes for every line that was not edited. The names and
// values a caller passes and gets are in that internal form; the profile functions convert
// between it and the ANSI code page.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wk::platform {

class ProfileDocument {
public:
    // The largest file the engine reads or writes: 64 MiB. A settings file is a few
    // kilobytes (a few megabytes at the very most, with long compensation tables); anything
    // larger is not a settings file, and reading it would only cost memory (about three times
    // the file while it is held). The store refuses larger files: reads give the default and
    // writes fail, with the reason "File too large". Lines are addressed with 31-bit offsets,
    // which this limit keeps far away.
    static constexpr std::size_t kMaxFileBytes = std::size_t{64} << 20;

    // Parses the bytes of a file (empty for a file that does not exist yet).
    explicit ProfileDocument(std::string fileBytes);

    ProfileDocument(const ProfileDocument&) = delete;
    ProfileDocument& operator=(const ProfileDocument&) = delete;

    // True for a file that starts with the UTF-16LE byte-order mark.
    bool IsUtf16() const { return utf16_; }

    // The value of `key` in the first section named `section` (names exactly as to be
    // compared: the caller trims its arguments), trimmed of blanks and of one pair of outer
    // quotes. nullopt when the section or the key is missing.
    std::optional<std::string_view> Value(std::string_view section, std::string_view key) const;

    // Appends the names of all section headers, in file order, each followed by a NUL.
    void AppendSectionNames(std::string& out) const;

    // Appends the names of the key lines of the first section named `section`, each followed
    // by a NUL. False when there is no such section.
    bool AppendKeyNames(std::string_view section, std::string& out) const;

    // Edits with the placement rules of WritePrivateProfileStringA. Names are written as
    // given (the caller trims them); each returns true when the file's bytes changed.
    bool SetValue(std::string_view section, std::string_view key, std::string_view value);
    bool DeleteKey(std::string_view section, std::string_view key);
    bool DeleteSection(std::string_view section);

    // The file's bytes as they are now.
    std::string Serialize() const;

    // Bytes of memory the document holds (buffers, line tables, indexes).
    std::size_t BytesHeld() const;

    enum class LineKind : std::uint8_t { Blank, Header, Comment, Key, Plain };
    static LineKind Classify(std::string_view lineText);

private:
    // A line: where its text lies (in the file's buffer, or in the arena when the high bit
    // of `offset` is set), followed by its terminator bytes ("\r\n", "\r", "\n" or none), so
    // that unedited neighbours serialise as one run. Offsets rather than pointers keep the
    // table small and let the arena grow.
    struct Line {
        std::uint32_t offset;
        std::uint32_t length;  // without the terminator
        std::uint8_t terminatorLength;
        LineKind kind;
    };
    static constexpr std::uint32_t kInArena = 0x80000000u;

    // An open-addressing table of names to line positions: (hash << 32) | (position + 1),
    // 0 is empty. A section's key table is built when a lookup first needs it.
    struct NameIndex {
        std::vector<std::uint64_t> slots;
        std::size_t count = 0;
    };

    struct Section {
        std::uint32_t begin = 0;  // range in lines_ while the section is untouched
        std::uint32_t end = 0;
        bool detached = false;  // its lines live in ownLines from now on
        std::vector<Line> ownLines;
        mutable NameIndex keyIndex;  // first occurrence of each key name, once built
        mutable bool keyIndexBuilt = false;
    };

    std::string_view Text(const Line& line) const {
        const char* base = (line.offset & kInArena) ? arena_.data() : content_.data();
        return {base + (line.offset & ~kInArena), line.length};
    }
    std::string_view TextWithTerminator(const Line& line) const {
        const char* base = (line.offset & kInArena) ? arena_.data() : content_.data();
        return {base + (line.offset & ~kInArena), std::size_t{line.length} + line.terminatorLength};
    }

    void Parse(std::string content);
    void ParseLinesInto(bool inArena, std::size_t begin, std::size_t end);
    void AddLine(const Line& line);
    void Reparse();
    void CompactIfArenaLarge();
    std::string SerializeContent() const;

    std::size_t LineCount(const Section& section) const;
    const Line& LineAt(const Section& section, std::size_t i) const;
    std::vector<Line>& Detach(Section& section);

    std::optional<std::size_t> FindSection(std::string_view name) const;
    std::optional<std::size_t> FindKey(const Section& section, std::string_view key) const;
    void BuildKeyIndex(const Section& section) const;
    void BuildSectionIndex();

    Line MakeLine(std::string_view text, std::string_view terminator, LineKind kind);
    bool ContentEndsWithLineEnd() const;
    bool ContentEmpty() const;
    const Line* LastLine() const;

    std::string content_;  // the parsed bytes (internal form for UTF-16 files)
    bool utf16_ = false;
    bool hasOddByte_ = false;  // a UTF-16 file of odd length: its last byte, kept as is
    char oddByte_ = 0;
    std::vector<Line> lines_;        // all lines in file order, as parsed
    std::vector<Section> sections_;  // [0]: the lines before the first header
    NameIndex sectionIndex_;
    std::string arena_;  // edited and new lines, appended only
};

}  // namespace wk::platform
