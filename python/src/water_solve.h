#pragma once
// One water solved in a worker's workspace, as a job of the command line
// solves an input file: the fields read by the input reader, the
// consistency checks reported (never blocking), then the calculation.
#include <span>
#include <string>

#include "input/water_fields.h"
#include "message_log.h"
#include "shell/workspace.h"

namespace tormel::python {

enum class WaterStatus {
    Solved,
    InputRefused,   // the input reader refused a field
    Unsolvable,     // values no calculation can start from
    NotCalculated,  // the assembly refused (e.g. a solid without a total)
    NotConverged,
};

struct WaterOutcome {
    WaterStatus status = WaterStatus::Solved;
    std::string message;            // the program's message for anything but Solved
    std::string consistencyReport;  // Input/"ConsistencyError" or "ConsistencyWarning" and the texts; may be empty
    bool consistencyErrors = false;
    SolveResult solve;
};

// Solves the water in `worker` (whose UI services are `log`'s), starting
// from fresh input and solver state; on success result set 0 of the worker
// holds the results.
WaterOutcome SolveWater(Workspace& worker, MessageLog& log, std::span<const WaterField> fields);

}  // namespace tormel::python
