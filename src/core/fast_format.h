#pragma once
// The common printf conversions without the C library's printf: the same
// characters (std::to_chars converts as printf does in the C locale), in a
// fraction of the time and with no locale switch. Output files and result
// tables format tens of thousands of numbers per batch.
#include <cstdarg>
#include <string>
#include <string_view>

namespace tormel {

// Formats like vsnprintf in the C locale when every conversion of `format` is
// one of d, i, s, e, E, f, F, g, G or %% with at most the '-' flag, a width
// and (for numbers) a precision; returns false, consuming no argument, when
// one is not, and the caller formats with the C library instead.
bool FormatFast(const char* format, va_list args, std::string& out);

// Room for any text PutScientific or PutGeneral writes (they may write
// scratch beyond the end they return, within this room).
constexpr size_t kNumberTextRoom = 40;

// The characters of printf("%.<precision>E", value) in the C locale ("e"
// when not `upper`), for precision 0..16, written from `at`; returns their
// end. For writers whose formats are fixed: no format is read.
char* PutScientific(char* at, double value, int precision, bool upper = true);
// The same for "%.<precision>G" ("g"), precision 0..17.
char* PutGeneral(char* at, double value, int precision, bool upper = true);

// A printf format with one double conversion, read once and applied to many
// values: the characters of FormatC(format, value), without reading the
// format again. Formats that FormatFast does not handle go to the C library.
class DoubleFormat {
public:
    explicit DoubleFormat(std::string_view format);
    // Replaces `out` with the formatted value.
    void Format(double value, std::string& out) const;

private:
    std::string format_;  // NUL-terminated copy for the C library
    std::string prefix_, suffix_;
    bool fast_ = false;
    bool left_ = false;
    int width_ = 0;
    int precision_ = -1;
    char conversion_ = 0;
};

}  // namespace tormel
