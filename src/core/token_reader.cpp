#include "core/token_reader.h"

#include <climits>
#include <cstdlib>
#include <cwctype>

#include "core/c_number.h"
#include "core/utf16.h"

namespace tormel {

namespace {

bool IsSpace(char16_t c) { return c == u' ' || c == u'\t' || c == u'\n' || c == u'\v' || c == u'\f' || c == u'\r'; }

}  // namespace

TokenReader::TokenReader(std::u16string text) : text_(std::move(text)) {}

void TokenReader::Advance(size_t n) {
    for (size_t k = 0; k < n && pos_ < text_.size(); ++k) {
        if (text_[pos_++] == u'\n') ++line_;
    }
}

void TokenReader::SkipSpace() {
    while (pos_ < text_.size() && IsSpace(text_[pos_])) Advance(1);
}

bool TokenReader::ReadLine(std::u16string_view& line, size_t maxChars) {
    line = {};
    if (pos_ >= text_.size()) return false;
    const std::u16string_view rest = std::u16string_view(text_).substr(pos_, maxChars);
    const size_t lineFeed = FindUnit(rest, u'\n');
    line = rest.substr(0, lineFeed == std::u16string_view::npos ? rest.size() : lineFeed + 1);
    pos_ += line.size();
    if (lineFeed != std::u16string_view::npos) ++line_;
    return true;
}

bool TokenReader::ReadLine(std::u16string& line, size_t maxChars) {
    std::u16string_view view;
    const bool read = ReadLine(view, maxChars);
    line.assign(view);
    return read;
}

bool TokenReader::ReadLineUtf8(std::string& line, size_t maxChars) {
    std::u16string wide;
    bool ok = ReadLine(wide, maxChars);
    line = Utf16ToUtf8(wide);
    return ok;
}

bool TokenReader::ReadQuotedName(std::string& name, size_t maxChars) {
    name.clear();
    while (pos_ < text_.size() && text_[pos_] != u'"') Advance(1);
    if (pos_ >= text_.size()) return false;
    Advance(1);  // opening quote
    std::u16string wide;
    while (pos_ < text_.size() && text_[pos_] != u'"') {
        if (wide.size() < maxChars) wide += text_[pos_];
        Advance(1);
    }
    name = Utf16ToUtf8(wide);
    if (pos_ >= text_.size()) return false;
    Advance(1);  // closing quote
    return true;
}

// Copies the ASCII characters from the current position (at most `limit`)
// into a narrow buffer for the C library's conversions, up to the first
// blank or control character: no number goes on past one.
static std::string AsciiPrefix(const std::u16string& text, size_t pos, size_t limit) {
    size_t end = pos;
    while (end < text.size() && end - pos < limit && text[end] > u' ' && text[end] < 0x80) ++end;
    std::string out(end - pos, '\0');
    for (size_t i = pos; i < end; ++i) out[i - pos] = static_cast<char>(text[i]);
    return out;
}

bool TokenReader::ReadInt(int32_t& value) {
    SkipSpace();
    if (pos_ >= text_.size()) return false;
    std::string s = AsciiPrefix(text_, pos_, 64);
    if (s.empty()) return false;
    char* end = nullptr;
    long long v = std::strtoll(s.c_str(), &end, 0);
    size_t used = static_cast<size_t>(end - s.c_str());
    if (used == 0) return false;
    if (v > INT32_MAX) v = INT32_MAX;
    if (v < INT32_MIN) v = INT32_MIN;
    value = static_cast<int32_t>(v);
    Advance(used);
    return true;
}

bool TokenReader::ReadDouble(double& value) {
    SkipSpace();
    if (pos_ >= text_.size()) return false;
    std::string s = AsciiPrefix(text_, pos_, 512);
    if (s.empty()) return false;
    size_t used = 0;
    double v = StrToDoubleC(s, &used);
    if (used == 0) return false;
    value = v;
    Advance(used);
    return true;
}

bool TokenReader::ReadWord(std::string_view word) {
    SkipSpace();
    if (text_.size() - pos_ < word.size()) return false;
    for (size_t i = 0; i < word.size(); ++i)
        if (text_[pos_ + i] != static_cast<char16_t>(static_cast<unsigned char>(word[i]))) return false;
    if (pos_ + word.size() < text_.size() && !IsSpace(text_[pos_ + word.size()])) return false;
    Advance(word.size());
    return true;
}

void TokenReader::SkipLine() {
    while (pos_ < text_.size()) {
        char16_t c = text_[pos_];
        Advance(1);
        if (c == u'\n') break;
    }
}

}  // namespace tormel
