#include "core/fast_format.h"

#include "core/c_number.h"
#include "core/significant_digits.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cmath>
#include <cstring>

namespace tormel {

namespace {

struct Spec {
    bool left = false;      // '-' flag
    int width = 0;
    int precision = -1;     // -1: none given
    char conversion = 0;
    const char* end = nullptr;  // just past the conversion character
};

// Reads the conversion starting after '%'; false for anything not handled here.
bool ParseSpec(const char* p, Spec& spec) {
    if (*p == '-') {
        spec.left = true;
        ++p;
    }
    while (*p >= '0' && *p <= '9') {
        if (*p == '0' && spec.width == 0) return false;  // the '0' flag
        spec.width = spec.width * 10 + (*p++ - '0');
        if (spec.width > 200) return false;
    }
    if (*p == '.') {
        ++p;
        spec.precision = 0;
        while (*p >= '0' && *p <= '9') {
            spec.precision = spec.precision * 10 + (*p++ - '0');
            if (spec.precision > 40) return false;
        }
    }
    spec.conversion = *p;
    spec.end = p + 1;
    if (spec.conversion != 0 && std::strchr("eEfFgG", spec.conversion)) return true;
    if ((spec.conversion == 'd' || spec.conversion == 'i') && spec.precision < 0) return true;
    return spec.conversion == 's' && spec.precision < 0;
}

// The conversions this file handles, read once per call.
constexpr int kMaxSpecs = 16;

// Reads every conversion of `format` into `specs`; false when one is not
// handled here or there are more than kMaxSpecs.
bool ParseAll(const char* format, std::array<Spec, kMaxSpecs>& specs) {
    int count = 0;
    for (const char* p = format; *p; ++p) {
        if (*p != '%') continue;
        if (p[1] == '%') {
            ++p;
            continue;
        }
        if (count == kMaxSpecs) return false;
        Spec& spec = specs[static_cast<size_t>(count++)];
        if (!ParseSpec(p + 1, spec)) return false;
        p = spec.end - 1;
    }
    return true;
}

void Pad(std::string& out, const char* text, size_t length, const Spec& spec) {
    if (spec.width <= static_cast<int>(length)) {
        out.append(text, length);
        return;
    }
    const size_t fill = spec.width - length;
    if (!spec.left) out.append(fill, ' ');
    out.append(text, length);
    if (spec.left) out.append(fill, ' ');
}

// %.Nf for N <= 6 of a value whose scaled magnitude stays below 1e9 (so the
// scaled double is within 1e-7 of the exact product): the digits are the
// rounded integer, unless the scaled value lies so close to a half that the
// product's own rounding could decide it; then (false) to_chars, which
// rounds the exact binary value, formats it.
bool AppendSmallFixed(char* buffer, size_t& length, double value, int precision) {
    static constexpr double kPowers[] = {1, 10, 100, 1e3, 1e4, 1e5, 1e6};
    static constexpr uint32_t kIntPowers[] = {1, 10, 100, 1000, 10000, 100000, 1000000};
    if (precision < 0 || precision > 6) return false;
    const double scaled = std::fabs(value) * kPowers[precision];
    if (!(scaled < 1e9)) return false;
    const double whole = std::floor(scaled);
    const double fraction = scaled - whole;
    if (std::fabs(fraction - 0.5) < 1e-6) return false;
    const uint64_t n = static_cast<uint64_t>(whole) + (fraction > 0.5 ? 1 : 0);
    char* p = buffer;
    if (std::signbit(value)) *p++ = '-';
    p = std::to_chars(p, p + 24, n / kIntPowers[precision]).ptr;
    if (precision > 0) {
        *p++ = '.';
        uint64_t rest = n % kIntPowers[precision];
        for (int d = precision - 1; d >= 0; --d) {
            p[d] = static_cast<char>('0' + rest % 10);
            rest /= 10;
        }
        p += precision;
    }
    length = static_cast<size_t>(p - buffer);
    return true;
}

// Writes the exponent part of %e / %g: the letter, the sign and at least two
// digits.
char* PutExponent(char* p, int exponent, bool upper) {
    *p++ = upper ? 'E' : 'e';
    *p++ = exponent < 0 ? '-' : '+';
    const int absExponent = exponent < 0 ? -exponent : exponent;
    if (absExponent >= 100) *p++ = static_cast<char>('0' + absExponent / 100);
    *p++ = static_cast<char>('0' + absExponent / 10 % 10);
    *p++ = static_cast<char>('0' + absExponent % 10);
    return p;
}

// "00" to "99": two digits per division.
constexpr std::array<char, 200> kDigitPairs = [] {
    std::array<char, 200> pairs{};
    for (int i = 0; i < 100; ++i) {
        pairs[static_cast<size_t>(2 * i)] = static_cast<char>('0' + i / 10);
        pairs[static_cast<size_t>(2 * i + 1)] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

// Eight digits of `value` (below 10^8), most significant first: two
// divisions into halves and pairs, four pairs from the table.
void EightDigits(uint32_t value, char* out) {
    const uint32_t high = value / 10000, low = value % 10000;
    std::memcpy(out, &kDigitPairs[2 * (high / 100)], 2);
    std::memcpy(out + 2, &kDigitPairs[2 * (high % 100)], 2);
    std::memcpy(out + 4, &kDigitPairs[2 * (low / 100)], 2);
    std::memcpy(out + 6, &kDigitPairs[2 * (low % 100)], 2);
}

// Room for the seventeen digits DigitsOf writes and for copies of sixteen
// bytes from any of them.
using DigitText = std::array<char, 34>;

// The `count` (1..17) digits of `digits` (below 10^count), most significant
// first: all seventeen are written to `text`, leading zeros included, and
// the returned pointer is where the `count` wanted begin.
const char* DigitsOf(uint64_t digits, int count, DigitText& text) {
    constexpr uint64_t k16 = 10000000000000000ull, k8 = 100000000ull;
    const uint64_t rest = digits % k16;
    text[0] = static_cast<char>('0' + digits / k16);
    EightDigits(static_cast<uint32_t>(rest / k8), text.data() + 1);
    EightDigits(static_cast<uint32_t>(rest % k8), text.data() + 9);
    return text.data() + 17 - count;
}

// The digits of `d` up to the last that is not zero (at least one), the
// zeros counted eight at a time.
int SignificantLength(const char* d, int count) {
    int kept = count;
    if constexpr (std::endian::native == std::endian::little) {
        constexpr uint64_t kZeros = 0x3030303030303030ull;  // "00000000"
        while (kept > 8) {
            uint64_t word;
            std::memcpy(&word, d + kept - 8, 8);
            word ^= kZeros;  // a zero byte for each '0'; the last digit is the highest byte
            if (word != 0) return kept - std::countl_zero(word) / 8;
            kept -= 8;
        }
    }
    while (kept > 1 && d[kept - 1] == '0') --kept;
    return kept;
}

// inf / nan as printf writes them.
char* PutNotFinite(char* p, double value, bool upper) {
    if (std::signbit(value)) *p++ = '-';
    const char* word = std::isnan(value) ? (upper ? "NAN" : "nan") : (upper ? "INF" : "inf");
    std::memcpy(p, word, 3);
    return p + 3;
}

// The C library's digits through std::to_chars (exact, but slower), with
// the exponent letter in the case asked for.
char* PutExactly(char* p, char* end, double value, std::chars_format format, int digits, bool upper) {
    const std::to_chars_result r = std::to_chars(p, end, value, format, digits);
    if (r.ec != std::errc()) return p;
    if (upper)
        for (char* c = p; c != r.ptr; ++c)
            if (*c == 'e') *c = 'E';
    return r.ptr;
}

void AppendDouble(std::string& out, double value, const Spec& spec) {
    const bool upper = spec.conversion == 'E' || spec.conversion == 'F' || spec.conversion == 'G';
    const int precision = spec.precision < 0 ? 6 : spec.precision;
    const char kind = static_cast<char>(spec.conversion | 0x20);
    std::array<char, 400> buffer;  // the widest: %.40f of 1.8e308
    char* const begin = buffer.data();
    char* end = nullptr;
    size_t length = 0;
    if (!std::isfinite(value))
        end = PutNotFinite(begin, value, upper);
    else if (kind == 'e' && precision <= 16)
        end = PutScientific(begin, value, precision, upper);
    else if (kind == 'g' && precision <= 17)
        end = PutGeneral(begin, value, precision, upper);
    else if (kind == 'f' && AppendSmallFixed(begin, length, value, precision))
        end = begin + length;
    else
        end = PutExactly(begin, begin + buffer.size(), value,
                         kind == 'e'   ? std::chars_format::scientific
                         : kind == 'f' ? std::chars_format::fixed
                                       : std::chars_format::general,
                         kind == 'g' && precision == 0 ? 1 : precision, upper);
    Pad(out, begin, static_cast<size_t>(end - begin), spec);
}

}  // namespace

char* PutScientific(char* p, double value, int precision, bool upper) {
    if (!std::isfinite(value)) return PutNotFinite(p, value, upper);
    if (std::signbit(value)) *p++ = '-';
    uint64_t n = 0;
    int exponent = 0;
    if (value == 0) {
        exponent = 0;  // digits all zero
    } else if (!SignificantDigits(value, precision + 1, n, exponent)) {
        return PutExactly(p, p + kNumberTextRoom - 1, std::fabs(value), std::chars_format::scientific, precision,
                          upper);
    }
    DigitText text{};
    const char* d = DigitsOf(n, precision + 1, text);
    *p++ = d[0];
    if (precision > 0) {
        *p++ = '.';
        std::memcpy(p, d + 1, 16);  // kNumberTextRoom leaves space for the overshoot
        p += precision;
    }
    return PutExponent(p, exponent, upper);
}

// P significant digits (P = precision, or 1 for 0), in fixed notation when
// the exponent X of the rounded value satisfies -4 <= X < P, else
// scientific; trailing zeros (and a point left without digits) removed.
// Digits are copied sixteen or seventeen at a time and the end set after
// them: kNumberTextRoom leaves space for the overshoot.
char* PutGeneral(char* p, double value, int precision, bool upper) {
    if (!std::isfinite(value)) return PutNotFinite(p, value, upper);
    if (std::signbit(value)) *p++ = '-';
    if (value == 0) {
        *p = '0';
        return p + 1;
    }
    const int count = precision == 0 ? 1 : precision;
    uint64_t n = 0;
    int exponent = 0;
    if (!SignificantDigits(value, count, n, exponent))
        return PutExactly(p, p + kNumberTextRoom - 1, std::fabs(value), std::chars_format::general, count, upper);
    DigitText text{};
    const char* d = DigitsOf(n, count, text);
    const int kept = SignificantLength(d, count);
    if (exponent < -4 || exponent >= count) {
        *p++ = d[0];
        if (kept > 1) {
            *p++ = '.';
            std::memcpy(p, d + 1, 16);
            p += kept - 1;
        }
        return PutExponent(p, exponent, upper);
    }
    if (exponent < 0) {
        *p++ = '0';
        *p++ = '.';
        for (int z = exponent + 1; z < 0; ++z) *p++ = '0';
        std::memcpy(p, d, 17);
        return p + kept;
    }
    std::memcpy(p, d, 17);
    p += exponent + 1;
    if (kept > exponent + 1) {
        *p++ = '.';
        std::memcpy(p, d + exponent + 1, 16);
        p += kept - exponent - 1;
    }
    return p;
}

bool FormatFast(const char* format, va_list args, std::string& out) {
    std::array<Spec, kMaxSpecs> specs;
    if (!ParseAll(format, specs)) return false;
    out.clear();
    size_t specIndex = 0;
    for (const char* p = format; *p; ++p) {
        if (*p != '%') {
            const char* next = std::strchr(p, '%');
            const size_t length = next ? static_cast<size_t>(next - p) : std::strlen(p);
            out.append(p, length);
            p += length - 1;
            continue;
        }
        if (p[1] == '%') {
            out += '%';
            ++p;
            continue;
        }
        const Spec& spec = specs[specIndex++];
        p = spec.end - 1;
        if (spec.conversion == 'd' || spec.conversion == 'i') {
            std::array<char, 16> buffer;
            const auto r = std::to_chars(buffer.data(), buffer.data() + buffer.size(), va_arg(args, int));
            Pad(out, buffer.data(), static_cast<size_t>(r.ptr - buffer.data()), spec);
        } else if (spec.conversion == 's') {
            const char* text = va_arg(args, const char*);
            if (!text) text = "(null)";
            Pad(out, text, std::strlen(text), spec);
        } else {
            AppendDouble(out, va_arg(args, double), spec);
        }
    }
    return true;
}

namespace {

// The literal text of a stretch of format, with "%%" as "%"; false when it
// holds a conversion.
bool LiteralText(std::string_view format, std::string& out) {
    out.clear();
    for (size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%') {
            out += format[i];
            continue;
        }
        if (i + 1 >= format.size() || format[i + 1] != '%') return false;
        out += '%';
        ++i;
    }
    return true;
}

}  // namespace

DoubleFormat::DoubleFormat(std::string_view format) : format_(format) {
    if (format_.find('\0') != std::string::npos) return;
    // the one conversion: the first '%' not part of "%%"
    size_t at = 0;
    while ((at = format_.find('%', at)) != std::string::npos && at + 1 < format_.size() && format_[at + 1] == '%')
        at += 2;
    if (at == std::string::npos || at + 1 >= format_.size()) return;
    Spec spec;
    if (!ParseSpec(format_.c_str() + at + 1, spec) || !std::strchr("eEfFgG", spec.conversion)) return;
    const size_t end = static_cast<size_t>(spec.end - format_.c_str());
    if (!LiteralText(std::string_view(format_).substr(0, at), prefix_) ||
        !LiteralText(std::string_view(format_).substr(end), suffix_))
        return;
    fast_ = true;
    left_ = spec.left;
    width_ = spec.width;
    precision_ = spec.precision;
    conversion_ = spec.conversion;
}

void DoubleFormat::Format(double value, std::string& out) const {
    if (!fast_) {
        out = FormatC(format_.c_str(), value);
        return;
    }
    Spec spec;
    spec.left = left_;
    spec.width = width_;
    spec.precision = precision_;
    spec.conversion = conversion_;
    out.assign(prefix_);
    AppendDouble(out, value, spec);
    out.append(suffix_);
}

}  // namespace tormel
