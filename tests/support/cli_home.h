#pragma once
// tormel-cli run as a user runs it: in a working folder of its own (input
// folder created), its output and messages caught in a log file.
#include <string>

#include "support/temp_folder.h"

namespace tormel::test {

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
