#pragma once
// Writes the input problem as an input file (".i64", "Format version: 1").
#include <string>

#include "core/database.h"
#include "core/text_file.h"
#include "core/ui_services.h"
#include "input/input_problem.h"

namespace tormel {

class Language;

// The text of the input file, lines ended by "\n" (the file gets CR LF).
// Numbers use "%.16G" in the C locale. Component lines follow the global
// options in component index order: the electron only when redox is included
// (always as free activity), H+ always, every other component when its input
// value is not 0. A line break inside the description is written as a blank so
// that the file keeps its line structure.
std::string FormatInputFile(const InputProblem& input, const Database& db);

// The name actually written for `path`: a name ending in ".inp" (any letter
// case) gets the extension ".i64"; any other name is kept.
std::string InputFileWritePath(const std::string& path);

// Writes the problem to `path` through a temporary file, so a failed write
// leaves an existing file untouched. For a ".inp" name the warning
// "\n" + Input/"SaveOldAsNew" is shown first and the ".i64" name is written.
// On success modified = false and currentInputFile = `path` as passed. A
// failure is shown as an error message (Input/"ErrorSave", the file and the
// system's reason) and leaves the problem's state unchanged; returns false.
bool WriteInputFile(const std::string& path, InputProblem& input, const Database& db, const UiServices& ui,
                    const Language& language, FileError* error = nullptr);

}  // namespace tormel
