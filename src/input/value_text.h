#pragma once
// How the input file reader looks at the text of a line: case-insensitive
// comparison, trimming, and the leading number of a value.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/ascii_case.h"

namespace tormel {

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

// The whole text is one finite decimal real as LeadingReal reads it; nullopt
// for anything else ("nan", "inf", "0,5", "1e999", "2x", an empty text).
std::optional<double> CompleteReal(std::string_view text);

// The whole text is an optional sign and decimal digits within the 32-bit
// range; nullopt for anything else.
std::optional<int32_t> CompleteInteger(std::string_view text);

// The first `limit` UTF-16 characters of `text`, one fewer when the cut
// would split a surrogate pair.
std::u16string_view CutUtf16(std::u16string_view text, size_t limit);

// File extension including the dot (".i64"), taken after the last folder
// separator; empty when the name has none.
std::string_view FileExtension(std::string_view path);

}  // namespace tormel
