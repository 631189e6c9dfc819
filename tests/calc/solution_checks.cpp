#include "calc/solution_checks.h"

#include <gtest/gtest.h>

namespace tormel::test {

double Conc(const CalcFixture& f, const std::string& name) {
    const int32_t s = f.SpeciesIndex(name);
    EXPECT_GE(s, 0) << "species " << name << " missing";
    return s < 0 ? 0.0 : f.chem.species[s].concentration;
}

double LogAct(const CalcFixture& f, const std::string& name) {
    const int32_t s = f.SpeciesIndex(name);
    EXPECT_GE(s, 0) << "species " << name << " missing";
    if (s < 0) return 0;
    const Species& sp = f.chem.species[s];
    const bool adsorbed = sp.kind == SpeciesKind::AdsorbedSpecies;
    return std::log10(sp.concentration) + (adsorbed ? 0.0 : DaviesLog(f.state.ionicStrength, sp.charge));
}

double IonicStrengthOf(const CalcFixture& f) {
    double sum = 0;
    for (const Species& sp : f.chem.species)
        if (IsDissolvedKind(sp.kind)) sum += sp.concentration * sp.charge * sp.charge;
    return sum / 2;
}

}  // namespace tormel::test
