#pragma once
// What building and showing results needs beyond the calculation: the
// language texts, the settings the output options come from, the options
// themselves and the user's decimal separator.
#include "core/language.h"
#include "output/number_text.h"
#include "output/output_options.h"
#include "shell/settings.h"

namespace tormel {

struct ResultContext {
    const Language& language;
    const Settings& settings;
    OutputOptions& options;
    DecimalSeparator separator;
};

}  // namespace tormel
