#include "platform/profile_document.h"

#include "platform/ascii_case.h"

#include <algorithm>
#include <cstring>

#include "platform/text_codec.h"

namespace wk::platform {
namespace {

// Blanks of the file grammar: space, TAB and VT. Windows trims nothing else from a line.
constexpr bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\v';
}

std::string_view TrimBlanks(std::string_view s) {
    std::size_t b = 0;
    std::size_t e = s.size();
    while (b < e && IsBlank(s[b])) ++b;
    while (e > b && IsBlank(s[e - 1])) --e;
    return s.substr(b, e - b);
}

std::uint32_t HashFolded(std::string_view s) {
    std::uint32_t h = 2166136261u;
    for (const char c : s) {
        h ^= static_cast<unsigned char>(ToLowerAscii(c));
        h *= 16777619u;
    }
    return h;
}

bool HasLineBreak(std::string_view s) {
    return s.find_first_of("\r\n") != std::string_view::npos;
}

// The name of a header line: after the '[' to the first ']' (or the end), trimmed.
std::string_view HeaderName(std::string_view line) {
    std::size_t b = 0;
    while (b < line.size() && IsBlank(line[b])) ++b;
    const std::string_view rest = line.substr(b + 1);
    const std::size_t close = rest.find(']');
    return TrimBlanks(close == std::string_view::npos ? rest : rest.substr(0, close));
}

// The key of a key line: the text before the first '=', trimmed.
std::string_view KeyName(std::string_view line) {
    return TrimBlanks(line.substr(0, line.find('=')));
}

// The value of a key line: after the first '=', trimmed, and one pair of matching outer
// quotes removed.
std::string_view KeyValue(std::string_view line) {
    std::string_view v = TrimBlanks(line.substr(line.find('=') + 1));
    if (v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.back() == v.front()) {
        v = v.substr(1, v.size() - 2);
    }
    return v;
}

// Open addressing over (hash << 32) | (position + 1); 0 is empty. The stored hash lets a
// probe skip other names without touching their lines. `nameAt` gives the name at a position.
template <typename NameAt>
std::optional<std::size_t> IndexFind(const std::vector<std::uint64_t>& slots, std::string_view name,
                                     std::uint32_t hash, NameAt nameAt) {
    if (slots.empty()) return std::nullopt;
    const std::size_t mask = slots.size() - 1;
    for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
        const std::uint64_t slot = slots[i];
        if (slot == 0) return std::nullopt;
        if (static_cast<std::uint32_t>(slot >> 32) == hash) {
            const std::size_t pos = static_cast<std::uint32_t>(slot) - 1;
            if (EqualsIgnoringAsciiCase(nameAt(pos), name)) return pos;
        }
    }
}

void IndexPlace(std::vector<std::uint64_t>& slots, std::uint32_t hash, std::size_t pos) {
    const std::size_t mask = slots.size() - 1;
    std::size_t i = hash & mask;
    while (slots[i] != 0) i = (i + 1) & mask;
    slots[i] = (static_cast<std::uint64_t>(hash) << 32) | static_cast<std::uint32_t>(pos + 1);
}

// Adds `name` at `pos` unless the name is there already (the first occurrence wins). The
// table is kept at most three quarters full.
template <typename NameAt>
void IndexAdd(std::vector<std::uint64_t>& slots, std::size_t& count, std::string_view name,
              std::size_t pos, NameAt nameAt) {
    const std::uint32_t hash = HashFolded(name);
    if (IndexFind(slots, name, hash, nameAt)) return;
    if ((count + 1) * 4 > slots.size() * 3) {
        std::vector<std::uint64_t> grown(std::max<std::size_t>(8, slots.size() * 2), 0);
        for (const std::uint64_t slot : slots) {
            if (slot != 0) {
                IndexPlace(grown, static_cast<std::uint32_t>(slot >> 32),
                           static_cast<std::uint32_t>(slot) - 1);
            }
        }
        slots.swap(grown);
    }
    IndexPlace(slots, hash, pos);
    ++count;
}

// Sections with fewer lines than this are searched line by line: cheaper than an index.
constexpr std::size_t kLinearSearchLines = 12;

}  // namespace

ProfileDocument::LineKind ProfileDocument::Classify(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && IsBlank(text[i])) ++i;
    if (i == text.size()) return LineKind::Blank;
    if (text[i] == '[') return LineKind::Header;
    if (text[i] == ';') return LineKind::Comment;
    if (std::memchr(text.data() + i, '=', text.size() - i) != nullptr) return LineKind::Key;
    return LineKind::Plain;
}

ProfileDocument::ProfileDocument(std::string fileBytes) {
    if (fileBytes.size() >= 2 && static_cast<unsigned char>(fileBytes[0]) == 0xFF &&
        static_cast<unsigned char>(fileBytes[1]) == 0xFE) {
        utf16_ = true;
        const std::string_view units = std::string_view(fileBytes).substr(2);
        if (units.size() % 2 != 0) {
            hasOddByte_ = true;
            oddByte_ = units.back();
        }
        Parse(Utf16LeToWtf8(units));
    } else {
        Parse(std::move(fileBytes));
    }
}

void ProfileDocument::Parse(std::string content) {
    content_ = std::move(content);
    lines_.clear();
    sections_.clear();
    sectionIndex_ = NameIndex{};
    arena_.clear();
    arena_.shrink_to_fit();
    sections_.emplace_back();  // the lines before the first header
    ParseLinesInto(false, 0, content_.size());
    lines_.shrink_to_fit();
}

void ProfileDocument::ParseLinesInto(bool inArena, std::size_t beginOffset, std::size_t endOffset) {
    // The next CR and LF are looked up once each and reused, so that a file with only one
    // kind of line end is still scanned in linear time.
    const char* const base = inArena ? arena_.data() : content_.data();
    const char* const end = base + endOffset;
    const char* p = base + beginOffset;
    const std::uint32_t flag = inArena ? kInArena : 0;
    const char* nextCr = nullptr;
    const char* nextLf = nullptr;
    const auto find = [&](const char*& cached, char c) {
        if (cached == end || (cached != nullptr && cached >= p)) return;
        const void* hit = std::memchr(p, c, static_cast<std::size_t>(end - p));
        cached = hit ? static_cast<const char*>(hit) : end;
    };
    while (p < end) {
        find(nextCr, '\r');
        find(nextLf, '\n');
        const char* stop = std::min(nextCr, nextLf);
        std::uint8_t terminator = 0;
        if (stop < end) {
            terminator = (*stop == '\r' && stop + 1 < end && stop[1] == '\n') ? 2 : 1;
        }
        const std::string_view text(p, static_cast<std::size_t>(stop - p));
        AddLine(Line{static_cast<std::uint32_t>(p - base) | flag,
                     static_cast<std::uint32_t>(text.size()), terminator, Classify(text)});
        p = stop + terminator;
    }
}

void ProfileDocument::AddLine(const Line& line) {
    if (line.kind == LineKind::Header) {
        Section section;
        section.begin = static_cast<std::uint32_t>(lines_.size());
        section.end = section.begin + 1;
        lines_.push_back(line);
        sections_.push_back(std::move(section));
        const std::size_t pos = sections_.size() - 1;
        IndexAdd(sectionIndex_.slots, sectionIndex_.count, HeaderName(Text(line)), pos,
                 [this](std::size_t i) { return HeaderName(Text(LineAt(sections_[i], 0))); });
        return;
    }
    Section& current = sections_.back();
    if (current.detached) {
        current.ownLines.push_back(line);
    } else {
        lines_.push_back(line);
        current.end = static_cast<std::uint32_t>(lines_.size());
    }
}

// Replaced lines stay in the arena until the next re-read of the document's own bytes: many
// rewrites of a long value in one batch must not make the arena grow without bound.
void ProfileDocument::CompactIfArenaLarge() {
    if (arena_.size() > 2 * content_.size() + 65536) Reparse();
}

void ProfileDocument::Reparse() {
    Parse(SerializeContent());
}

std::size_t ProfileDocument::LineCount(const Section& section) const {
    return section.detached ? section.ownLines.size() : section.end - section.begin;
}

const ProfileDocument::Line& ProfileDocument::LineAt(const Section& section, std::size_t i) const {
    return section.detached ? section.ownLines[i] : lines_[section.begin + i];
}

std::vector<ProfileDocument::Line>& ProfileDocument::Detach(Section& section) {
    if (!section.detached) {
        section.ownLines.assign(lines_.begin() + section.begin, lines_.begin() + section.end);
        section.detached = true;
    }
    return section.ownLines;
}

ProfileDocument::Line ProfileDocument::MakeLine(std::string_view text, std::string_view terminator,
                                                LineKind kind) {
    // `text` may lie in the arena itself: copy it before the arena grows.
    std::string stored;
    stored.reserve(text.size() + terminator.size());
    stored.append(text).append(terminator);
    const std::size_t offset = arena_.size();
    arena_.append(stored);
    return Line{static_cast<std::uint32_t>(offset) | kInArena,
                static_cast<std::uint32_t>(text.size()),
                static_cast<std::uint8_t>(terminator.size()), kind};
}

std::optional<std::size_t> ProfileDocument::FindSection(std::string_view name) const {
    return IndexFind(sectionIndex_.slots, name, HashFolded(name),
                     [this](std::size_t i) { return HeaderName(Text(LineAt(sections_[i], 0))); });
}

void ProfileDocument::BuildKeyIndex(const Section& section) const {
    NameIndex index;
    const std::size_t n = LineCount(section);
    const auto nameAt = [&](std::size_t i) { return KeyName(Text(LineAt(section, i))); };
    for (std::size_t i = 1; i < n; ++i) {
        const Line& line = LineAt(section, i);
        if (line.kind == LineKind::Key) {
            IndexAdd(index.slots, index.count, KeyName(Text(line)), i, nameAt);
        }
    }
    section.keyIndex = std::move(index);
    section.keyIndexBuilt = true;
}

std::optional<std::size_t> ProfileDocument::FindKey(const Section& section,
                                                    std::string_view key) const {
    const std::size_t n = LineCount(section);
    if (n <= kLinearSearchLines) {
        for (std::size_t i = 1; i < n; ++i) {
            const Line& line = LineAt(section, i);
            if (line.kind == LineKind::Key && EqualsIgnoringAsciiCase(KeyName(Text(line)), key)) return i;
        }
        return std::nullopt;
    }
    if (!section.keyIndexBuilt) BuildKeyIndex(section);
    return IndexFind(section.keyIndex.slots, key, HashFolded(key),
                     [&](std::size_t i) { return KeyName(Text(LineAt(section, i))); });
}

std::optional<std::string_view> ProfileDocument::Value(std::string_view section,
                                                       std::string_view key) const {
    const auto s = FindSection(section);
    if (!s) return std::nullopt;
    const Section& sec = sections_[*s];
    const auto k = FindKey(sec, key);
    if (!k) return std::nullopt;
    return KeyValue(Text(LineAt(sec, *k)));
}

void ProfileDocument::AppendSectionNames(std::string& out) const {
    for (std::size_t s = 1; s < sections_.size(); ++s) {
        out.append(HeaderName(Text(LineAt(sections_[s], 0))));
        out.push_back('\0');
    }
}

bool ProfileDocument::AppendKeyNames(std::string_view section, std::string& out) const {
    const auto s = FindSection(section);
    if (!s) return false;
    const Section& sec = sections_[*s];
    const std::size_t n = LineCount(sec);
    for (std::size_t i = 1; i < n; ++i) {
        const Line& line = LineAt(sec, i);
        if (line.kind == LineKind::Key) {
            out.append(KeyName(Text(line)));
            out.push_back('\0');
        }
    }
    return true;
}

const ProfileDocument::Line* ProfileDocument::LastLine() const {
    for (std::size_t s = sections_.size(); s-- > 0;) {
        const std::size_t n = LineCount(sections_[s]);
        if (n > 0) return &LineAt(sections_[s], n - 1);
    }
    return nullptr;
}

bool ProfileDocument::SetValue(std::string_view section, std::string_view key,
                               std::string_view value) {
    const auto s = FindSection(section);
    if (!s) {
        // A new section goes at the end of the file, on a line of its own.
        const Line* last = LastLine();
        if (last != nullptr && last->terminatorLength == 0) {
            Section& lastSection = sections_.back();
            std::vector<Line>& lines = Detach(lastSection);
            const Line old = lines.back();
            lines.back() = MakeLine(Text(old), "\r\n", old.kind);
        } else if (last == nullptr && utf16_) {
            // A file holding only its byte-order mark is not empty: the header goes on the
            // second line, as Windows writes it.
            std::vector<Line>& lines = Detach(sections_.back());
            lines.push_back(MakeLine("", "\r\n", LineKind::Blank));
        }
        std::string text;
        text.reserve(section.size() + key.size() + value.size() + 8);
        text.append("[").append(section).append("]\r\n");
        text.append(key).append("=").append(value).append("\r\n");
        const std::size_t offset = arena_.size();
        arena_.append(text);
        // Parsing the new text as the continuation of the file gives exactly what reading
        // the file again would, even when a name holds a line break or a ']'.
        ParseLinesInto(true, offset, arena_.size());
        return true;
    }
    Section& sec = sections_[*s];
    if (const auto k = FindKey(sec, key)) {
        // The line keeps its text up to and including '=', and its line end.
        const Line& line = LineAt(sec, *k);
        const std::string_view text = Text(line);
        const std::size_t eq = text.find('=');
        if (text.substr(eq + 1) == value && line.terminatorLength != 0) return false;
        std::string newText;
        newText.reserve(eq + 1 + value.size());
        newText.append(text.substr(0, eq + 1)).append(value);
        const std::string ownTerminator(line.terminatorLength == 0
                                            ? std::string_view("\r\n")
                                            : TextWithTerminator(line).substr(line.length));
        std::vector<Line>& lines = Detach(sec);
        lines[*k] = MakeLine(newText, ownTerminator, LineKind::Key);
        if (HasLineBreak(value)) {
            Reparse();
        } else {
            CompactIfArenaLarge();
        }
        return true;
    }
    // A new key goes right after the section's last key line (a line without '=' counts),
    // or right after the header: comments and blank lines closing the section stay last.
    std::vector<Line>& lines = Detach(sec);
    std::size_t pos = lines.size();
    while (pos > 1 && lines[pos - 1].kind != LineKind::Key &&
           lines[pos - 1].kind != LineKind::Plain) {
        --pos;
    }
    std::string newText;
    newText.reserve(key.size() + 1 + value.size());
    newText.append(key).append("=").append(value);
    const LineKind kind = Classify(newText);
    if (lines[pos - 1].terminatorLength == 0) {
        const Line old = lines[pos - 1];
        lines[pos - 1] = MakeLine(Text(old), "\r\n", old.kind);
    }
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(pos), MakeLine(newText, "\r\n", kind));
    if (HasLineBreak(newText) || (kind != LineKind::Key && kind != LineKind::Comment)) {
        // A name that starts a header or holds a line break changes the file's structure.
        Reparse();
    } else if (kind == LineKind::Key && sec.keyIndexBuilt) {
        // Every key line lies before `pos`, so the indexed positions did not move.
        IndexAdd(sec.keyIndex.slots, sec.keyIndex.count, KeyName(newText), pos,
                 [&](std::size_t i) { return KeyName(Text(lines[i])); });
    }
    CompactIfArenaLarge();
    return true;
}

bool ProfileDocument::DeleteKey(std::string_view section, std::string_view key) {
    const auto s = FindSection(section);
    if (!s) return false;
    Section& sec = sections_[*s];
    const auto k = FindKey(sec, key);
    if (!k) return false;
    std::vector<Line>& lines = Detach(sec);
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(*k));
    sec.keyIndex = NameIndex{};
    sec.keyIndexBuilt = false;
    // A lone CR before an empty LF-ended line now reads as one CRLF: take the file's new
    // structure from its bytes.
    if (*k < lines.size() && TextWithTerminator(lines[*k - 1]).ends_with('\r') &&
        TextWithTerminator(lines[*k]) == "\n") {
        Reparse();
    }
    return true;
}

bool ProfileDocument::DeleteSection(std::string_view section) {
    const auto s = FindSection(section);
    if (!s) return false;
    // The header, the key lines and the lines without '=' go; comments and blank lines stay
    // where they are (and so become part of the section before).
    std::vector<Line>& lines = Detach(sections_[*s]);
    std::erase_if(lines, [](const Line& line) {
        return line.kind == LineKind::Header || line.kind == LineKind::Key ||
               line.kind == LineKind::Plain;
    });
    Reparse();
    return true;
}

std::string ProfileDocument::SerializeContent() const {
    std::string content;
    content.reserve(content_.size() + arena_.size());
    // Lines that lie next to each other in the same buffer are copied as one run.
    std::uint32_t runStart = 0;
    std::size_t runLength = 0;
    bool inRun = false;
    const auto flush = [&] {
        if (!inRun) return;
        const char* base = (runStart & kInArena) ? arena_.data() : content_.data();
        content.append(base + (runStart & ~kInArena), runLength);
    };
    for (const Section& section : sections_) {
        const std::size_t n = LineCount(section);
        for (std::size_t i = 0; i < n; ++i) {
            const Line& line = LineAt(section, i);
            const std::size_t length = std::size_t{line.length} + line.terminatorLength;
            if (inRun && runStart + runLength == line.offset &&
                (runStart & kInArena) == (line.offset & kInArena)) {
                runLength += length;
            } else {
                flush();
                runStart = line.offset;
                runLength = length;
                inRun = true;
            }
        }
    }
    flush();
    return content;
}

std::string ProfileDocument::Serialize() const {
    std::string content = SerializeContent();
    if (!utf16_) return content;
    std::string bytes = "\xFF\xFE";
    bytes += Wtf8ToUtf16Le(content);
    if (hasOddByte_) bytes.push_back(oddByte_);
    return bytes;
}

std::size_t ProfileDocument::BytesHeld() const {
    std::size_t bytes = sizeof(*this) + content_.capacity() + lines_.capacity() * sizeof(Line) +
                        sections_.capacity() * sizeof(Section) +
                        sectionIndex_.slots.capacity() * sizeof(std::uint64_t) + arena_.capacity();
    for (const Section& section : sections_) {
        bytes += section.ownLines.capacity() * sizeof(Line);
        bytes += section.keyIndex.slots.capacity() * sizeof(std::uint64_t);
    }
    return bytes;
}

}  // namespace wk::platform
