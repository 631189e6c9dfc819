#include "updates/update_check.h"

#include "core/messages.h"
#include "output/export_rows.h"
#include "shell/update_list.h"
#include "shell/workspace.h"
#include "updates/updates_window.h"
#include "updates/web_access.h"

namespace tormel {

int RunUpdateCheck(Workspace& ws, QWidget* owner) {
    const std::vector<std::string> lines = FetchTextLines(UpdateSiteAddress(ws.settings) + "avlbl64.txt");
    if (lines.empty()) {
        ShowMessage(ws.Ui(), ws.language, LanguageText(ws.language, "Updates", "NoVerInfo"), {}, IconWarning);
        return 0;
    }
    const std::vector<UpdateRow> rows =
        UpdateRows(lines, InstalledFiles{ws.folders.programFolder, ProgramFileVersion()}, ws.language);
    if (rows.empty()) return 0;
    const bool wasReady = ws.uiReady;
    ws.uiReady = false;
    UpdatesWindow window(ws, rows, owner);
    window.exec();
    ws.uiReady = wasReady;
    return 0;
}

}  // namespace tormel
