#include "ui/desktop_fixture.h"

#include <QApplication>
#include <QTimer>
#include <filesystem>

#include "shell/headless_ui.h"
#include "shell/language_files.h"
#include "shell/settings.h"
#include "support/cli_home.h"
#include "ui/output/open_output_viewer.h"

namespace tormel::test {

QString TestInstanceName() { return QStringLiteral("TORMELcVexa-test-%1").arg(QCoreApplication::applicationPid()); }

DesktopFixture::DesktopFixture(const std::string& language) {
    const AppFolders folders = FoldersIn(folder.File("home/"), TORMEL_PROGRAM_DIR);
    std::filesystem::create_directories(folders.inputFolder);
    InstallLanguageFile(folders.programFolder + "Languages/" + language, folders);
    // LANG.INI must not be older than 0default.lang, or the language window opens
    std::filesystem::last_write_time(folders.languageFile, std::filesystem::file_time_type::clock::now());
    Settings settings(folders.settingsFile);
    settings.WriteSettingBool("Options", "OfferGetStarted", false);
    settings.WriteSettingBool("Options", "Check_Updates", false);
    settings.WriteSettingString("Links", "UpdateSite", "http://127.0.0.1:9/");  // nothing listens: no test leaves the machine
    session = std::make_unique<DesktopSession>(folders, TestInstanceName());
    services = session->Ui().Services();
    services.showMessageBox = [this](const MessageBoxRequest& request) {
        boxes.push_back(request);
        return MessageBoxAnswer{answer >= 0 ? answer : HeadlessAnswer(request), false};
    };
    services.openExternal = [this](std::string_view url) {
        links.emplace_back(url);
        return true;
    };
    session->Ws().ui = &services;
}

StartupOutcome DesktopFixture::Start(const std::vector<std::string>& arguments) {
    StartupOutcome outcome = session->Start(arguments);
    QApplication::processEvents();
    return outcome;
}

std::string DesktopFixture::ExampleInput(const std::string& name) {
    const std::string target = Ws().folders.inputFolder + name;
    std::filesystem::copy_file(std::string(TORMEL_SOURCE_DIR) + "/data/examples/" + name, target,
                               std::filesystem::copy_options::overwrite_existing);
    return target;
}

OutputViewer* DesktopFixture::CalculateExample(const std::string& name) {
    Window().ReceiveHandover(275, QString::fromStdString(ExampleInput(name)));
    Window().DispatchCommand(1121);
    QApplication::processEvents();
    return OpenViewerOfSetZero();
}

void WhenWindowShows(const QString& objectName, std::function<void(QWidget*)> act) {
    auto* timer = new QTimer;
    auto tries = std::make_shared<int>(0);
    QObject::connect(timer, &QTimer::timeout, [timer, tries, objectName, act] {
        QWidget* found = objectName.isEmpty() ? QApplication::activeModalWidget() : nullptr;
        if (!objectName.isEmpty())
            for (QWidget* w : QApplication::topLevelWidgets())
                if (w->isVisible() && w->objectName() == objectName) found = w;
        if (found || ++*tries > 400) {
            timer->stop();
            timer->deleteLater();
            if (found) act(found);
        }
    });
    timer->start(5);
}

}  // namespace tormel::test
