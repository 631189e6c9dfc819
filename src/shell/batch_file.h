#pragma once
// Batch files: one job per line, an input file and the file its results go
// to, either as
//     "input name" "output name"     (exactly four quotation marks; names may hold blanks)
// or as
//     input.i64 output.o64           (no quotation mark, exactly one blank)
// Any other line, an empty one too, is a syntax error. The file is UTF-16LE;
// one saved as plain UTF-8 by an editor is read as UTF-8
// (ReadUtf16OrUtf8File).
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tormel {

// The longest line read at once; the rest of a longer line is the next line.
inline constexpr size_t kBatchLineLimit = 517;

struct BatchJob {
    std::string input;
    std::string output;
};

// The job of one line, or nullopt for a syntax error.
std::optional<BatchJob> ParseBatchLine(std::string_view line);

// The lines of a batch file's decoded text, line feeds trimmed from both
// ends; a final line break does not make an empty last line.
std::vector<std::string> SplitBatchLines(std::u16string text);

}  // namespace tormel
