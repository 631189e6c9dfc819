#include "output/output_file.h"

namespace tormel {

std::string OutputFileErrorText(const Language& language, const OutputFileError& error) {
    std::string text = LanguageText(language, "Output", error.key);
    if (error.key == "ErrorOpen4") text += " (" + error.versionLine + ").";
    if (!error.path.empty()) text += "\n" + error.path;
    if (!error.detail.empty()) text += "\n" + error.detail;
    return text;
}

}  // namespace tormel
