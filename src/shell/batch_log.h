#pragma once
// The batch log "batch_log.txt": what a batch run has to tell the user
// (lines it could not read, consistency messages, jobs that failed). Entries
// are only ever appended; the program never empties the log.
#include <string>
#include <string_view>

#include "core/language.h"
#include "shell/app_folders.h"

namespace tormel {

// programFolder + "batch_log.txt"; when the program folder cannot be
// written (an installed program), workingFolder + "batch_log.txt".
std::string BatchLogPath(const AppFolders& folders);

// Appends `text` (UTF-8, "\n" line ends) as UTF-16LE with CR LF; a new or
// empty log starts with the byte-order mark. Each entry is one write at the
// end of the file, so earlier entries are never rewritten. False when the log
// cannot be written.
bool AppendBatchLog(const std::string& path, std::string_view text);

// Batch/"ErrorSyntax", "\n(", the line, ")\n".
std::string BatchSyntaxErrorEntry(const Language& language, std::string_view line);

// Batch/`key`, "\n(", the line, ")\n", then the detail and "\n" when there is one.
std::string BatchJobErrorEntry(const Language& language, std::string_view key, std::string_view line,
                               std::string_view detail);

}  // namespace tormel
