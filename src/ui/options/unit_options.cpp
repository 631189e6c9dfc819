#include "ui/options/unit_options.h"

#include "shell/workspace.h"
#include "ui/main/message_box.h"
#include "ui/options/unit_options_dialog.h"

namespace tormel {

bool OpenUnitOptions(Workspace& ws, bool withOutputPart, QWidget* owner) {
    const bool wasReady = ws.uiReady;
    ws.uiReady = false;
    UnitOptionsDialog dialog(ws, withOutputPart, owner);
    CentreOnOwner(&dialog, owner);
    const bool confirmed = dialog.exec() == QDialog::Accepted;
    ws.uiReady = wasReady;
    return confirmed;
}

}  // namespace tormel
