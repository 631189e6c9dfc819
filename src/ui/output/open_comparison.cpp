#include "ui/output/open_comparison.h"

#include "ui/main/not_available.h"

namespace tormel {

void OpenComparison(Workspace& ws, QWidget* /*owner*/) { ShowNotAvailableYet(ws); }

}  // namespace tormel
