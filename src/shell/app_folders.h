#pragma once
// The folders the program works in, resolved once at start-up. Folder paths
// end with "/".
#include <optional>
#include <string>
#include <string_view>

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
    std::string documentsFolder;  // workingFolder + "Documents/" (downloaded documents)
};

// Fills the folders from the environment and the executable's location.
// `argv0` is used only when /proc/self/exe cannot be read.
AppFolders ResolveFolders(const char* argv0 = nullptr);

// A folder the program cannot work in, and why (the system's text).
struct FolderProblem {
    std::string path;
    std::string reason;
};

// Creates the working, data, input and output folders when missing. The
// desktop leaves failures for later file operations to report; a headless
// start-up stops at the returned problem: the first of the four folders that
// is no folder afterwards or cannot be written.
std::optional<FolderProblem> CreateWorkingFolders(const AppFolders& folders);

// `path` with a "/" appended when it lacks one (an empty path stays empty), but only while it is shorter
// than 259 characters (a path holds at most 260 characters).
std::string WithFolderSeparator(std::string path);

// Where the raw data ("RawData/") and languages ("Languages/") of the program
// in `executableFolder` are: beside it, or, for an installed program whose
// folder has no "RawData", in `executableFolder`/../`installDataDir`/ when
// that holds one. Ends with "/".
std::string ProgramFolderFor(const std::string& executableFolder, std::string_view installDataDir);

}  // namespace tormel
