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

struct ShellWorkspace : ::testing::Test, test::PreparedWorkspace {};

// A batch worker reads the loaded database itself, not a copy, and starts
// with nothing assembled and no input.
TEST_F(ShellWorkspace, WorkerSharesTheDatabaseAndNothingElse) {
    ImbalancedWater(ws, false);
    ASSERT_TRUE(CalculateInput(ws, false).solve.converged);
    const Workspace worker = CloneForWorker(ws, ui.services);
    EXPECT_EQ(worker.chem.database, ws.chem.database);
    EXPECT_GT(worker.chem.db().ComponentCount(), 0);
    EXPECT_TRUE(worker.chem.systemComponents.empty());
    EXPECT_TRUE(worker.chem.placement.empty());
    EXPECT_TRUE(worker.input.components.empty());
}

// A solid no mass balance can limit refuses the calculation; the shell shows
// the assembly's warning once, as a plain warning box.
TEST_F(ShellWorkspace, AssemblyRefusalIsShownAsAWarning) {
    ImbalancedWater(ws, false);
    ws.input.precipitation = true;
    ComponentInput& calcium = ws.input.components[ws.chem.db().FindComponent("Ca")];
    calcium.inputType = InputType::FreeAct;
    ws.input.components[ws.chem.db().FindComponent("Cl")].inputValue = 0;
    const CalculationOutcome outcome = CalculateInput(ws, false);
    EXPECT_FALSE(outcome.assembled);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].icon, IconWarning);
    EXPECT_EQ(ui.messages[0].caption, "");
    EXPECT_EQ(ui.messages[0].lines, std::vector<std::string>{outcome.refusal});
    EXPECT_NE(outcome.refusal.find("Portlandite"), std::string::npos) << outcome.refusal;
}

}  // namespace
}  // namespace tormel
