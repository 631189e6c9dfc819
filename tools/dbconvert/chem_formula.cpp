#include "chem_formula.h"

#include <cctype>
#include <cstdlib>

namespace dbconvert {

namespace {

bool IsUpper(char c) { return c >= 'A' && c <= 'Z'; }
bool IsLower(char c) { return (c >= 'a' && c <= 'z') || c == '_'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Reads a number (digits with an optional decimal point) at `pos`; 1 when
// there is none.
double ReadMultiplier(std::string_view text, size_t& pos) {
    size_t start = pos;
    while (pos < text.size() && (IsDigit(text[pos]) || text[pos] == '.')) ++pos;
    if (pos == start) return 1.0;
    return std::strtod(std::string(text.substr(start, pos - start)).c_str(), nullptr);
}

// Parses a group up to a closing parenthesis or the end.
bool ParseGroup(std::string_view text, size_t& pos, std::map<std::string, double>& counts, bool nested) {
    while (pos < text.size()) {
        char c = text[pos];
        if (IsUpper(c)) {
            size_t start = pos++;
            while (pos < text.size() && IsLower(text[pos])) ++pos;
            std::string element(text.substr(start, pos - start));
            counts[element] += ReadMultiplier(text, pos);
        } else if (c == '(') {
            ++pos;
            std::map<std::string, double> inner;
            if (!ParseGroup(text, pos, inner, true)) return false;
            if (pos >= text.size() || text[pos] != ')') return false;
            ++pos;
            double m = ReadMultiplier(text, pos);
            for (const auto& [e, n] : inner) counts[e] += n * m;
        } else if (c == ')') {
            return nested;
        } else {
            return false;
        }
    }
    return !nested;
}

}  // namespace

SpeciesName SplitCharge(std::string_view name) {
    SpeciesName out;
    size_t end = name.size();
    // Trailing digits after a sign: "+3", "-2".
    size_t p = end;
    while (p > 0 && IsDigit(name[p - 1])) --p;
    if (p > 0 && p < end && (name[p - 1] == '+' || name[p - 1] == '-')) {
        int magnitude = std::atoi(std::string(name.substr(p)).c_str());
        out.charge = name[p - 1] == '+' ? magnitude : -magnitude;
        out.formula = std::string(name.substr(0, p - 1));
        return out;
    }
    // Repeated signs: "+", "++", "-", "--".
    p = end;
    while (p > 0 && (name[p - 1] == '+' || name[p - 1] == '-')) --p;
    if (p < end && p > 0) {
        char sign = name[end - 1];
        bool uniform = true;
        for (size_t i = p; i < end; ++i) uniform = uniform && name[i] == sign;
        if (uniform) {
            int magnitude = static_cast<int>(end - p);
            out.charge = sign == '+' ? magnitude : -magnitude;
            out.formula = std::string(name.substr(0, p));
            return out;
        }
    }
    out.formula = std::string(name);
    return out;
}

std::optional<std::map<std::string, double>> ElementCounts(std::string_view formula) {
    std::map<std::string, double> counts;
    // Hydrate parts: "Ca4H(PO4)3:3H2O" -> main part and "3H2O".
    size_t start = 0;
    bool first = true;
    while (start <= formula.size()) {
        size_t colon = formula.find(':', start);
        std::string_view part = formula.substr(start, colon == std::string_view::npos ? std::string_view::npos : colon - start);
        size_t pos = 0;
        double factor = 1.0;
        if (!first) factor = ReadMultiplier(part, pos);
        std::map<std::string, double> partCounts;
        std::string_view rest = part.substr(pos);
        size_t restPos = 0;
        if (rest.empty() || !ParseGroup(rest, restPos, partCounts, false)) return std::nullopt;
        for (const auto& [e, n] : partCounts) counts[e] += n * factor;
        first = false;
        if (colon == std::string_view::npos) break;
        start = colon + 1;
    }
    return counts;
}

bool IsBareElement(std::string_view formula) {
    if (formula.empty() || !IsUpper(formula[0])) return false;
    for (size_t i = 1; i < formula.size(); ++i)
        if (!IsLower(formula[i])) return false;
    return true;
}

std::string RomanNumeral(int value) {
    static const char* numerals[] = {"0", "I", "II", "III", "IV", "V", "VI", "VII", "VIII", "IX"};
    if (value >= 0 && value <= 9) return numerals[value];
    return std::to_string(value);
}

}  // namespace dbconvert
