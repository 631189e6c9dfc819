#pragma once
// One run of the desktop program: the workspace, the main window with its
// UI services, the single-instance server and the start-up hooks that join
// them to the shared start-up sequence.
#include <QRect>
#include <memory>
#include <string>
#include <vector>

#include "shell/startup.h"
#include "shell/workspace.h"
#include "ui/main/desktop_ui.h"
#include "ui/main/main_window.h"
#include "ui/main/single_instance.h"

namespace tormel {

class DesktopSession {
public:
    // `folders` as resolved for this process; `instanceName` is the local
    // server name (tests use their own).
    explicit DesktopSession(AppFolders folders, const QString& instanceName = QString::fromLatin1(kInstanceServerName));
    ~DesktopSession();

    // Places and shows the main window, then runs the start-up sequence with
    // the command-line arguments (without the program name).
    StartupOutcome Start(const std::vector<std::string>& arguments);

    Workspace& Ws() { return ws_; }
    MainWindow& Window() { return *window_; }
    DesktopUi& Ui() { return *ui_; }
    InstanceServer& Server() { return *server_; }
    StartupHooks& Hooks() { return hooks_; }
    CommandLineServices& CommandServices() { return commandServices_; }

private:
    void PlaceWindow();

    Workspace ws_;
    UiServices startupUi_;
    std::unique_ptr<MainWindow> window_;
    std::unique_ptr<DesktopUi> ui_;
    std::unique_ptr<InstanceServer> server_;
    QString instanceName_;
    StartupHooks hooks_;
    CommandLineServices commandServices_;
    bool shutDown_ = false;
};

}  // namespace tormel
