#pragma once
// Reads input files: the current ".i64" form ("Format version: 1") and the
// older ".inp" form.
#include <optional>
#include <string>
#include <string_view>

#include "core/database.h"
#include "core/ui_services.h"
#include "input/input_file_error.h"
#include "input/input_problem.h"

namespace tormel {

class Language;

// Longest line the reader takes at once, line end included: the longest line
// the writer writes, a description of kDescriptionLimit characters. The rest
// of a longer line is read as the next line.
constexpr size_t kInputLineLimit = sizeof("Description: ") - 1 + kDescriptionLimit + 1;

// Reads the decoded text of an input file (line ends as "\n"). `extension`
// selects the header rules (".i64" or ".inp", any letter case; anything else
// is "ErrorOpen5"). After the header the program defaults are set, then every
// labelled line is applied; a later line overrides an earlier one. Header
// errors leave the problem untouched, later errors leave it partly read.
// A number must be read whole (no "nan", "inf",
// decimal comma or trailing text), codes must be within their sets, the ion
// to neutralise must be of its kind, a component may be given only once, and
// a last line without line end is read.
// Does not touch currentInputFile or modified.
std::optional<InputFileError> ReadInputText(std::u16string_view text, std::string_view extension,
                                            InputProblem& input, const Database& db);

// Reads the file at `path`; on success modified = false and
// currentInputFile = path. A missing file gives "ErrorFileMissing", a file
// that cannot be read "ErrorFileUnreadable" with the system's reason as detail.
std::optional<InputFileError> LoadInputFile(const std::string& path, InputProblem& input, const Database& db);

// LoadInputFile, and on failure the warning message of the error (empty
// caption). Returns true when the file was read.
bool ReadInputFile(const std::string& path, InputProblem& input, const Database& db, const UiServices& ui,
                   const Language& language);

}  // namespace tormel
