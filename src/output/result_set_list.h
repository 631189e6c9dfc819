#pragma once
// Several result sets side by side: the list of output files taken into a
// comparison, one set of the result store per file, in list order. Adding
// reads a file into a new set; removing a set moves the later sets down one
// place; closing empties the store.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/ui_services.h"
#include "input/input_problem.h"
#include "output/output_file.h"
#include "output/result_context.h"
#include "output/result_store.h"

namespace tormel {

// One row of the comparison list.
struct ComparisonRow {
    std::string number;  // "#" and the 1-based set number (at most 3 characters)
    std::string path;
    std::string description;  // the file's fourth line
};

struct ComparisonList {
    std::vector<ComparisonRow> rows;  // row s shows set s
};

// "#" and the 1-based position, cut to 3 characters.
std::string ComparisonNumber(int32_t position);

// Reads the output file at `path` into set s, s being the list's row count,
// builds the set's "Other info" and adds the file's row to the list. A file
// that the reader refuses leaves the store with s sets and the list as it
// was; its error is returned. `currentInput` and `ui` are passed on to the
// reader.
std::optional<OutputFileError> AddToComparison(ResultStore& store, ComparisonList& list, const std::string& path,
                                               const ResultContext& context, InputProblem* currentInput = nullptr,
                                               const UiServices* ui = nullptr);

// Removes set s from the store: its records of every kind go, the records and
// per-set parts (header, snapshot, MSA summary, "Other info", pie-chart texts)
// of the later sets move down one place. When s is the only set, the store is
// emptied (one empty set). A set the store does not have is ignored.
void RemoveResultSet(ResultStore& store, int32_t s);

// Removes set s and its list row and renumbers the rows after it; when it was
// the last set, the store is emptied and the list cleared.
void RemoveFromComparison(ResultStore& store, ComparisonList& list, int32_t s);

// Empties the store completely, clears its loaded-output mark, and clears the
// list.
void CloseComparison(ResultStore& store, ComparisonList& list);

}  // namespace tormel
