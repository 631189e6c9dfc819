#include "input/input_file_error.h"

#include "core/language.h"

namespace tormel {

std::string InputFileErrorText(const Language& language, const InputFileError& error) {
    std::string text = "\n" + LanguageText(language, "Input", error.key);
    if (error.hasLine) text += "\n(" + error.line + ")";
    if (!error.detail.empty()) text += "\n" + error.detail;
    return text;
}

}  // namespace tormel
