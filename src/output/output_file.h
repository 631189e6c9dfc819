#pragma once
// Output files (".o64"): one result set as UTF-16LE text, readable without
// the database. The writer produces "Format version: 1.3"; the reader takes
// every version from 1.1 on.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/language.h"
#include "core/text_file.h"
#include "core/ui_services.h"
#include "input/input_problem.h"
#include "output/result_store.h"

namespace tormel {

inline constexpr std::string_view kOutputFileLine1 = "TORMEL NEXT (64 bits) output file";
inline constexpr std::string_view kOutputFileLine2 = "Do NOT manually edit this file";
inline constexpr std::string_view kOutputFileVersionLabel = "Format version:";
inline constexpr std::string_view kOutputFileVersion = "1.3";
// A saturation index or saturation value of minus infinity (a solid one of
// whose components is absent, log 0) is written as this word, not as a
// number, and read back as minus infinity.
inline constexpr std::string_view kNoSaturationWord = "absent";

// After the iteration count line's charges, a result that the solver's
// fallback finished carries this word and the iteration at which the
// fallback took over (readers of older versions skip the rest of that line).
inline constexpr const char* kFallbackMark = "fallback";
// The iteration in the rest of that line; 0 when it holds no fallback mark.
int32_t FallbackIterationOf(std::string_view rest);

// Why a file was refused: the key of section "Output" ("ErrorOpen1" to
// "ErrorOpen4") and, for a version that is too old, the third line.
struct OutputFileError {
    std::string key;
    std::string versionLine;  // "ErrorOpen4" only
    std::string path;         // empty for text read from memory
    std::string detail;       // our own English detail (e.g. why the file could not be opened)
};

// The message text: Output/key, for "ErrorOpen4" followed by " (", the third
// line and ")."; then "\n" + the file's path when known and "\n" + the detail
// when there is one. A missing file is "ErrorFileMissing".
std::string OutputFileErrorText(const Language& language, const OutputFileError& error);

// How far a file that passed the header checks was read.
struct OutputReadReport {
    bool complete = true;  // false: the file ended early, held something unreadable or more than its fields
    int stoppedAtLine = 0;  // 1-based line of the field that could not be read (incomplete files)
    float version = 0;
};

// What a quoted field of an output file holds for `text`: the file cannot
// hold a double quote inside a quoted text, so each becomes a typographic
// quote (opening and closing in turn, as in “NIST2.1.1”), line breaks become
// blanks, and the text is cut to the reader's 259 characters.
std::string QuotedFieldText(std::string_view text);

// The text of an output file for `set` (lines ended by "\n"). Texts the
// reader could not take back are made fit: quoted texts as QuotedFieldText
// says, line breaks in whole-line texts become blanks, and whole-line texts
// are cut to the reader's limits.
std::string FormatOutputFile(const ResultStore& store, int32_t set);

// Writes `set` to `path` through a temporary file and a rename.
bool WriteOutputFile(const std::string& path, const ResultStore& store, int32_t set, FileError* error = nullptr);

// Reads the decoded text of an output file into `set`. The first three lines
// are checked before anything changes; then set 0 resets the whole store and
// a higher set grows the store to it. A file cut short or malformed after the
// header is read as far as it goes (`report` says where it stopped). The
// neutralisation cation and anion are stored in `currentInput` too when given;
// an adsorption-linked flag shows the message "grid 6 ads linked" through `ui`
// when given.
std::optional<OutputFileError> ReadOutputText(std::u16string text, ResultStore& store, int32_t set,
                                              InputProblem* currentInput = nullptr, const UiServices* ui = nullptr,
                                              OutputReadReport* report = nullptr);

// Reads the file at `path`; a file that cannot be opened gives "ErrorOpen1"
// with the system's reason as detail. On success the store is marked as
// holding a loaded output.
std::optional<OutputFileError> ReadOutputFile(const std::string& path, ResultStore& store, int32_t set,
                                              InputProblem* currentInput = nullptr, const UiServices* ui = nullptr,
                                              OutputReadReport* report = nullptr);

}  // namespace tormel
