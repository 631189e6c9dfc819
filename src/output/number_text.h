#pragma once
// Numbers as the user sees them: formatted in the C locale, then with the
// point replaced by the user's decimal separator; and read back the same way.
// Files never use these (they keep the point).
#include <string>
#include <string_view>

namespace tormel {

// The first character of the user locale's decimal separator (UTF-8).
struct DecimalSeparator {
    std::string symbol = ".";
    bool IsPoint() const { return symbol == "."; }
};

// The separator of the user's locale (LC_ALL, LC_NUMERIC, LANG), read
// without changing the process locale; "." when the locale is unknown.
DecimalSeparator UserDecimalSeparator();

// Formats `value` with the printf format (one double argument) into at most
// 16 characters; unless `plain` is set or the separator is ".", the first "."
// becomes the separator; blanks are trimmed at both ends, and for a value of
// exactly 0 (also -0) the "-" characters at both ends.
std::string FormatNumber(double value, std::string_view format, bool plain, const DecimalSeparator& separator);

// Reads a number the user typed: the first occurrence of the separator counts
// as the point; leading white space is skipped and the longest number prefix
// is taken (0 when there is none).
double ParseNumber(std::string_view text, const DecimalSeparator& separator);

}  // namespace tormel
