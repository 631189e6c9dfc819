#pragma once
// The tooltip of an entry of the recent-files lists: the full path, a blank
// line and the file's description.
#include <string>

namespace tormel {

// The description stored in an input or output file: line 4 (line 3 of an
// old-format ".inp" input file), trimmed; empty when the file cannot be read.
std::string StoredDescription(const std::string& path);

// path + "\n\n" + description, with " (not specified)" appended when the description is empty.
std::string RecentFileTooltip(const std::string& path);

}  // namespace tormel
