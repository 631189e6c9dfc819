#pragma once
// Letter case as the readers of names and keywords ignore it: ASCII letters
// only, every other byte of a UTF-8 text must match exactly.
#include <string_view>

namespace tormel {

constexpr char FoldAsciiLetter(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }

// Compares two UTF-8 texts with ASCII letters folded to lower case. Inline:
// the readers compare many texts of another length, refused by the size alone.
inline bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (FoldAsciiLetter(a[i]) != FoldAsciiLetter(b[i])) return false;
    return true;
}

}  // namespace tormel
