#include "input/input_title.h"

#include "input/value_text.h"

namespace tormel {

std::string UserDefaultsPath(std::string_view inputFolder) { return std::string(inputFolder) + "defaults.i64"; }

std::string InputTitle(const InputProblem& input, std::string_view inputFolder) {
    std::string title;
    if (!input.currentInputFile.empty() && EqualsIgnoreCase(input.currentInputFile, UserDefaultsPath(inputFolder))) {
        title = "Input data: user defaults (" + input.currentInputFile + ")";
    } else if (!input.currentInputFile.empty()) {
        title = "Input data: " + input.currentInputFile;
    } else {
        title = "Input data: program defaults";
    }
    if (input.modified) title += " (modified)";
    return title;
}

}  // namespace tormel
