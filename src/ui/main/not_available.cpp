#include "ui/main/not_available.h"

#include "core/messages.h"
#include "shell/workspace.h"

namespace tormel {

void ShowNotAvailableYet(Workspace& ws) {
    ShowMessage(ws.Ui(), ws.language, "\n" + LanguageText(ws.language, "TOOLS", "NotAvailable"), {}, IconInformation);
}

}  // namespace tormel
