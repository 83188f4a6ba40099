// `wkestel profile`: the private-profile functions, one call per command, with the buffer
// size of the caller's choice, so that an engineer sees exactly what the measuring
// application's own calls would get.

#include <CLI/CLI.hpp>
#include <cstdint>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/file_state.h"
#include "cli/force_option.h"
#include "cli/help_texts.h"
#include "cli/windows_directory_check.h"
#include "platform/profile.h"
#include "platform/profile_files.h"

namespace wk::cli {
namespace {

constexpr std::uint32_t kDefaultBufferSize = 65536;

constexpr char kSectionHelp[] = "Section name, matched without regard to case";
constexpr char kKeyHelp[] = "Key name, matched without regard to case";

// A listing as the buffer delivers it: NUL-separated names within the returned length.
// A name cut by the buffer is printed cut, as the measuring application would see it.
void PrintNameList(const std::vector<char>& buffer, std::uint32_t length, std::ostream& out) {
    std::string name;
    for (std::uint32_t i = 0; i < length; ++i) {
        if (buffer[i] == '\0') {
            out << name << '\n';
            name.clear();
        } else {
            name += buffer[i];
        }
    }
    if (!name.empty()) out << name << '\n';
}

// The buffer size must leave room for the terminating NUL the functions always write.
void AddSizeOption(CLI::App* command, std::uint32_t& size) {
    command
        ->add_option("--size", size,
                     "Buffer size in characters, NUL included (default 65536): a longer text "
                     "is cut as the function cuts it")
        ->type_name("N")
        ->check(CLI::Range(1u, 16u * 1024u * 1024u));
}

void ReportWriteResult(bool ok, CliContext& ctx) {
    if (!ok) {
        ctx.err << "wkestel: " << LastProfileError();
        if (platform::LastProfileFailure().reason.find("read-only") != std::string::npos)
            ctx.err << " (--force replaces it all the same)";
        ctx.err << '\n';
        ctx.exitCode = 1;
    }
}

bool HasLineBreak(const std::string& text) {
    return text.find_first_of("\r\n") != std::string::npos;
}

std::string TrimmedOfSpaces(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// What of a write the Windows call makes verbatim but no read can give back as written: the
// call has no escaping, so such names and values change the file's structure. The write is
// made all the same (it is the call's behaviour), and the user is told.
std::vector<std::string> ReadBackProblems(const std::string& section, const std::string& key,
                                          const std::string* value) {
    std::vector<std::string> problems;
    if (HasLineBreak(section)) problems.push_back("the section name holds a line break");
    if (section.find(']') != std::string::npos)
        problems.push_back("the section name holds \"]\", where the header's name ends");
    if (HasLineBreak(key)) problems.push_back("the key holds a line break");
    if (key.find('=') != std::string::npos)
        problems.push_back("the key holds \"=\", where the key's name ends");
    const std::string trimmedKey = TrimmedOfSpaces(key);
    if (!trimmedKey.empty() && trimmedKey.front() == ';')
        problems.push_back("the key begins with \";\", which makes the line a comment");
    if (!trimmedKey.empty() && trimmedKey.front() == '[')
        problems.push_back("the key begins with \"[\", which makes the line a section header");
    if (value != nullptr && HasLineBreak(*value))
        problems.push_back("the value holds a line break, which starts new lines in the file");
    return problems;
}

void WarnOfReadBackProblems(const std::vector<std::string>& problems, CliContext& ctx) {
    for (const std::string& problem : problems) {
        ctx.err << "wkestel: warning: " << problem
                << ": written as the Windows call writes it, but it cannot be read back as "
                   "written\n";
    }
}

struct ProfileArgs {
    std::string file, section, key, value, defaultText;
    bool hasDefault = false;
    bool force = false;
    std::int32_t intDefault = 0;
    std::uint32_t size = kDefaultBufferSize;
};

void AddForceOption(CLI::App* command, bool& force) {
    command->add_flag("--force", force,
                      "Replace the file even when it is read-only (its mode stays read-only)");
}

}  // namespace

void AddProfileCommand(CLI::App& app, CliContext& ctx) {
    auto* profile = app.add_subcommand(
        "profile",
        "Read and write INI files as the Windows private-profile functions do, one call per\n"
        "command: names of files, sections and keys matched without regard to case, values as\n"
        "the functions return them, every other line of the file kept byte for byte."
#ifndef _WIN32
        "\nA drive path (C:\\WZELKO\\X.INI) reaches the host through the prefix's drives."
#endif
    );
    profile->require_subcommand(1);
    auto args = std::make_shared<ProfileArgs>();

    auto* get = profile->add_subcommand("get", "Print the value of a key, as a buffer receives it");
    get->add_option("FILE", args->file, kFileHelp)->required();
    get->add_option("SECTION", args->section, kSectionHelp)->required();
    get->add_option("KEY", args->key, kKeyHelp)->required();
    get->add_option("--default", args->defaultText,
                    "Text given when the file, section or key is missing (default: empty)")
        ->type_name("TEXT")
        ->each([args](const std::string&) { args->hasDefault = true; });
    AddSizeOption(get, args->size);
    get->callback([args, &ctx] {
        if (!CheckWindowsDirectoryFor(args->file, ctx)) return;
        std::vector<char> buffer(args->size, '\0');
        const std::uint32_t n =
            GetPrivateProfileStringA(args->section.c_str(), args->key.c_str(),
                                     args->hasDefault ? args->defaultText.c_str() : "",
                                     buffer.data(), args->size, args->file.c_str());
        ctx.out << std::string(buffer.data(), n) << '\n';
        NoteProfileFileState(args->file, ctx);
    });

    auto* keys = profile->add_subcommand("keys", "List the keys of a section, one per line");
    keys->add_option("FILE", args->file, kFileHelp)->required();
    keys->add_option("SECTION", args->section, kSectionHelp)->required();
    AddSizeOption(keys, args->size);
    keys->callback([args, &ctx] {
        if (!CheckWindowsDirectoryFor(args->file, ctx)) return;
        std::vector<char> buffer(args->size, '\0');
        const std::uint32_t n = GetPrivateProfileStringA(
            args->section.c_str(), nullptr, "", buffer.data(), args->size, args->file.c_str());
        PrintNameList(buffer, n, ctx.out);
        NoteProfileFileState(args->file, ctx);
    });

    auto* sections = profile->add_subcommand("sections", "List the sections, one per line");
    sections->add_option("FILE", args->file, kFileHelp)->required();
    AddSizeOption(sections, args->size);
    sections->callback([args, &ctx] {
        if (!CheckWindowsDirectoryFor(args->file, ctx)) return;
        std::vector<char> buffer(args->size, '\0');
        const std::uint32_t n = GetPrivateProfileStringA(nullptr, nullptr, "", buffer.data(),
                                                         args->size, args->file.c_str());
        PrintNameList(buffer, n, ctx.out);
        NoteProfileFileState(args->file, ctx);
    });

    auto* integer = profile->add_subcommand("int", "Print a key's value read as an integer");
    integer->add_option("FILE", args->file, kFileHelp)->required();
    integer->add_option("SECTION", args->section, kSectionHelp)->required();
    integer->add_option("KEY", args->key, kKeyHelp)->required();
    integer
        ->add_option("DEFAULT", args->intDefault,
                     "Value when the key is missing or empty (-1 reads as 4294967295)")
        ->required();
    integer->callback([args, &ctx] {
        if (!CheckWindowsDirectoryFor(args->file, ctx)) return;
        ctx.out << GetPrivateProfileIntA(args->section.c_str(), args->key.c_str(), args->intDefault,
                                         args->file.c_str())
                << '\n';
        NoteProfileFileState(args->file, ctx);
    });

    auto* set = profile->add_subcommand("set", "Set a key, creating section and file if needed");
    set->add_option("FILE", args->file, kFileHelp)->required();
    set->add_option("SECTION", args->section, kSectionHelp)->required();
    set->add_option("KEY", args->key, kKeyHelp)->required();
    set->add_option("VALUE", args->value,
                    "Value, written as given (an empty text is an empty value)")
        ->required();
    AddForceOption(set, args->force);
    set->callback([args, &ctx] {
        if (!CheckWindowsDirectoryFor(args->file, ctx)) return;
        const ForceScope force(args->force);
        const bool ok = WritePrivateProfileStringA(args->section.c_str(), args->key.c_str(),
                                                   args->value.c_str(), args->file.c_str());
        ReportWriteResult(ok, ctx);
        if (ok)
            WarnOfReadBackProblems(ReadBackProblems(args->section, args->key, &args->value), ctx);
    });

    auto* del = profile->add_subcommand(
        "delete", "Delete a key, or a whole section (its comment lines stay) when KEY is omitted");
    del->add_option("FILE", args->file, kFileHelp)->required();
    del->add_option("SECTION", args->section, kSectionHelp)->required();
    del->add_option("KEY", args->key, "Key to delete; without it the whole section goes");
    AddForceOption(del, args->force);
    del->callback([args, del, &ctx] {
        if (!CheckWindowsDirectoryFor(args->file, ctx)) return;
        const ForceScope force(args->force);
        const bool wholeSection = del->count("KEY") == 0;
        ReportWriteResult(WritePrivateProfileStringA(args->section.c_str(),
                                                     wholeSection ? nullptr : args->key.c_str(),
                                                     nullptr, args->file.c_str()),
                          ctx);
    });
}

}  // namespace wk::cli
