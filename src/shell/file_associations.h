#pragma once
// Input (.i64) and output (.o64) files opening in the desktop program from
// the file manager: the user's registration with the freedesktop tools. The
// desktop entry, the MIME types and the icon come from the folder "desktop"
// beside the program (or in its installed data folder); registering writes
// them below the user's data folder, updates the user's MIME database and
// makes the program the default for both types.
#include <optional>
#include <string>

namespace tormel {

// The user's freedesktop folders: $XDG_DATA_HOME (~/.local/share) and
// $XDG_CONFIG_HOME (~/.config), without a trailing "/".
struct XdgHomes {
    std::string data;
    std::string config;
};
XdgHomes UserXdgHomes();

inline constexpr const char* kInputMimeType = "application/x-tormel-input";
inline constexpr const char* kOutputMimeType = "application/x-tormel-output";
inline constexpr const char* kDesktopEntryName = "tormel.desktop";

// Registers `executable` as the program for both file types. Returns what
// failed (the file or the command, and why); nothing on success.
std::optional<std::string> RegisterFileAssociations(const std::string& programFolder, const std::string& executable,
                                                    const XdgHomes& homes);

// Removes the user's registration: the desktop entry, the MIME types, the
// icon and the two defaults. Returns what failed; nothing on success.
std::optional<std::string> UnregisterFileAssociations(const XdgHomes& homes);

}  // namespace tormel
