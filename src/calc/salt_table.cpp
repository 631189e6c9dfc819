// The MSA salt table: for each sized cation and each later sized ligand, the
// stoichiometric mean activity coefficient of their salt, which counts the
// ion pairing through the free fractions c/D of both ions.
#include <cmath>
#include <cstdlib>
#include <string>

#include "calc/run_calculation.h"

namespace tormel {

namespace {

// The free species of a system component: the first species with a single
// term on it.
int32_t FreeSpeciesOf(const ChemicalSystem& chem, int32_t j) {
    const int32_t count = static_cast<int32_t>(chem.species.size());
    for (int32_t s = 0; s < count; ++s) {
        if (chem.species[s].componentTerms != 1) continue;
        if (chem.composition[Position(s, 0, count)].systemComponent == j) return s;
    }
    return -1;
}

bool Sized(const ChemicalSystem& chem, const SystemComponent& sc) {
    return chem.db().components[sc.componentIndex].ionDiameter > 0;
}

}  // namespace

void BuildSaltTable(CalcContext& ctx) {
    const ChemicalSystem& chem = ctx.chem;
    auto& table = ctx.state.saltRecords;
    table.clear();
    const int32_t count = static_cast<int32_t>(chem.systemComponents.size());
    for (int32_t m = 0; m < count && chem.systemComponents[m].type == ComponentType::Cation; ++m) {
        const SystemComponent& cation = chem.systemComponents[m];
        if (!Sized(chem, cation)) continue;
        const int32_t sm = FreeSpeciesOf(chem, m);
        if (sm < 0) continue;
        for (int32_t x = m + 1; x < count; ++x) {
            const SystemComponent& ligand = chem.systemComponents[x];
            if (ligand.type != ComponentType::Ligand || !Sized(chem, ligand)) continue;
            const int32_t sx = FreeSpeciesOf(chem, x);
            if (sx < 0) continue;
            const int32_t zm = cation.charge;
            const int32_t zx = std::abs(ligand.charge);
            std::string formula = cation.name;
            if (ligand.charge != -1) formula += std::to_string(-ligand.charge);
            formula += ligand.name;
            if (zm != 1) formula += std::to_string(zm);
            const Species& fm = chem.species[sm];
            const Species& fx = chem.species[sx];
            double product = std::pow(fm.gamma, zx) * std::pow(fx.gamma, zm) *
                             std::pow(fx.concentration / ligand.sumDissolved, zm);
            if (m != 0) product *= std::pow(fm.concentration / cation.sumDissolved, zx);
            const float exponent = 1.0f / static_cast<float>(zm + zx);
            table.push_back({m, x, formula.substr(0, 259), std::pow(product, static_cast<double>(exponent))});
        }
    }
}

}  // namespace tormel
