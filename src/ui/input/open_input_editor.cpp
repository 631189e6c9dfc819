#include "ui/input/open_input_editor.h"

#include "ui/main/not_available.h"

namespace tormel {

void OpenInputEditor(Workspace& ws, QWidget* /*owner*/) { ShowNotAvailableYet(ws); }

}  // namespace tormel
