#pragma once
// What every calculation from Python starts from: the folders, settings and
// language of the program and its loaded database. Read only once opened, so
// that any number of threads can calculate from it at once, each in a
// workspace of its own (CloneForWorker).
#include <memory>
#include <string>

#include "message_log.h"
#include "shell/workspace.h"

namespace tormel::python {

struct Session {
    MessageLog log;  // messages while opening; outlives `base`, which points at it
    Workspace base;
};

// Opens a session as tormel-cli starts: the working folders ($TORMEL64_HOME,
// else the user's data folder), the language file, and the working copies
// of the database refreshed from `programFolder` + "RawData/" when missing or
// older. With `dataFolder` given, the database files (*.D64) of that folder
// are loaded instead of the working copies. On failure `error` holds the
// program's message and the result is null.
std::unique_ptr<Session> OpenSession(const std::string& programFolder, const std::string& dataFolder,
                                     std::string& error);

}  // namespace tormel::python
