#include "input/consistency_report.h"

#include "core/messages.h"

namespace tormel {

std::string ConsistencyReportText(const Language& language, const ConsistencyResult& result) {
    if (!result.errors.empty()) return LanguageText(language, "Input", "ConsistencyError") + "\n" + result.errors;
    if (!result.warnings.empty()) return LanguageText(language, "Input", "ConsistencyWarning") + "\n" + result.warnings;
    return {};
}

void ShowConsistencyResult(const UiServices& ui, const Language& language, const ConsistencyResult& result,
                           const std::optional<std::string>& readPath) {
    if (!result.Empty()) {
        ShowMessage(ui, language, ConsistencyReportText(language, result), "", IconWarning);
    } else if (readPath) {
        ShowMessage(ui, language, LanguageText(language, "Input", "InputRead") + "\n" + *readPath, "",
                    IconInformation);
    }
}

}  // namespace tormel
