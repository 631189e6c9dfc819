#pragma once
// The list of files available on the program's web site ("avlbl64.txt"),
// compared with the installed files: which rows the updates window shows.
#include <string>
#include <string_view>
#include <vector>

#include "core/language.h"

namespace tormel {

// "0.2.1.12" -> "0000.0002.0001.0012": each part cut to 4 characters and
// padded on the left with "0"; at most 20 characters. Two normalised
// versions compare as text.
std::string NormalisedVersion(std::string_view version);

// What is installed: the program folder (raw data in "RawData/", the help
// file beside the program) and the running program's version. An ".exe"
// entry stands for the running program, whatever its file is called here.
struct InstalledFiles {
    std::string programFolder;  // ends with "/"
    std::string programVersion;  // four dotted numbers
};

// One row of the updates window.
struct UpdateRow {
    std::string fileName;
    std::string fileType;
    std::string current;
    std::string available;
};

// The rows for the lines of the list, in list order: an entry shows when it
// is newer than the installed file or its file is missing. Empty lines are
// skipped.
std::vector<UpdateRow> UpdateRows(const std::vector<std::string>& lines, const InstalledFiles& installed,
                                  const Language& language);

}  // namespace tormel
