#pragma once
// Number text in the C locale ("." separator) whatever the process locale,
// safe to call from several threads.
#include <optional>
#include <string>
#include <string_view>

namespace tormel {

// printf-style formatting in the C locale: FormatC("%.16G", 1e-7) == "1E-07".
std::string FormatC(const char* format, ...) __attribute__((format(printf, 1, 2)));

// strtod in the C locale; `consumed` receives the number of characters used
// (0 when there is no number).
double StrToDoubleC(std::string_view text, size_t* consumed = nullptr);

// The whole text (surrounding blanks allowed) must be a number.
std::optional<double> ParseDoubleC(std::string_view text);

// Leading decimal digits with optional sign, as the platform's string-to-int
// conversion reads them; 0 when there are none.
int StrToIntPlatform(std::string_view text);

}  // namespace tormel
