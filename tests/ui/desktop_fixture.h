#pragma once
// A desktop session in a fresh working folder, started with a chosen
// language and without the getting-started offer, and helpers that answer
// modal windows while a test waits for them.
#include <gtest/gtest.h>

#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "support/temp_folder.h"
#include "ui/main/desktop_session.h"

namespace tormel {
class OutputViewer;
}

namespace tormel::test {

struct DesktopFixture {
    TempFolder folder;
    std::unique_ptr<DesktopSession> session;
    // Message boxes are recorded and answered as tormel-cli answers them
    // (`answer` >= 0 overrides); the other services are the desktop's.
    std::vector<MessageBoxRequest> boxes;
    int answer = -1;
    std::vector<std::string> links;
    UiServices services;

    // `language`: the file under Languages/ that becomes "LANG.INI".
    explicit DesktopFixture(const std::string& language = "0default.lang");
    // Starts the program (command-line arguments without the program name).
    StartupOutcome Start(const std::vector<std::string>& arguments = {});

    Workspace& Ws() { return session->Ws(); }
    MainWindow& Window() { return session->Window(); }
    // Shows the program's real message boxes from now on.
    void UseRealMessageBoxes() { Ws().ui = &session->Ui().Services(); }
    // Copies the example input into the input folder; its full path.
    std::string ExampleInput(const std::string& name = "hard_water.i64");
    // Opens the example input and calculates it; the viewer of set 0 that opens.
    OutputViewer* CalculateExample(const std::string& name);
};

// A session started without arguments.
struct StartedDesktop : DesktopFixture {
    explicit StartedDesktop(const std::string& language = "0default.lang") : DesktopFixture(language) {
        EXPECT_FALSE(Start().endProcess);
    }
};

// The local server name of this test process (so tests never meet a real program).
QString TestInstanceName();

// Runs `act` on the first visible modal window (or top-level window named
// `objectName`) as soon as one shows; gives up after two seconds.
void WhenWindowShows(const QString& objectName, std::function<void(QWidget*)> act);

}  // namespace tormel::test
