#include "support/cli_home.h"

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>

namespace tormel::test {

CliHome::CliHome(bool createInputFolder) {
    if (createInputFolder) std::filesystem::create_directories(home + "Input");
}

int CliHome::Run(const std::string& arguments) {
    const std::string command = "LC_ALL=C TORMEL64_HOME='" + home + "' '" + std::string(TORMEL_PROGRAM_DIR) +
                                "tormel-cli' " + arguments + " 2> '" + folder.File("cli.err") + "' > '" +
                                folder.File("cli.out") + "'";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string CliHome::Log() const { return ReadBytes(folder.File("cli.out")) + ReadBytes(folder.File("cli.err")); }

std::string CliHome::Stdout() const { return ReadBytes(folder.File("cli.out")); }

}  // namespace tormel::test
