#include <gtest/gtest.h>

#include "calc/run_calculation.h"
#include "input/program_defaults.h"
#include "output/result_test_support.h"

namespace tormel {
namespace {

// A calcium chloride water with too little chloride for its calcium.
void ImbalancedWater(Workspace& ws, bool forceNeutral) {
    ChemicalSystem& chem = ws.chem;
    SetProgramDefaults(ws.input, chem.db());
    ws.input.components[chem.db().FindComponent("Ca")].inputValue = 1e-3;
    ws.input.components[chem.db().FindComponent("Cl")].inputValue = 1e-3;
    ws.input.ionicStrengthModel = 1;
    ws.input.convergenceCriterion = 1.000001;
    ws.input.forceNeutral = forceNeutral;
    ws.input.neutraliseCation = chem.db().FindComponent("Na");
    ws.input.neutraliseAnion = chem.db().FindComponent("Cl");
}

// A batch worker reads the loaded database itself, not a copy, and starts
// with nothing assembled and no input.
TEST(ShellWorkspace, WorkerSharesTheDatabaseAndNothingElse) {
    test::TempFolder folder;
    test::RecordingUi ui;
    Workspace ws;
    test::PrepareWorkspace(ws, folder, ui);
    ImbalancedWater(ws, false);
    ASSERT_TRUE(CalculateInput(ws, false).solve.converged);
    const Workspace worker = CloneForWorker(ws, ui.services);
    EXPECT_EQ(worker.chem.database, ws.chem.database);
    EXPECT_GT(worker.chem.db().ComponentCount(), 0);
    EXPECT_TRUE(worker.chem.systemComponents.empty());
    EXPECT_TRUE(worker.chem.placement.empty());
    EXPECT_TRUE(worker.input.components.empty());
}

}  // namespace
}  // namespace tormel
