#include "water_solve.h"

#include "input/consistency_check.h"
#include "input/consistency_report.h"

namespace tormel::python {

WaterOutcome SolveWater(Workspace& worker, MessageLog& log, std::span<const WaterField> fields) {
    WaterOutcome out;
    log.Clear();
    worker.input = InputProblem{};
    ResetSolverState(worker.solver);
    if (std::optional<InputFileError> error = ReadWaterFields(fields, worker.input, worker.chem.db())) {
        out.status = WaterStatus::InputRefused;
        out.message = WithoutLeadingLineFeeds(InputFileErrorText(worker.language, *error));
        return out;
    }
    const ConsistencyResult consistency = CheckConsistency(worker.input, worker.chem.db(), worker.language);
    out.consistencyErrors = !consistency.errors.empty();
    out.consistencyReport = ConsistencyReportText(worker.language, consistency);

    const CalculationOutcome calculation = CalculateInput(worker, false);
    out.solve = calculation.solve;
    if (!calculation.assembled) {
        // a refusal before the assembly says why in the solve's message; the
        // assembly itself tells the user through a message box
        out.status = out.solve.message.empty() ? WaterStatus::NotCalculated : WaterStatus::Unsolvable;
        out.message = out.solve.message.empty() ? log.Text() : out.solve.message;
    } else if (!out.solve.converged) {
        out.status = WaterStatus::NotConverged;
        out.message = out.solve.message.empty() ? log.Text() : out.solve.message;
    }
    out.message = WithoutLeadingLineFeeds(out.message);
    return out;
}

}  // namespace tormel::python
