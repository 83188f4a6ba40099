#pragma once
// The form toolkit's text/number conversions, as the edit fields of the measuring
// application's setup used them.
//
// A text that is not a number raises ConversionError, whose message is the one the
// toolkit's default exception handler showed ("'abc' is not a valid floating point value").
// The caller stores nothing then. None of these functions changes the global locale.

#include <cstdint>
#include <stdexcept>
#include <string>

namespace wk {

class ConversionError : public std::runtime_error {
public:
    // kind: "floating point" or "integer", as it appears in the message.
    ConversionError(const std::string& text, const char* kind);
    // The text that could not be converted.
    const std::string& Text() const { return text_; }

private:
    std::string text_;
};

// The decimal separator of the user's locale, '.' when the locale cannot be had.
char LocaleDecimalSeparator();

// Text to double. Surrounding blanks are ignored; the decimal point may be '.' or the
// user's decimal separator; an exponent ("1.5E3") is accepted. Anything else, an empty
// text, or a value out of the double range raises ConversionError.
double StrToFloat(const std::string& text);

// Text to 32-bit integer: leading blanks, one optional sign, decimal digits, or hexadecimal
// after "$" (or "0x") as the toolkit accepts. Hexadecimal covers the full 32 bits ("$FFFFFFFF"
// is -1); a decimal value outside the 32-bit range raises ConversionError, as does any other
// character.
std::int32_t StrToInt(const std::string& text);

// The toolkit's shortest form: general format with 15 significant digits, fixed notation
// while the value has at most 15 integer digits and is not below 0.00001, scientific
// otherwise ("1E20", "1.5E-7"). 12.5 gives "12.5", 0.1 gives "0.1". The decimal point is
// the user's decimal separator, so the text converts back through StrToFloat.
std::string FloatToStr(double value);

}  // namespace wk
