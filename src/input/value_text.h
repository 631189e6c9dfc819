#pragma once
// How the input file reader looks at the text of a line: case-insensitive
// comparison, trimming, and the leading number of a value.
#include <cstdint>
#include <string>
#include <string_view>

namespace tormel {

// Compares two UTF-8 texts with ASCII letters folded to lower case (other
// characters must match exactly).
bool EqualsIgnoreCase(std::string_view a, std::string_view b);

// True when `text` begins with `prefix`, ASCII letters folded.
bool StartsWithIgnoreCase(std::string_view text, std::string_view prefix);

// Removes blanks, carriage returns and line feeds at both ends.
std::string_view TrimBlanksAndLineFeeds(std::string_view text);

// Optional sign and decimal digits at the start; 0 when there are none.
// Values beyond the 32-bit range are clamped.
int32_t LeadingInteger(std::string_view text);

// The longest prefix that reads as a decimal real (optional sign, digits with
// an optional point, optional exponent), read in the C locale; 0 when there is
// none. `consumed` receives the length of the prefix.
double LeadingReal(std::string_view text, size_t* consumed = nullptr);

// File extension including the dot (".i64"), taken after the last folder
// separator; empty when the name has none.
std::string_view FileExtension(std::string_view path);

}  // namespace tormel
