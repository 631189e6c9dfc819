#include "core/utf16.h"

#include <bit>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tormel {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

void AppendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

}  // namespace

char32_t DecodeUtf8(std::string_view s, size_t& i) {
    auto byte = [&](size_t k) { return static_cast<unsigned char>(s[k]); };
    unsigned char c = byte(i);
    if (c < 0x80) {
        ++i;
        return c;
    }
    int extra = 0;
    char32_t cp = 0;
    char32_t min = 0;
    if ((c & 0xE0) == 0xC0) {
        extra = 1, cp = c & 0x1F, min = 0x80;
    } else if ((c & 0xF0) == 0xE0) {
        extra = 2, cp = c & 0x0F, min = 0x800;
    } else if ((c & 0xF8) == 0xF0) {
        extra = 3, cp = c & 0x07, min = 0x10000;
    } else {
        ++i;
        return kReplacement;
    }
    size_t k = i + 1;
    for (int n = 0; n < extra; ++n, ++k) {
        if (k >= s.size() || (byte(k) & 0xC0) != 0x80) {
            i = k;
            return kReplacement;
        }
        cp = (cp << 6) | (byte(k) & 0x3F);
    }
    i = k;
    if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return kReplacement;
    return cp;
}

size_t CharacterCount(std::string_view utf8) {
    size_t n = 0;
    for (unsigned char c : utf8) n += (c & 0xC0) != 0x80 ? 1 : 0;  // continuation bytes do not count
    return n;
}

bool IsValidUtf8(std::string_view utf8) {
    size_t i = 0;
    while (i < utf8.size()) {
        const size_t start = i;
        // a replacement character is valid only where the text spells it
        if (DecodeUtf8(utf8, i) == kReplacement && utf8.substr(start, i - start) != "\xEF\xBF\xBD") return false;
    }
    return true;
}

std::u16string Utf8ToUtf16(std::string_view utf8) {
    std::u16string out;
    out.reserve(utf8.size());
    ForEachUtf16Unit(utf8, [&out](char16_t unit) { out += unit; });
    return out;
}

std::string Utf16ToUtf8(std::u16string_view utf16) {
    std::string out;
    Utf16ToUtf8(utf16, out);
    return out;
}

void Utf16ToUtf8(std::u16string_view utf16, std::string& out) {
    // ASCII, nearly every text the files hold, narrowed in place, eight
    // units at a time where the processor allows
    out.resize(utf16.size());
    size_t i = 0;
#if defined(__SSE2__)
    const __m128i nonAscii = _mm_set1_epi16(static_cast<short>(0xFF80));
    for (; i + 8 <= utf16.size(); i += 8) {
        const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(utf16.data() + i));
        if (_mm_movemask_epi8(_mm_cmpeq_epi16(_mm_and_si128(units, nonAscii), _mm_setzero_si128())) != 0xFFFF) break;
        _mm_storel_epi64(reinterpret_cast<__m128i*>(out.data() + i), _mm_packus_epi16(units, units));
    }
#endif
    for (; i < utf16.size() && utf16[i] < 0x80; ++i) out[i] = static_cast<char>(utf16[i]);
    if (i == utf16.size()) return;
    out.resize(i);
    for (; i < utf16.size(); ++i) {
        char32_t c = utf16[i];
        if (c >= 0xD800 && c <= 0xDBFF) {
            if (i + 1 < utf16.size() && utf16[i + 1] >= 0xDC00 && utf16[i + 1] <= 0xDFFF) {
                c = 0x10000 + ((c - 0xD800) << 10) + (utf16[i + 1] - 0xDC00);
                ++i;
            } else {
                c = kReplacement;
            }
        } else if (c >= 0xDC00 && c <= 0xDFFF) {
            c = kReplacement;
        }
        AppendUtf8(out, c);
    }
}

size_t FindUnit(std::u16string_view text, char16_t unit, size_t from) {
    size_t i = from;
#if defined(__SSE2__)
    const __m128i wanted = _mm_set1_epi16(static_cast<short>(unit));
    for (; i + 8 <= text.size(); i += 8) {
        const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + i));
        const int found = _mm_movemask_epi8(_mm_cmpeq_epi16(units, wanted));
        if (found != 0) return i + static_cast<size_t>(std::countr_zero(static_cast<unsigned>(found))) / 2;
    }
#endif
    return text.find(unit, i);
}

size_t Utf16Length(std::string_view utf8) {
    size_t n = 0;
    size_t i = 0;
    while (i < utf8.size()) n += DecodeUtf8(utf8, i) >= 0x10000 ? 2 : 1;
    return n;
}

}  // namespace tormel
