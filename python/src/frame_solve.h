#pragma once
// Many waters at once: one per row of a table of numbers whose columns are
// water fields (see input/water_fields.h), solved on worker threads that
// share the session's database. A row that fails is reported in its row;
// it never stops the others.
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "input/water_fields.h"
#include "session.h"

namespace tormel::python {

struct FrameRequest {
    std::vector<std::string> columns;
    std::span<const double> values;     // row after row; NaN: the field is not given in that row
    std::vector<WaterField> constants;  // fields of every row, applied before the row's own
    std::vector<std::string> species;   // species whose concentration and activity are wanted; empty: the free ones
    std::vector<std::string> solids;    // solids whose saturation index is wanted
    int32_t jobs = 1;
};

// What one row came to; the numbers are NaN where the row has no such value.
struct FrameRow {
    bool converged = false;
    std::string message;  // why the row failed; empty when it converged
    std::string consistency;
    int32_t iterations = 0;
    double ph = 0;
    double ionicStrength = 0;
    std::vector<std::string> speciesNames;  // the species found, with their concentrations and activities
    std::vector<double> concentrations;
    std::vector<double> activities;
    std::vector<double> saturationIndices;  // one per requested solid
};

// The worker threads used for `jobs` (at least one, at most one per hardware
// thread and one per row).
int32_t FrameThreads(int32_t jobs, size_t rows);

// Solves every row; the calling thread waits for the workers.
std::vector<FrameRow> SolveFrame(const Session& session, const FrameRequest& request);

}  // namespace tormel::python
