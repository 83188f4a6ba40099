#pragma once
// Language strings as the window's captions, hints and messages take them.

#include <QString>

#include "i18n/own_strings.h"
#include "i18n/resgenstring.h"
#include "platform/text_codec.h"

namespace wk {

// Every caller fetches a language string with a maximum length of 200.
inline constexpr int kLanguageMaxLength = 200;

// Language string `id`, from the ANSI code page of the libraries into a Qt text.
inline QString LanguageCaption(int id) {
    return QString::fromStdString(platform::AnsiToUtf8(GetLanguageString(id, kLanguageMaxLength)));
}

// One of the program's own strings, its English text when the library lacks it.
inline QString OwnCaption(const OwnString& string) {
    return QString::fromStdString(platform::AnsiToUtf8(GetOwnString(string)));
}

}  // namespace wk
