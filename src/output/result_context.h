#pragma once
// What building and showing results needs beyond the calculation: the
// language texts, the output options (loaded by the shell) and the user's
// decimal separator.
#include "core/language.h"
#include "output/number_text.h"
#include "output/output_options.h"

namespace tormel {

struct ResultContext {
    const Language& language;
    OutputOptions& options;
    DecimalSeparator separator;
};

}  // namespace tormel
