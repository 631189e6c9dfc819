#include "shell/batch_file.h"

#include <algorithm>

#include "core/token_reader.h"

namespace tormel {

namespace {

std::optional<BatchJob> Valid(std::string_view input, std::string_view output) {
    if (input.empty() || output.empty()) return std::nullopt;
    return BatchJob{std::string(input), std::string(output)};
}

}  // namespace

std::optional<BatchJob> ParseBatchLine(std::string_view line) {
    const auto quotes = std::count(line.begin(), line.end(), '"');
    if (quotes == 4) {
        // "input" "output": the line starts and ends with a quotation mark and
        // one blank separates the two quoted names
        if (line.front() != '"' || line.back() != '"') return std::nullopt;
        const size_t close = line.find('"', 1);
        if (close + 3 >= line.size() || line[close + 1] != ' ' || line[close + 2] != '"') return std::nullopt;
        return Valid(line.substr(1, close - 1), line.substr(close + 3, line.size() - close - 4));
    }
    if (quotes != 0 || std::count(line.begin(), line.end(), ' ') != 1) return std::nullopt;
    const size_t blank = line.find(' ');
    return Valid(line.substr(0, blank), line.substr(blank + 1));
}

std::vector<std::string> SplitBatchLines(std::u16string text) {
    if (!text.empty() && text.front() == u'\uFEFF') text.erase(0, 1);
    TokenReader reader(std::move(text));
    std::vector<std::string> lines;
    std::string line;
    while (reader.ReadLineUtf8(line, kBatchLineLimit)) {
        size_t first = 0;
        while (first < line.size() && line[first] == '\n') ++first;
        size_t last = line.size();
        while (last > first && line[last - 1] == '\n') --last;
        lines.push_back(line.substr(first, last - first));
    }
    return lines;
}

}  // namespace tormel
