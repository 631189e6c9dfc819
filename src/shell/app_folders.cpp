#include "shell/app_folders.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "core/utf16.h"

#ifndef TORMEL_INSTALL_DATADIR
#define TORMEL_INSTALL_DATADIR "share/tormel"
#endif

namespace tormel {

namespace fs = std::filesystem;

namespace {

constexpr size_t kMaxPathChars = 260;

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string Absolute(const std::string& path) {
    if (path.empty() || path.front() == '/') return path;
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    return error ? path : absolute.lexically_normal().string();
}

std::string HomeFolder() {
    std::string home = Environment("HOME");
    if (!home.empty()) return home;
    const passwd* user = getpwuid(getuid());
    if (user && user->pw_dir) return user->pw_dir;
    std::error_code error;
    return fs::current_path(error).string();
}

// $TORMEL64_HOME, else $XDG_DATA_HOME/TORMEL64 (a relative XDG_DATA_HOME is
// ignored, as the XDG rules ask), else ~/.local/share/TORMEL64.
std::string WorkingFolder() {
    const std::string own = Environment("TORMEL64_HOME");
    if (!own.empty()) return WithFolderSeparator(Absolute(own));
    std::string base = Environment("XDG_DATA_HOME");
    if (base.empty() || base.front() != '/') base = WithFolderSeparator(HomeFolder()) + ".local/share";
    return WithFolderSeparator(WithFolderSeparator(base) + "TORMEL64");
}

bool IsExecutableFile(const std::string& path) {
    std::error_code error;
    return fs::is_regular_file(path, error) && access(path.c_str(), X_OK) == 0;
}

// The running program's full path: /proc/self/exe, else argv0 taken as a path
// or looked up on $PATH; empty when none of them works.
std::string ExecutablePath(const char* argv0) {
    std::error_code error;
    const fs::path self = fs::read_symlink("/proc/self/exe", error);
    if (!error && !self.empty()) return self.string();
    const std::string name = argv0 ? argv0 : "";
    if (name.empty()) return {};
    if (name.find('/') != std::string::npos) return Absolute(name);
    const std::string searchPath = Environment("PATH");
    size_t start = 0;
    while (start <= searchPath.size()) {
        size_t end = searchPath.find(':', start);
        if (end == std::string::npos) end = searchPath.size();
        const std::string folder = searchPath.substr(start, end - start);
        const std::string candidate = WithFolderSeparator(folder.empty() ? "." : folder) + name;
        if (IsExecutableFile(candidate)) return Absolute(candidate);
        start = end + 1;
    }
    return {};
}

bool IsFolder(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

}  // namespace

std::string WithFolderSeparator(std::string path) {
    if (!path.empty() && path.back() != '/' && Utf16Length(path) < kMaxPathChars - 1) path += '/';
    return path;
}

std::string ProgramFolderFor(const std::string& executableFolder, std::string_view installDataDir) {
    const std::string beside = WithFolderSeparator(executableFolder);
    if (IsFolder(fs::path(beside) / "RawData")) return beside;
    const fs::path dataDir(installDataDir);
    const fs::path installed =
        (dataDir.is_absolute() ? dataDir : fs::path(beside) / ".." / dataDir).lexically_normal();
    if (IsFolder(installed / "RawData")) return WithFolderSeparator(installed.string());
    return beside;
}

AppFolders ResolveFolders(const char* argv0) {
    AppFolders f;
    f.workingFolder = WorkingFolder();
    f.dataFolder = WithFolderSeparator(f.workingFolder + "Data");
    f.inputFolder = WithFolderSeparator(f.workingFolder + "Input");
    f.outputFolder = WithFolderSeparator(f.workingFolder + "Output");
    f.settingsFile = f.workingFolder + "TORMEL64.INI";
    f.languageFile = f.workingFolder + "LANG.INI";
    f.documentsFolder = WithFolderSeparator(f.workingFolder + "Documents");

    const fs::path executable(ExecutablePath(argv0));
    f.executableName = executable.filename().string();
    std::string executableFolder = executable.parent_path().string();
    if (executableFolder.empty()) {
        std::error_code error;
        executableFolder = fs::current_path(error).string();
    }
    f.programFolder = ProgramFolderFor(executableFolder, TORMEL_INSTALL_DATADIR);
    f.helpFile = f.programFolder + "TORMEL64.CHM";
    return f;
}

std::optional<FolderProblem> CreateWorkingFolders(const AppFolders& folders) {
    std::optional<FolderProblem> problem;
    for (const std::string* folder :
         {&folders.workingFolder, &folders.dataFolder, &folders.inputFolder, &folders.outputFolder}) {
        if (folder->empty()) continue;
        std::error_code error;
        fs::create_directories(*folder, error);
        if (problem) continue;
        // a file in the way is reported as "File exists"; say what is wrong with it
        const fs::path self = fs::path(*folder).parent_path();  // the folder without its final "/"
        std::error_code ignored;
        if (fs::exists(self, ignored) && !IsFolder(self)) error = std::make_error_code(std::errc::not_a_directory);
        if (!error && access(folder->c_str(), W_OK) != 0) error = std::error_code(errno, std::generic_category());
        if (error) problem = FolderProblem{*folder, error.message()};
    }
    return problem;
}

}  // namespace tormel
