#include "input/input_file_error.h"

#include "core/language.h"

namespace tormel {

namespace {

std::string WithoutLineFeed(std::string line) {
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
    return line;
}

// "path, line n", "path" or "line n"; empty when neither is known.
std::string Location(const Language& language, const std::string& path, int lineNumber) {
    std::string where = path;
    if (lineNumber > 0) {
        if (!where.empty()) where += ", ";
        where += LanguageText(language, "Input", "LineNumber") + " " + std::to_string(lineNumber);
    }
    return where;
}

void AppendPlace(std::string& text, const std::string& where) {
    if (!where.empty()) text += "\n" + where;
}

}  // namespace

std::string InputFileErrorText(const Language& language, const InputFileError& error) {
    std::string text = "\n" + LanguageText(language, "Input", error.key);
    if (error.earlierLineNumber > 0) {
        AppendPlace(text, Location(language, error.path, error.earlierLineNumber));
        text += "\n(" + error.earlierLine + ")";
    }
    AppendPlace(text, Location(language, error.path, error.lineNumber));
    if (error.hasLine) text += "\n(" + WithoutLineFeed(error.line) + ")";
    if (!error.detail.empty()) text += "\n" + error.detail;
    return text;
}

}  // namespace tormel
