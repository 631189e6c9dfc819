#pragma once
// Runs the real tormel-cli program of the build in a working folder of a
// test's own.
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "support/temp_folder.h"

namespace tormel::test {

struct CliHome {
    TempFolder folder;
    std::string home = folder.File("home/");

    explicit CliHome(bool createInputFolder = true) {
        if (createInputFolder) std::filesystem::create_directories(home + "Input");
    }
    // Runs tormel-cli with the arguments and TORMEL64_HOME set to `home`; its
    // exit code. Standard output and error go to Log().
    int Run(const std::string& arguments) {
        const std::string command = "TORMEL64_HOME='" + home + "' '" + std::string(TORMEL_PROGRAM_DIR) +
                                    "tormel-cli' " + arguments + " > '" + folder.File("cli.log") + "' 2>&1";
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    std::string Log() const {
        std::ifstream in(folder.File("cli.log"));
        return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    }
};

}  // namespace tormel::test
