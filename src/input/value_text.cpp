#include "input/value_text.h"

#include <climits>
#include <cmath>
#include <string>

#include "core/c_number.h"

namespace tormel {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

bool StartsWithIgnoreCase(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() && EqualsIgnoreCase(text.substr(0, prefix.size()), prefix);
}

std::string_view TrimBlanksAndLineFeeds(std::string_view text) {
    auto isTrimmed = [](char c) { return c == ' ' || c == '\n' || c == '\r'; };
    size_t b = 0, e = text.size();
    while (b < e && isTrimmed(text[b])) ++b;
    while (e > b && isTrimmed(text[e - 1])) --e;
    return text.substr(b, e - b);
}

int32_t LeadingInteger(std::string_view text) {
    size_t i = 0;
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
    long long value = 0;
    for (; i < text.size() && IsDigit(text[i]); ++i) {
        value = value * 10 + (text[i] - '0');
        if (value > static_cast<long long>(INT32_MAX) + 1) value = static_cast<long long>(INT32_MAX) + 1;
    }
    if (negative) value = -value;
    if (value > INT32_MAX) value = INT32_MAX;
    return static_cast<int32_t>(value);
}

double LeadingReal(std::string_view text, size_t* consumed) {
    size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    size_t digits = 0;
    while (i < text.size() && IsDigit(text[i])) ++i, ++digits;
    if (i < text.size() && text[i] == '.') {
        ++i;
        while (i < text.size() && IsDigit(text[i])) ++i, ++digits;
    }
    if (digits == 0) {
        if (consumed) *consumed = 0;
        return 0;
    }
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        size_t k = i + 1;
        if (k < text.size() && (text[k] == '+' || text[k] == '-')) ++k;
        if (k < text.size() && IsDigit(text[k])) {
            while (k < text.size() && IsDigit(text[k])) ++k;
            i = k;
        }
    }
    if (consumed) *consumed = i;
    return StrToDoubleC(text.substr(0, i));
}

std::optional<double> CompleteReal(std::string_view text) {
    size_t used = 0;
    const double value = LeadingReal(text, &used);
    if (used == 0 || used != text.size() || !std::isfinite(value)) return std::nullopt;
    return value;
}

std::optional<int32_t> CompleteInteger(std::string_view text) {
    size_t digits = text.empty() || (text[0] != '+' && text[0] != '-') ? 0 : 1;
    const size_t signs = digits;
    while (digits < text.size() && IsDigit(text[digits])) ++digits;
    if (digits == signs || digits != text.size() || digits - signs > 10) return std::nullopt;
    const long long value = std::stoll(std::string(text));
    if (value < INT32_MIN || value > INT32_MAX) return std::nullopt;
    return static_cast<int32_t>(value);
}

std::u16string_view CutUtf16(std::u16string_view text, size_t limit) {
    if (text.size() <= limit) return text;
    if (limit > 0 && (text[limit - 1] & 0xFC00) == 0xD800) --limit;
    return text.substr(0, limit);
}

std::string_view FileExtension(std::string_view path) {
    size_t slash = path.find_last_of("/\\");
    size_t nameStart = slash == std::string_view::npos ? 0 : slash + 1;
    size_t dot = path.rfind('.');
    if (dot == std::string_view::npos || dot < nameStart) return {};
    return path.substr(dot);
}

}  // namespace tormel
