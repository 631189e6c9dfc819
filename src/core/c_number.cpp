#include "core/c_number.h"

#include "core/fast_format.h"

#include <locale.h>

#include <cctype>
#include <charconv>
#include <cstring>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace tormel {

namespace {

locale_t CLocale() {
    static locale_t c = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(0));
    return c;
}

// Switches the calling thread to the C locale for its lifetime.
class CLocaleScope {
public:
    CLocaleScope() : previous_(uselocale(CLocale())) {}
    ~CLocaleScope() { uselocale(previous_); }
    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;

private:
    locale_t previous_;
};

}  // namespace

std::string FormatC(const char* format, ...) {
    va_list args;
    va_start(args, format);
    std::string fast;
    va_list fastArgs;
    va_copy(fastArgs, args);
    const bool formatted = FormatFast(format, fastArgs, fast);
    va_end(fastArgs);
    if (formatted) {
        va_end(args);
        return fast;
    }
    CLocaleScope scope;
    char small[128];
    va_list copy;
    va_copy(copy, args);
    int n = std::vsnprintf(small, sizeof small, format, args);
    va_end(args);
    std::string out;
    if (n < 0) {
        va_end(copy);
        return out;
    }
    if (static_cast<size_t>(n) < sizeof small) {
        out.assign(small, static_cast<size_t>(n));
    } else {
        std::vector<char> big(static_cast<size_t>(n) + 1);
        std::vsnprintf(big.data(), big.size(), format, copy);
        out.assign(big.data(), static_cast<size_t>(n));
    }
    va_end(copy);
    return out;
}

namespace {

// A plain decimal number starts the text: an optional minus, then a digit,
// or a point and a digit, and no hexadecimal prefix. std::from_chars reads
// these as strtod does (both round correctly); strtod takes the rest
// (blanks, '+', hexadecimal, inf, nan) and the numbers out of range.
bool PlainDecimal(std::string_view text) {
    size_t i = !text.empty() && text[0] == '-' ? 1 : 0;
    const auto digit = [&text](size_t k) { return k < text.size() && text[k] >= '0' && text[k] <= '9'; };
    if (i < text.size() && text[i] == '.') return digit(i + 1);
    if (!digit(i)) return false;
    return !(text[i] == '0' && i + 1 < text.size() && (text[i + 1] | 0x20) == 'x');
}

}  // namespace

double StrToDoubleC(std::string_view text, size_t* consumed) {
    if (PlainDecimal(text)) {
        double v = 0;
        const std::from_chars_result r = std::from_chars(text.data(), text.data() + text.size(), v);
        if (r.ec == std::errc()) {
            if (consumed) *consumed = static_cast<size_t>(r.ptr - text.data());
            return v;
        }
    }
    // strtod needs the text NUL-terminated: a copy, on the stack when short
    char small[64];
    std::string large;
    const char* s = small;
    if (text.size() < sizeof small) {
        std::memcpy(small, text.data(), text.size());
        small[text.size()] = '\0';
    } else {
        large.assign(text);
        s = large.c_str();
    }
    char* end = nullptr;
    double v = strtod_l(s, &end, CLocale());
    if (consumed) *consumed = static_cast<size_t>(end - s);
    return v;
}

std::optional<double> ParseDoubleC(std::string_view text) {
    size_t b = 0, e = text.size();
    while (b < e && std::isspace(static_cast<unsigned char>(text[b]))) ++b;
    while (e > b && std::isspace(static_cast<unsigned char>(text[e - 1]))) --e;
    if (b == e) return std::nullopt;
    size_t used = 0;
    double v = StrToDoubleC(text.substr(b, e - b), &used);
    if (used != e - b) return std::nullopt;
    return v;
}

int StrToIntPlatform(std::string_view text) {
    size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) negative = text[i++] == '-';
    long long v = 0;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9') {
        v = v * 10 + (text[i++] - '0');
        if (v > 2147483648LL) v = 2147483648LL;
    }
    if (negative) v = -v;
    if (v > 2147483647LL) v = 2147483647LL;
    return static_cast<int>(v);
}

}  // namespace tormel
