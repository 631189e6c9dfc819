#include <cmath>
#include <vector>

#include "calc/run_calculation.h"
#include "calc/species_tables.h"

namespace tormel {

double InputChargeExcess(const ChemicalSystem& chem, const InputProblem& input) {
    double sum = 0;
    for (const SystemComponent& sc : chem.systemComponents) sum += sc.givenValue * sc.charge;
    const double hydroxide = input.components[chem.db().hydroxideIndex].inputValue;
    if (hydroxide != 0) sum -= hydroxide;
    return std::fabs(sum) < 1e-10 ? 0 : sum;
}

namespace {

void ChargedSpecies(const ChemicalSystem& chem, std::vector<int32_t>& charged) {
    charged.clear();
    for (size_t s = 0; s < chem.species.size(); ++s) {
        const Species& sp = chem.species[s];
        if ((IsDissolvedKind(sp.kind) || sp.kind == SpeciesKind::AdsorbedSpecies) && sp.charge != 0)
            charged.push_back(static_cast<int32_t>(s));
    }
}

}  // namespace

void BuildChargeTable(const ChemicalSystem& chem, SpeciesTables& tables) { ChargedSpecies(chem, tables.charged); }

void SpeciesChargeSums(const ChemicalSystem& chem, const std::vector<int32_t>& charged, double& cationCharge,
                       double& anionCharge) {
    cationCharge = anionCharge = 0;
    for (int32_t s : charged) {
        const Species& sp = chem.species[s];
        if (sp.charge > 0)
            cationCharge += sp.charge * sp.concentration;
        else
            anionCharge -= sp.charge * sp.concentration;
    }
}

void SpeciesChargeSums(const ChemicalSystem& chem, double& cationCharge, double& anionCharge) {
    std::vector<int32_t> charged;
    ChargedSpecies(chem, charged);
    SpeciesChargeSums(chem, charged, cationCharge, anionCharge);
}

}  // namespace tormel
