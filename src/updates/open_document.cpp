#include "updates/open_document.h"

#include <QUrl>
#include <filesystem>

#include "core/messages.h"
#include "core/text_file.h"
#include "shell/file_date.h"
#include "shell/workspace.h"
#include "updates/web_access.h"

namespace tormel {

namespace {

// From the web site, or, without one, the copy shipped with the program.
bool Download(Workspace& ws, const std::string& name, const std::string& path) {
    const std::string site = UpdateSiteAddress(ws.settings);
    if (!site.empty() && DownloadFile(site + name, path)) return true;
    const std::string shipped = ws.folders.programFolder + "Documents/" + name;
    std::error_code error;
    if (FileExists(shipped) &&
        std::filesystem::copy_file(shipped, path, std::filesystem::copy_options::overwrite_existing, error))
        return true;
    ShowMessage(ws.Ui(), ws.language, LanguageText(ws.language, "TOOLS", "DocDownLError") + " " + name, {}, IconWarning);
    return false;
}

}  // namespace

void OpenDocument(Workspace& ws, QWidget* /*owner*/, const std::string& name) {
    const std::string folder = ws.folders.documentsFolder;
    const std::string path = folder + name;
    std::error_code error;
    if (!std::filesystem::is_directory(folder, error)) {
        std::filesystem::create_directories(folder, error);
        if (!Download(ws, name, path)) return;
    } else if (!FileExists(path)) {
        if (!Download(ws, name, path)) return;
    } else if (ws.settings.ReadSettingBool("Options", "Check_Updates") && !UpdateSiteAddress(ws.settings).empty()) {
        const std::vector<std::string> signature = FetchTextLines(UpdateSiteAddress(ws.settings) + name + ".dtsig");
        if (!signature.empty() && SignatureIsNewer(signature.front(), FileDateText(path, DateZone::Utc)))
            Download(ws, name, path);
    }
    const UiServices& ui = ws.Ui();
    const std::string url = QUrl::fromLocalFile(QString::fromStdString(path)).toString().toStdString();
    if (!ui.openExternal || !ui.openExternal(url))
        ShowMessage(ui, ws.language, LanguageText(ws.language, "TOOLS", "DocOpenError") + " " + name, {},
                    IconInformation);
}

}  // namespace tormel
