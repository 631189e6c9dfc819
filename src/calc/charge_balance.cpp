#include <cmath>

#include "calc/run_calculation.h"

namespace tormel {

double InputChargeExcess(const ChemicalSystem& chem, const InputProblem& input) {
    double sum = 0;
    for (const SystemComponent& sc : chem.systemComponents) sum += sc.givenValue * sc.charge;
    const double hydroxide = input.components[chem.db().hydroxideIndex].inputValue;
    if (hydroxide != 0) sum -= hydroxide;
    return std::fabs(sum) < 1e-10 ? 0 : sum;
}

void SpeciesChargeSums(const ChemicalSystem& chem, double& cationCharge, double& anionCharge) {
    cationCharge = anionCharge = 0;
    for (const Species& sp : chem.species) {
        if (!IsDissolvedKind(sp.kind) && sp.kind != SpeciesKind::AdsorbedSpecies) continue;
        if (sp.charge > 0) cationCharge += sp.charge * sp.concentration;
        if (sp.charge < 0) anionCharge -= sp.charge * sp.concentration;
    }
}

}  // namespace tormel
