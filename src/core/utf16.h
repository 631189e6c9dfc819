#pragma once
// Conversion between the UTF-8 strings the program holds and the UTF-16 text
// of its files. Invalid sequences become U+FFFD, never an error.
#include <string>
#include <string_view>

namespace tormel {

std::u16string Utf8ToUtf16(std::string_view utf8);
// The number of characters (code points) of a UTF-8 text: the columns it
// takes in a terminal or a cell, one per character.
size_t CharacterCount(std::string_view utf8);
// True when every byte sequence of `utf8` is a well-formed UTF-8 character.
bool IsValidUtf8(std::string_view utf8);

// One code point of the UTF-8 text at `i`, advancing `i` past it.
char32_t DecodeUtf8(std::string_view s, size_t& i);

// Calls put(unit) for every UTF-16 code unit of the UTF-8 text, without
// building the UTF-16 string.
// Calls put(unit) for the one or two UTF-16 code units of a code point.
template <class Put>
void PutUtf16Units(char32_t cp, Put&& put) {
    if (cp >= 0x10000) {
        cp -= 0x10000;
        put(static_cast<char16_t>(0xD800 + (cp >> 10)));
        put(static_cast<char16_t>(0xDC00 + (cp & 0x3FF)));
    } else {
        put(static_cast<char16_t>(cp));
    }
}

template <class Put>
void ForEachUtf16Unit(std::string_view utf8, Put&& put) {
    size_t i = 0;
    while (i < utf8.size()) PutUtf16Units(DecodeUtf8(utf8, i), put);
}
std::string Utf16ToUtf8(std::u16string_view utf16);
// The same into `out`, whose room is reused.
void Utf16ToUtf8(std::u16string_view utf16, std::string& out);

// The position of the first `unit` in `text` from `from` on, or npos;
// eight units are compared at a time where the processor allows.
size_t FindUnit(std::u16string_view text, char16_t unit, size_t from = 0);

// Number of UTF-16 code units the UTF-8 text needs (the unit in which the
// file formats count characters).
size_t Utf16Length(std::string_view utf8);

}  // namespace tormel
