#include "shell/file_associations.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

namespace tormel {

namespace fs = std::filesystem;

namespace {

// Where the registered files go, below the user's data folder.
fs::path DesktopEntryPath(const XdgHomes& homes) { return fs::path(homes.data) / "applications" / kDesktopEntryName; }
fs::path MimePackagePath(const XdgHomes& homes) { return fs::path(homes.data) / "mime" / "packages" / "tormel.xml"; }
fs::path IconPath(const XdgHomes& homes) {
    return fs::path(homes.data) / "icons" / "hicolor" / "scalable" / "apps" / "tormel.svg";
}

std::string ShellQuoted(const std::string& text) {
    std::string quoted = "'";
    for (char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

// A path as an argument of the desktop entry's Exec key: quoted when it
// holds a character the key reserves.
std::string ExecArgument(const std::string& path) {
    if (path.find_first_of(" \t\"'\\><~|&;$*?#()`") == std::string::npos) return path;
    std::string quoted = "\"";
    for (char c : path) {
        if (c == '"' || c == '`' || c == '$' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + "\"";
}

std::optional<std::string> Run(const std::string& command) {
    const int status = std::system((command + " >/dev/null 2>&1").c_str());
    if (status == 0) return std::nullopt;
    return "the command failed (status " + std::to_string(status) + "): " + command;
}

std::string WithHomes(const XdgHomes& homes, const std::string& command) {
    return "XDG_DATA_HOME=" + ShellQuoted(homes.data) + " XDG_CONFIG_HOME=" + ShellQuoted(homes.config) + " " +
           command;
}

std::optional<std::string> CopyInto(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::create_directories(to.parent_path(), error);
    if (!error) fs::copy_file(from, to, fs::copy_options::overwrite_existing, error);
    if (error) return to.string() + ": " + error.message();
    return std::nullopt;
}

// The delivered desktop entry with Exec pointing at `executable`.
std::optional<std::string> WriteDesktopEntry(const fs::path& from, const fs::path& to, const std::string& executable) {
    std::ifstream in(from);
    if (!in) return from.string() + ": cannot be read";
    std::ostringstream text;
    for (std::string line; std::getline(in, line);)
        text << (line.rfind("Exec=", 0) == 0 ? "Exec=" + ExecArgument(executable) + " %f" : line) << '\n';
    std::error_code error;
    fs::create_directories(to.parent_path(), error);
    std::ofstream out(to, std::ios::trunc);
    if (error || !(out << text.str()) || !out.flush()) return to.string() + ": cannot be written";
    return std::nullopt;
}

// Drops the defaults for our two types from the user's mimeapps.list.
std::optional<std::string> ForgetDefaults(const XdgHomes& homes) {
    const fs::path list = fs::path(homes.config) / "mimeapps.list";
    std::ifstream in(list);
    if (!in) return std::nullopt;
    std::vector<std::string> kept;
    for (std::string line; std::getline(in, line);)
        if (line.rfind(std::string(kInputMimeType) + "=", 0) != 0 && line.rfind(std::string(kOutputMimeType) + "=", 0) != 0)
            kept.push_back(line);
    in.close();
    std::ofstream out(list, std::ios::trunc);
    for (const std::string& line : kept) out << line << '\n';
    if (!out.flush()) return list.string() + ": cannot be written";
    return std::nullopt;
}

}  // namespace

XdgHomes UserXdgHomes() {
    const char* home = std::getenv("HOME");
    const std::string base = home ? home : "";
    const char* data = std::getenv("XDG_DATA_HOME");
    const char* config = std::getenv("XDG_CONFIG_HOME");
    return {data && *data ? data : base + "/.local/share", config && *config ? config : base + "/.config"};
}

std::optional<std::string> RegisterFileAssociations(const std::string& programFolder, const std::string& executable,
                                                    const XdgHomes& homes) {
    const fs::path delivered = fs::path(programFolder) / "desktop";
    if (auto failed = WriteDesktopEntry(delivered / kDesktopEntryName, DesktopEntryPath(homes), executable))
        return failed;
    if (auto failed = CopyInto(delivered / "tormel-mime.xml", MimePackagePath(homes))) return failed;
    if (auto failed = CopyInto(delivered / "tormel.svg", IconPath(homes))) return failed;
    if (auto failed = Run("update-mime-database " + ShellQuoted((fs::path(homes.data) / "mime").string())))
        return failed;
    return Run(WithHomes(homes, std::string("xdg-mime default ") + kDesktopEntryName + " " + kInputMimeType + " " +
                                    kOutputMimeType));
}

std::optional<std::string> UnregisterFileAssociations(const XdgHomes& homes) {
    std::error_code error;
    for (const fs::path& file : {DesktopEntryPath(homes), MimePackagePath(homes), IconPath(homes)}) {
        fs::remove(file, error);
        if (error) return file.string() + ": " + error.message();
    }
    if (auto failed = ForgetDefaults(homes)) return failed;
    const fs::path mime = fs::path(homes.data) / "mime";
    if (!fs::exists(mime, error)) return std::nullopt;
    return Run("update-mime-database " + ShellQuoted(mime.string()));
}

}  // namespace tormel
