#include "ui/options/unit_options.h"

#include "ui/main/not_available.h"

namespace tormel {

bool OpenUnitOptions(Workspace& ws, bool /*withOutputPart*/, QWidget* /*owner*/) {
    ShowNotAvailableYet(ws);
    return false;
}

}  // namespace tormel
