#pragma once
// How the result of a consistency check reaches the user: as a message, or
// as text for the batch log.
#include <optional>
#include <string>

#include "core/language.h"
#include "core/ui_services.h"
#include "input/consistency_check.h"

namespace tormel {

// The report of a consistency check as a message or log text:
// Input/"ConsistencyError" + "\n" + errors when there are errors, else
// Input/"ConsistencyWarning" + "\n" + warnings when there are warnings, else
// empty.
std::string ConsistencyReportText(const Language& language, const ConsistencyResult& result);

// Shows the result of a consistency check: the report with the warning icon
// and an empty caption; when nothing was found and `readPath` is given (the
// check ran after a file was read), Input/"InputRead" + "\n" + the path with
// the information icon; otherwise nothing.
void ShowConsistencyResult(const UiServices& ui, const Language& language, const ConsistencyResult& result,
                           const std::optional<std::string>& readPath);

}  // namespace tormel
