// tormel: the desktop program.
//
//   tormel                     open the main window with the user's default input
//   tormel FILE.i64|FILE.o64   open a file (in the running program when there is one)
//   tormel /run:IN [OUT]       calculate one input file and end
//   tormel /batch:FILE         calculate a batch file and end
//   tormel /print:FILE.o64     print an output file and end
#include <QApplication>
#include <clocale>
#include <string>
#include <vector>

#include "shell/app_folders.h"
#include "ui/main/desktop_session.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    // Qt took the number format from the environment; files keep the C locale.
    std::setlocale(LC_NUMERIC, "C");
    tormel::DesktopSession session(tormel::ResolveFolders(argv[0]));
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const tormel::StartupOutcome outcome = session.Start(arguments);
    if (outcome.endProcess) return outcome.exitCode;
    return app.exec();
}
