#pragma once
// The two lists of recently used files (input files and output files), nine
// places each, place 0 the most recent. They are kept in section [Options] of
// the settings file under "RIF1".."RIF9" and "ROF1".."ROF9", each place as
// folder + "," + file name + "," + timestamp (",," for an empty place), and
// only while "Remember-InputFiles" / "Remember-OutputFiles" is set.
#include <array>
#include <cstdint>
#include <ctime>
#include <functional>
#include <string>
#include <string_view>

#include "shell/settings.h"

namespace tormel {

inline constexpr int32_t kRecentFilePlaces = 9;

struct RecentFileEntry {
    std::string folder;     // ends with "/"; empty for an empty place
    std::string fileName;   // without folder; empty for an empty place
    std::string timestamp;  // local time of last use, "%Y%m%e%H%M%S" (at most 15 characters)

    bool Empty() const { return folder.empty() && fileName.empty(); }
    std::string Path() const { return folder + fileName; }
};

enum class RecentListKind { Input, Output };

struct RecentFileList {
    RecentListKind kind = RecentListKind::Input;
    std::array<RecentFileEntry, kRecentFilePlaces> places;
};

struct RecentFiles {
    RecentFileList input{RecentListKind::Input, {}};
    RecentFileList output{RecentListKind::Output, {}};
};

// The current local time as a recent-files timestamp; tests pass their own.
using RecentFileClock = std::function<std::string()>;

// "%Y%m%e%H%M%S" of `time` in local time: 5 March 2024 14:03:09 gives
// "202403 5140309"; the space-padded day keeps string order equal to time order.
std::string FormatRecentFileTimestamp(std::time_t time);

// Enters `path` at the top of the list, or, when it is there already (letter
// case ignored), refreshes its timestamp and re-sorts the list newest first.
// Nothing happens while the list's "Remember-..." switch is off. An empty
// `clock` uses the current local time.
void AddRecentFile(RecentFileList& list, std::string_view path, const Settings& settings,
                   const RecentFileClock& clock = {});

// Empties both lists and reads each whose switch is on.
void LoadRecentFiles(RecentFiles& files, const Settings& settings);

// Removes the places whose file no longer exists; later places move up.
void PruneRecentFiles(RecentFileList& list);

// Writes all nine places of each list whose switch is on, input list first.
void SaveRecentFiles(const RecentFiles& files, Settings& settings);

// The entry at 1-based `position`, or nullptr when the position is outside
// 1..9 or the place is empty.
const RecentFileEntry* RecentFileAt(const RecentFileList& list, int32_t position);

}  // namespace tormel
