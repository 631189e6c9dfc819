#pragma once
// What the program does with its command line at the end of start-up: load
// the user's default input file, open a file given as argument, or run one
// of the switches that end the process.
#include <functional>
#include <string>

#include "shell/batch_run.h"
#include "shell/command_line.h"
#include "shell/workspace.h"

namespace tormel {

// What the program that calls HandleCommandLine does that the logic below
// cannot do itself. Every member may be empty.
struct CommandLineServices {
    // Hands a file to an instance that is already running; true when that
    // instance took it (this process then ends with exit code 0 at once).
    std::function<bool(const std::string& path)> forwardToRunningInstance;
    // Shows result set 0 (the output viewer).
    std::function<void(Workspace&)> showOutput;
    // Prints result set 0, just read from the output file at `outputPath`,
    // with the stored print settings, without a dialog. Empty in a program
    // that cannot print.
    std::function<void(Workspace&, const std::string& outputPath)> printOutput;
    // The orderly end of the session (settings saved, main window closed).
    std::function<void(Workspace&)> shutDown;
    // How a batch runs (jobs at a time, progress).
    BatchOptions batch;
};

struct CommandLineOutcome {
    bool endProcess = false;  // the process ends with `exitCode`
    int exitCode = 0;
};

// Runs the command line (see command_line.h for its forms).
CommandLineOutcome HandleCommandLine(Workspace& ws, const CommandLine& line, const CommandLineServices& services);

// Reads an input file named on the command line or handed over by a second
// instance (a name without folder is taken from the input folder) and shows
// the consistency report. The file does not enter the recent-files list.
void OpenInputFromCommandLine(Workspace& ws, const std::string& path);

// Reads an output file into set 0 (a name without folder is taken from the
// output folder), prepares the result tables and shows them; false when the
// reader refused the file (its message has been shown).
bool OpenOutputFromCommandLine(Workspace& ws, const std::string& path, const CommandLineServices& services);

// "/run:" input [output]: calculates the input and writes the results by the
// output's extension (default: the input's name with ".o64" in the output
// folder). Exit code 0 when the results were written, else 1.
CommandLineOutcome RunSingleInput(Workspace& ws, const CommandLine& line, const CommandLineServices& services);

// "/batch:" batch file. Exit code 0 when every line was a job that was
// calculated and saved, else 1.
CommandLineOutcome RunBatchFromCommandLine(Workspace& ws, const CommandLine& line, const CommandLineServices& services);

// "/print:" output file. Without a print service: a message that printing
// needs the desktop program, exit code 1.
CommandLineOutcome PrintOutputFile(Workspace& ws, const CommandLine& line, const CommandLineServices& services);

}  // namespace tormel
