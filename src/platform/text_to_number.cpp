#include "platform/text_to_number.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <locale>
#include <system_error>

namespace wk {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

int HexDigitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

}  // namespace

ConversionError::ConversionError(const std::string& text, const char* kind)
    : std::runtime_error("'" + text + "' is not a valid " + kind + " value"), text_(text) {}

char LocaleDecimalSeparator() {
    // Asked of a locale object built for the purpose: the global locale, and with it the
    // "C" numeric format that the settings files rely on, stays untouched.
    try {
        return std::use_facet<std::numpunct<char>>(std::locale("")).decimal_point();
    } catch (const std::exception&) {
        return '.';
    }
}

double StrToFloat(const std::string& text) {
    const char separator = LocaleDecimalSeparator();
    std::size_t begin = 0;
    std::size_t end = text.size();
    while (begin < end && IsBlank(text[begin])) ++begin;
    while (end > begin && IsBlank(text[end - 1])) --end;

    // Normalised copy: sign kept apart (from_chars takes no '+'), separator made '.'.
    std::string number;
    bool negative = false;
    std::size_t i = begin;
    if (i < end && (text[i] == '+' || text[i] == '-')) {
        negative = text[i] == '-';
        ++i;
    }
    std::size_t mantissaDigits = 0;
    while (i < end && IsDigit(text[i])) {
        number += text[i++];
        ++mantissaDigits;
    }
    if (i < end && (text[i] == '.' || text[i] == separator)) {
        number += '.';
        ++i;
        while (i < end && IsDigit(text[i])) {
            number += text[i++];
            ++mantissaDigits;
        }
    }
    if (mantissaDigits == 0) throw ConversionError(text, "floating point");
    if (i < end && (text[i] == 'e' || text[i] == 'E')) {
        number += 'e';
        ++i;
        if (i < end && (text[i] == '+' || text[i] == '-')) number += text[i++];
        std::size_t exponentDigits = 0;
        while (i < end && IsDigit(text[i])) {
            number += text[i++];
            ++exponentDigits;
        }
        if (exponentDigits == 0) throw ConversionError(text, "floating point");
    }
    if (i != end) throw ConversionError(text, "floating point");

    double value = 0.0;
    const auto [ptr, ec] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (ec == std::errc::result_out_of_range) {
        // Too small to be held is zero, as the toolkit gives; too large is not a value.
        const std::size_t e = number.find('e');
        const bool negativeExponent = e != std::string::npos && number[e + 1] == '-';
        const bool noIntegerPart = number.find_first_not_of("0") == number.find('.');
        if (!negativeExponent && !(noIntegerPart && e == std::string::npos)) {
            throw ConversionError(text, "floating point");
        }
        value = 0.0;
    } else if (ec != std::errc() || ptr != number.data() + number.size()) {
        throw ConversionError(text, "floating point");
    }
    return negative ? -value : value;
}

std::int32_t StrToInt(const std::string& text) {
    std::size_t i = 0;
    while (i < text.size() && IsBlank(text[i])) ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        negative = text[i] == '-';
        ++i;
    }
    bool hex = false;
    if (i < text.size() && text[i] == '$') {
        hex = true;
        ++i;
    } else if (i + 1 < text.size() && text[i] == '0' &&
               (text[i + 1] == 'x' || text[i + 1] == 'X')) {
        hex = true;
        i += 2;
    }
    if (i == text.size()) throw ConversionError(text, "integer");

    std::uint64_t magnitude = 0;
    for (; i < text.size(); ++i) {
        const int digit = hex ? HexDigitValue(text[i]) : (IsDigit(text[i]) ? text[i] - '0' : -1);
        if (digit < 0) throw ConversionError(text, "integer");
        magnitude = magnitude * (hex ? 16 : 10) + static_cast<std::uint64_t>(digit);
        if (magnitude > 0xFFFFFFFFull) throw ConversionError(text, "integer");
    }
    if (hex) {
        // A hexadecimal constant is a bit pattern: "$FFFFFFFF" is -1.
        const auto bits = static_cast<std::uint32_t>(magnitude);
        const auto value = static_cast<std::int32_t>(bits);
        return negative ? static_cast<std::int32_t>(0u - bits) : value;
    }
    if (negative) {
        if (magnitude > 0x80000000ull) throw ConversionError(text, "integer");
        return static_cast<std::int32_t>(-static_cast<std::int64_t>(magnitude));
    }
    if (magnitude > 0x7FFFFFFFull) throw ConversionError(text, "integer");
    return static_cast<std::int32_t>(magnitude);
}

std::string FloatToStr(double value) {
    if (std::isnan(value)) return "NAN";
    if (std::isinf(value)) return value < 0 ? "-INF" : "INF";
    if (value == 0.0) return "0";

    // 15 significant digits, rounded once by the C library: "d.dddddddddddddde[+-]x".
    // (The C library's own decimal point is '.' under the "C" numeric locale the programs
    // keep; the digits and exponent are read by position, not through the locale.)
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.14e", std::abs(value));
    std::string digits;
    const char* p = buffer;
    for (; *p != 'e' && *p != '\0'; ++p) {
        if (IsDigit(*p)) digits += *p;
    }
    const int exponent = (*p == 'e') ? std::atoi(p + 1) : 0;
    while (digits.size() > 1 && digits.back() == '0') digits.pop_back();

    const char separator = LocaleDecimalSeparator();
    std::string result = value < 0 ? "-" : "";
    if (exponent >= 15 || exponent < -5) {
        result += digits[0];
        if (digits.size() > 1) {
            result += separator;
            result.append(digits, 1, std::string::npos);
        }
        result += 'E';
        result += std::to_string(exponent);
    } else if (exponent < 0) {
        result += '0';
        result += separator;
        result.append(static_cast<std::size_t>(-exponent - 1), '0');
        result += digits;
    } else {
        const auto integerDigits = static_cast<std::size_t>(exponent) + 1;
        if (digits.size() <= integerDigits) {
            result += digits;
            result.append(integerDigits - digits.size(), '0');
        } else {
            result.append(digits, 0, integerDigits);
            result += separator;
            result.append(digits, integerDigits, std::string::npos);
        }
    }
    return result;
}

}  // namespace wk
