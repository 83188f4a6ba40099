// Fuzzes the profile engine's document: any bytes parse and serialise back unchanged; after
// any sequence of writes and deletes the document equals a fresh parse of its own bytes, and
// a further edit gives the same bytes on both.
//
// Input: the file's bytes, then 0xF7 0xF7 0xF7, then operations separated by 0x01, each
// "<op byte><section>\x02<key>\x02<value>" (op % 4: set, set, delete key, delete section).

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "platform/profile_document.h"

namespace {

using wk::platform::ProfileDocument;

std::vector<std::string_view> Split(std::string_view s, char separator) {
    std::vector<std::string_view> parts;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= s.size(); ++i) {
        if (i == s.size() || s[i] == separator) {
            parts.push_back(s.substr(start, i - start));
            start = i + 1;
        }
    }
    return parts;
}

std::string Observe(const ProfileDocument& doc, const std::vector<std::string>& names) {
    std::string seen;
    doc.AppendSectionNames(seen);
    seen += '|';
    for (const std::string& s : names) {
        seen += doc.AppendKeyNames(s, seen) ? '+' : '-';
        for (const std::string& k : names) {
            const auto v = doc.Value(s, k);
            seen += v ? std::string(*v) + '\x03' : std::string("#\x03");
        }
    }
    return seen;
}

void Check(bool ok) {
    if (!ok) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t mark = input.find("\xF7\xF7\xF7");
    const std::string file(input.substr(0, mark));
    const std::string_view ops =
        mark == std::string_view::npos ? std::string_view() : input.substr(mark + 3);

    ProfileDocument doc(file);
    Check(doc.Serialize() == file);

    std::vector<std::string> names = {"", "a", "S"};
    for (const std::string_view op : Split(ops, '\x01')) {
        if (op.empty()) continue;
        const std::vector<std::string_view> fields = Split(op.substr(1), '\x02');
        const std::string section(fields[0]);
        const std::string key(fields.size() > 1 ? fields[1] : std::string_view("k"));
        const std::string value(fields.size() > 2 ? fields[2] : std::string_view("v"));
        names.push_back(section);
        names.push_back(key);
        switch (static_cast<unsigned char>(op[0]) % 4) {
            case 0:
            case 1:
                doc.SetValue(section, key, value);
                break;
            case 2:
                doc.DeleteKey(section, key);
                break;
            default:
                doc.DeleteSection(section);
                break;
        }
        if (names.size() > 12) names.erase(names.begin() + 3, names.begin() + 5);
    }
    const std::string bytes = doc.Serialize();
    ProfileDocument reread(bytes);
    Check(reread.Serialize() == bytes);
    if (!doc.IsUtf16()) Check(Observe(doc, names) == Observe(reread, names));
    doc.SetValue("a", "k", "z");
    reread.SetValue("a", "k", "z");
    Check(doc.Serialize() == reread.Serialize());
    return 0;
}
