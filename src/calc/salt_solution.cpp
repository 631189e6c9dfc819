#include "calc/salt_solution.h"

#include "calc/run_calculation.h"

namespace tormel {

std::optional<double> SaltMeanActivityCoefficient(const Database& database, const SaltSolution& salt) {
    const int32_t cation = database.FindComponent(salt.cation);
    const int32_t anion = database.FindComponent(salt.anion);
    if (cation < 0 || anion < 0) return std::nullopt;
    ChemicalSystem chem{database};  // over its own copy of the database
    InputProblem input;
    input.components.resize(chem.db().components.size());
    for (size_t k = 0; k < chem.db().components.size(); ++k)
        input.components[k].inputType =
            chem.db().components[k].type == ComponentType::Gas ? InputType::GasPres : InputType::TotalConc;
    input.components[chem.db().hydroxideIndex].inputType = InputType::NotSpecified;
    const int32_t zc = chem.db().components[cation].charge;
    const int32_t za = -chem.db().components[anion].charge;
    input.components[cation].inputValue = salt.concentration * za;
    input.components[anion].inputValue = salt.concentration * zc;
    if (salt.hydrogenActivity > 0) {
        ComponentInput& h = input.components[chem.db().hydrogenIndex];
        h.inputType = InputType::FreeAct;
        h.inputValue = salt.hydrogenActivity;
    }
    input.ionicStrengthModel = kMsaModel;
    input.convergenceCriterion = 1.00001;
    SolverState state;
    CalcContext ctx{chem, input, state};
    const CalculationOutcome out = RunCalculation(ctx, false);
    if (!out.solve.converged) return std::nullopt;
    for (const SaltRecord& record : state.saltRecords)
        if (chem.systemComponents[record.cation].componentIndex == cation &&
            chem.systemComponents[record.ligand].componentIndex == anion)
            return record.meanActivityCoefficient;
    return std::nullopt;
}

}  // namespace tormel
