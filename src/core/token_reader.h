#pragma once
// Reads a decoded UTF-16 text as the database and input readers do: whole
// lines with a character limit, quoted names, and "%i" / "%lf" tokens with the
// C library's semantics. Keeps the current line number for error messages.
#include <cstdint>
#include <string>
#include <string_view>

namespace tormel {

class TokenReader {
public:
    explicit TokenReader(std::u16string text);

    // Like fgetws with a buffer of maxChars + 1: reads up to and including the
    // next LF, but at most maxChars characters; the rest of a longer line stays
    // for the next read. False at end of text (nothing read).
    bool ReadLine(std::u16string& line, size_t maxChars);
    // The same line as a view into the text, valid while the reader lives.
    bool ReadLine(std::u16string_view& line, size_t maxChars);
    bool ReadLineUtf8(std::string& line, size_t maxChars);

    // Skips everything up to and including the next double quote, then collects
    // characters up to the closing quote; at most maxChars are kept, the rest of
    // the name is read and dropped. False when the text ends before the opening
    // or the closing quote (the name is then unclosed or missing).
    bool ReadQuotedName(std::string& name, size_t maxChars = 258);

    // "%i": leading white space (line breaks included) skipped, optional sign,
    // 0x prefix for hexadecimal, leading 0 for octal. False on a matching
    // failure (the position is then left after the white space) or at the end.
    bool ReadInt(int32_t& value);
    // "%lf": leading white space skipped, then the longest prefix strtod takes
    // in the C locale (inf, nan and hexadecimal included).
    bool ReadDouble(double& value);

    // Leading white space skipped, then `word` when it stands there whole
    // (followed by white space or the end); false, and nothing but the white
    // space consumed, otherwise.
    bool ReadWord(std::string_view word);

    // Skips the rest of the current line including its LF.
    void SkipLine();
    bool AtEnd() const { return pos_ >= text_.size(); }
    // Skips white space; true when nothing else is left.
    bool OnlySpaceLeft() {
        SkipSpace();
        return AtEnd();
    }
    // 1-based line number of the current position.
    int Line() const { return line_; }

private:
    void Advance(size_t n);
    void SkipSpace();

    std::u16string text_;
    size_t pos_ = 0;
    int line_ = 1;
};

}  // namespace tormel
