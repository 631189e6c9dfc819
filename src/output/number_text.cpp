#include "output/number_text.h"

#include <langinfo.h>
#include <locale.h>

#include <vector>

#include "core/c_number.h"
#include "core/fast_format.h"

namespace tormel {

namespace {

constexpr size_t kMaxNumberChars = 16;

// Length of the UTF-8 character that starts with `lead`.
size_t Utf8CharLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if ((lead & 0xE0) == 0xC0) return 2;
    if ((lead & 0xF0) == 0xE0) return 3;
    if ((lead & 0xF8) == 0xF0) return 4;
    return 1;
}

std::string_view Trim(std::string_view text, char c) {
    while (!text.empty() && text.front() == c) text.remove_prefix(1);
    while (!text.empty() && text.back() == c) text.remove_suffix(1);
    return text;
}

// The parsed formats this thread used last: a result set formats hundreds of
// numbers with the same three or four formats.
const DoubleFormat& FormatterFor(std::string_view format) {
    struct Entry {
        std::string format;
        DoubleFormat formatter;
    };
    constexpr size_t kKept = 8;
    thread_local std::vector<Entry> recent;
    for (const Entry& entry : recent)
        if (entry.format == format) return entry.formatter;
    if (recent.size() == kKept) recent.erase(recent.begin());
    recent.push_back({std::string(format), DoubleFormat(format)});
    return recent.back().formatter;
}

}  // namespace

DecimalSeparator UserDecimalSeparator() {
    DecimalSeparator separator;
    locale_t user = newlocale(LC_NUMERIC_MASK, "", static_cast<locale_t>(0));
    if (user == static_cast<locale_t>(0)) return separator;
    const char* radix = nl_langinfo_l(RADIXCHAR, user);
    if (radix && *radix) {
        const std::string_view text(radix);
        separator.symbol = std::string(text.substr(0, Utf8CharLength(static_cast<unsigned char>(text[0]))));
    }
    freelocale(user);
    return separator;
}

std::string FormatNumber(double value, std::string_view format, bool plain, const DecimalSeparator& separator) {
    std::string text;
    FormatterFor(format).Format(value, text);
    if (text.size() > kMaxNumberChars) text.resize(kMaxNumberChars);
    if (!plain && !separator.IsPoint()) {
        const size_t point = text.find('.');
        if (point != std::string::npos) text.replace(point, 1, separator.symbol);
    }
    std::string_view trimmed = Trim(text, ' ');
    if (value == 0) trimmed = Trim(trimmed, '-');
    if (trimmed.size() == text.size()) return text;
    return std::string(trimmed);
}

double ParseNumber(std::string_view text, const DecimalSeparator& separator) {
    std::string number(text);
    if (!separator.IsPoint() && !separator.symbol.empty()) {
        const size_t at = number.find(separator.symbol);
        if (at != std::string::npos) number = number.substr(0, at) + "." + number.substr(at + separator.symbol.size());
    }
    return StrToDoubleC(number);
}

}  // namespace tormel
