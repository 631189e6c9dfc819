#include "ui/main/desktop_session.h"

#include <QApplication>
#include <QScreen>

#include "shell/headless_ui.h"
#include "ui/main/help_pages.h"
#include "ui/main/image_resources.h"
#include "ui/main/language_window.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"
#include "ui/main/window_placement.h"
#include "ui/output/open_output_viewer.h"
#include "ui/output/print_without_dialog.h"
#include "updates/update_check.h"
#include "updates/web_access.h"

namespace tormel {

DesktopSession::DesktopSession(AppFolders folders, const QString& instanceName)
    : startupUi_(MakeHeadlessUi()), instanceName_(instanceName) {
    ws_ = Workspace(std::move(folders), startupUi_);
    SetDpiScale(DpiScaleOf(QApplication::primaryScreen()));
    window_ = std::make_unique<MainWindow>(ws_);
    ui_ = std::make_unique<DesktopUi>(ws_, window_.get());
    ws_.ui = &ui_->Services();
    window_->SetDesktopUi(ui_.get());
    server_ = std::make_unique<InstanceServer>(
        [this](int code, const QString& path) { return window_->ReceiveHandover(code, path); });

    MainWindow* window = window_.get();
    window->setWindowIcon(ResourceIcon(QStringLiteral("IMAGE_TORMEL")));
    window->Services().image = [](const std::string& name, int size) {
        const QSize design = ResourceImageSize(Q(name));
        if (design.isEmpty()) return QPixmap();
        return ResourceImage(Q(name), static_cast<double>(size) / design.width());
    };
    window->Services().openHelp = [this](int topic) {
        if (topic > 0) OpenHelpTopic(ws_.folders, topic);
        else if (topic == 0) OpenHelpContents(ws_.folders);
        else if (topic == -1) OpenHelpIndex(ws_.folders);
        else OpenHelpSearch(ws_.folders);
    };
    hooks_.chooseLanguage = [this, window](const std::vector<std::string>& names) {
        return SelectLanguageWindow(ws_.language, names, window->Services().openHelp, window, &ws_.uiReady);
    };
    hooks_.buildMainWindow = [window] { window->BuildTiles(); };
    hooks_.openHelp = [window](int topic) {
        if (window->Services().openHelp) window->Services().openHelp(topic);
    };
    hooks_.paintInformation = [window] { window->PaintInfoArea(); };
    hooks_.createInstanceMutex = [this] { server_->Listen(instanceName_); };
    hooks_.updateStatusLine = [window] { window->UpdateStatusLine(); };
    hooks_.saveWindowPlacement = [this, window] { SaveMainWindowPlacement(ws_.settings, window); };
    hooks_.releaseResources = [this] { server_->Close(); };
    // The update check runs on the main thread, with its own event loops, when start-up waits for it.
    hooks_.startUpdateCheck = [] {};
    // Without a web site set up there is nothing to ask at start-up.
    hooks_.waitForUpdateCheck = [this, window] {
        return !UpdateSiteAddress(ws_.settings).empty() && RunUpdateCheck(ws_, window) == 1;
    };
    window_->Services().shutDown = [this] {
        if (shutDown_) return;
        shutDown_ = true;
        SaveSettingsAndShutDown(ws_, hooks_);
    };

    commandServices_.forwardToRunningInstance = [this](const std::string& path) {
        if (SendHandover(Q(path), kHandoverDataCode, instanceName_) != 0) return true;
        server_->Listen(instanceName_);
        return false;
    };
    commandServices_.showOutput = [window](Workspace& ws) { OpenOutputViewer(ws, window); };
    commandServices_.printOutput = [](Workspace& ws, const std::string& outputPath) {
        PrintLoadedOutputWithoutDialog(ws, outputPath);
    };
    commandServices_.shutDown = [this](Workspace&) { window_->Services().shutDown(); };
}

DesktopSession::~DesktopSession() {
    ws_.ui = &startupUi_;
    ui_.reset();
    window_.reset();
}

void DesktopSession::PlaceWindow() {
    const QScreen* screen = QApplication::primaryScreen();
    const QRect work = screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
    const WindowPlacement placement = PlaceMainWindow(work, DpiScale(), ReadSavedPlacement(ws_.settings, work));
    window_->move(placement.frame.topLeft());
    window_->resize(placement.frame.size());
    if (placement.maximised)
        window_->showMaximized();
    else
        window_->show();
}

StartupOutcome DesktopSession::Start(const std::vector<std::string>& arguments) {
    ws_.settings = Settings(ws_.folders.settingsFile);
    PlaceWindow();
    return InitializeApplication(ws_, NormaliseCommandLine(arguments), hooks_, commandServices_);
}

}  // namespace tormel
