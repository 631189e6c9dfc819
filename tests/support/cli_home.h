#pragma once
// tormel-cli run as a user runs it: in a working folder of its own (input
// folder created), its output and messages caught in a log file.
#include <string>

#include "shell/app_folders.h"
#include "support/scoped_env.h"
#include "support/temp_folder.h"

namespace tormel::test {

// The folders of a program working in `home` on the data in `programFolder`.
inline AppFolders FoldersIn(const std::string& home, const std::string& programFolder) {
    const ScopedEnv own("TORMEL64_HOME", home);
    AppFolders folders = ResolveFolders();
    folders.programFolder = programFolder;
    return folders;
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
