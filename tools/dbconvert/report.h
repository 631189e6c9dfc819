#pragma once
// The conversion report written beside the converted files: counts, every
// species, solid or gas left out with its reason, and the remarks.
#include <string>

#include "conversion.h"

namespace dbconvert {

// Markdown text of the report. `sourceName` is the file name of the source
// data (no folder, so that the report does not depend on where it lies).
std::string FormatConversionReport(const ConversionResult& result, const std::string& sourceName);

}  // namespace dbconvert
