// The solids of a calculation with precipitation: one solid species per solid
// equilibrium whose components all take part, and the check that every solid
// can be limited by at least one mass balance.
#include <cstdlib>
#include <string>

#include "calc/assembly_work.h"

namespace tormel {

// Solids are formed from the unknowns exactly as complexes are (with the
// same substitution of represented components); they differ in their kind,
// in reaction rows without phase labels, and in the note on solid activity.
void AddSolidSpecies(AssemblyWork& work) {
    ChemicalSystem& chem = work.chem;
    const int32_t first = static_cast<int32_t>(chem.species.size());
    AddEquilibriumSpecies(work, EquilibriumType::Solid);
    const int32_t end = static_cast<int32_t>(chem.species.size());
    chem.solidSpeciesRange = first < end ? TypeRange{first, end - 1} : TypeRange{};
    const std::string note = work.ctx.Text("EqDef", "AddInfoSolid");
    const int32_t width = chem.db().maxComponentsPerEquilibrium;
    for (int32_t s = first; s < end; ++s) {
        Species& solid = chem.species[s];
        solid.kind = SpeciesKind::SolidSpecies;
        solid.addInfo = note;
        for (int32_t k = 0; k < width; ++k) {
            chem.reactionReactants[Position(k, solid.reactionRow, width)].phase.clear();
            chem.reactionProducts[Position(k, solid.reactionRow, width)].phase.clear();
        }
    }
}

// The number of mass-balance units in each solid; a solid without any can
// never be balanced, and the calculation is refused with the names of all
// such solids.
std::string CheckSolidTotals(AssemblyWork& work) {
    ChemicalSystem& chem = work.chem;
    SolverState& st = work.ctx.state;
    st.solidTotalCounts.clear();
    const TypeRange range = chem.solidSpeciesRange;
    if (range.empty()) return {};
    const int32_t systemCount = static_cast<int32_t>(chem.systemComponents.size());
    std::string names;
    for (int32_t s = range.first; s <= range.last; ++s) {
        int32_t count = 0;
        for (int32_t j = 0; j < systemCount; ++j)
            if (chem.systemComponents[j].balanceKind == InputType::TotalConc) count += std::abs(work.Coef(s, j));
        st.solidTotalCounts.push_back(count);
        if (count == 0) names += chem.species[s].name + "; ";
    }
    if (names.empty()) return {};
    names.resize(names.size() - 2);
    return work.ctx.Text("CALC", "Sentence1") + " " + names + " " + work.ctx.Text("CALC", "Sentence2");
}

}  // namespace tormel
