#pragma once
// tormel-cli run as a user runs it: in a working folder of its own (input
// folder created), its output and messages caught in a log file.
#include <string>

#include "shell/app_folders.h"
#include "support/temp_folder.h"

namespace tormel::test {

// The folders of a program working in `home` (ending with "/") on the data
// in `programFolder`.
inline AppFolders FoldersIn(const std::string& home, const std::string& programFolder) {
    AppFolders f;
    f.workingFolder = home;
    f.dataFolder = home + "Data/";
    f.inputFolder = home + "Input/";
    f.outputFolder = home + "Output/";
    f.settingsFile = home + "TORMEL64.INI";
    f.languageFile = home + "LANG.INI";
    f.documentsFolder = home + "Documents/";
    f.programFolder = programFolder;
    return f;
}

struct CliHome {
    TempFolder folder;
    std::string home = folder.File("home/");

    explicit CliHome(bool createInputFolder = true);
    // Runs tormel-cli with the arguments in the C locale; its exit code.
    // Standard output goes to `Stdout()`, both streams to `Log()`.
    int Run(const std::string& arguments);
    std::string Log() const;
    std::string Stdout() const;
};

}  // namespace tormel::test
