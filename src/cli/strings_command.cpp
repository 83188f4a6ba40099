// `wkestel strings`: the language strings as the editor shows them. The library is chosen
// and loaded as at start-up (the language of WZELKO.INI, "NONE" meaning English, the
// English library as fallback, relative to the working directory), and each string is
// fetched as every caller of the editor fetches it (at most 199 characters, OEM conversion
// unless "NO ANSI-OEM CONVERSION" lists the language), then printed as UTF-8.

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "i18n/resgenstring.h"
#include "platform/message_box.h"
#include "platform/resource_library.h"
#include "platform/text_codec.h"
#include "settings/directory_schema.h"
#include "settings/key_profile_helpers.h"
#include "settings/system_schema.h"

namespace wk::cli {
namespace {

constexpr int kMaxLength = 200;  // what every caller of the editor passes
constexpr std::uint32_t kProfileTextSize = 80;

// A key of WZELKO.INI as the editor's text reader gives it: the missing-key mark "+-" reads
// as empty.
std::string ReadWzelkoText(const SettingKey& key) {
    char buffer[kProfileTextSize] = {};
    DirectProfileString(key, kMissingKeyMark, buffer, kProfileTextSize);
    std::string text = buffer;
    return text == kMissingKeyMark ? std::string() : text;
}

struct StringsArgs {
    std::string language;
    std::vector<unsigned> ids;
};

void RunStrings(const StringsArgs& args, bool languageGiven, CliContext& ctx) {
    // Messages the loading shows go where this command's errors go.
    bool messageShown = false;
    MessageBoxPresenter previous =
        SetMessageBoxPresenter([&ctx, &messageShown](const MessageBoxRequest& request) {
            ctx.err << (request.caption.empty() ? std::string() : request.caption + ": ")
                    << request.text << '\n';
            messageShown = true;
            return IDOK;
        });
    struct RestorePresenter {
        MessageBoxPresenter& previous;
        ~RestorePresenter() { SetMessageBoxPresenter(std::move(previous)); }
    } restore{previous};

    // Each run starts as the editor does, with no library and the OEM conversion on.
    ReleaseLanguageLibrary();
    Language() = LanguageState{};

    const std::string code =
        languageGiven ? LanguageCodeToLoad(args.language) : ReadStartUpLanguageCode();

    if (!LoadLanguageLibrary(code)) {
        ctx.err << "Be sure working dir is correct ! (" << ReadWzelkoText(kSystemDir) << ")\n";
        ctx.exitCode = 1;
        return;
    }
    if (messageShown) {  // the library is there but did not load
        ReleaseLanguageLibrary();
        ctx.exitCode = 1;
        return;
    }

    std::vector<unsigned> ids = args.ids;
    if (ids.empty()) ids = platform::StringIds(Language().CurrentResourceFile->Module());
    for (unsigned id : ids) {
        ctx.out << id << '\t'
                << platform::AnsiToUtf8(GetLanguageString(static_cast<int>(id), kMaxLength))
                << '\n';
    }
    ReleaseLanguageLibrary();
}

}  // namespace

void AddStringsCommand(CLI::App& app, CliContext& ctx) {
    auto* strings = app.add_subcommand(
        "strings",
        "Print language strings as the editor shows them, one per line as ID<TAB>text (UTF-8).\n"
        "The language library Kes32_<code>.dll (else Kes32_eng.dll) is looked up in the\n"
        "working directory, as the editor does at start-up.");
    auto args = std::make_shared<StringsArgs>();
    strings->add_option("--language", args->language,
                        "Language code (default: LANGUAGE of section Wzelko in WZELKO.INI)");
    strings->add_option("ID", args->ids, "String ids (default: every string of the library)")
        ->check(CLI::Range(0u, 65535u));
    strings->callback(
        [args, strings, &ctx] { RunStrings(*args, strings->count("--language") > 0, ctx); });
}

}  // namespace wk::cli
