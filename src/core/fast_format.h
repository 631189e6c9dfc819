#pragma once
// The common printf conversions without the C library's printf: the same
// characters (std::to_chars converts as printf does in the C locale), in a
// fraction of the time and with no locale switch. Output files and result
// tables format tens of thousands of numbers per batch.
#include <cstdarg>
#include <string>

namespace tormel {

// Formats like vsnprintf in the C locale when every conversion of `format` is
// one of d, i, s, e, E, f, F, g, G or %% with at most the '-' flag, a width
// and (for numbers) a precision; returns false, consuming no argument, when
// one is not, and the caller formats with the C library instead.
bool FormatFast(const char* format, va_list args, std::string& out);

}  // namespace tormel
