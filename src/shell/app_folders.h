#pragma once
// The folders the program works in, resolved once at start-up. Folder paths
// end with "/".
#include <string>

namespace tormel {

struct AppFolders {
    std::string workingFolder;    // $TORMEL64_HOME/ or $XDG_DATA_HOME/TORMEL64/ (~/.local/share/TORMEL64/)
    std::string dataFolder;       // workingFolder + "Data/"
    std::string inputFolder;      // workingFolder + "Input/"
    std::string outputFolder;     // workingFolder + "Output/"
    std::string settingsFile;     // workingFolder + "TORMEL64.INI"
    std::string languageFile;     // workingFolder + "LANG.INI"
    std::string programFolder;    // folder of the running executable (or where its data were installed)
    std::string executableName;
    std::string helpFile;         // programFolder + "TORMEL64.CHM"
    std::string documentsFolder;  // $XDG_DATA_HOME/TORMEL64/Documents/ (shared documents)
};

// Fills the folders from the environment and the executable's location.
// `argv0` is used only when /proc/self/exe cannot be read.
AppFolders ResolveFolders(const char* argv0 = nullptr);

// Creates the working, data, input and output folders when missing; failures
// are left for later file operations to report.
void CreateWorkingFolders(const AppFolders& folders);

}  // namespace tormel
