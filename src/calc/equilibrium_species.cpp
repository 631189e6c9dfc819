// Species formed by database equilibria (complexes and adsorbed species):
// one species per equilibrium whose components all take part, expressed in
// the unknowns by substituting the species that stand for represented
// components (H+, OH, gas ligands, redox partners).
#include <optional>

#include "calc/assembly_work.h"
#include "calc/temperature.h"

namespace tormel {

namespace {

void AddOne(AssemblyWork& w, const EquilibriumIndex& index, int32_t e, EquilibriumType equilibriumType) {
    ChemicalSystem& chem = w.chem;
    const Equilibrium& eq = chem.db().equilibria[e];
    const bool adsorbed = equilibriumType == EquilibriumType::Adsorption;
    const int32_t s = w.NewSpecies();
    const int32_t row = w.NewReactionRow();
    bool substituted = false;
    int32_t terms = 0;
    double logK = 0;
    double enthalpy = 0;
    for (const auto [k, nu] : index.Terms(e)) {
        ++terms;
        const Component& c = chem.db().components[k];
        const int32_t systemIndex = chem.placement[k].systemIndex;
        if (systemIndex > 0) {
            w.Coef(s, systemIndex) += nu;
        } else {
            const int32_t q = -systemIndex;
            w.AddRow(s, q, nu);
            logK += nu * chem.species[q].logK;
            if (eq.hasEnthalpy) enthalpy -= nu * chem.species[q].enthalpy;
            substituted = true;
        }
        if (!adsorbed)
            w.AddReactant(row, nu, c.name, c.charge, AssemblyWork::AqueousPhase(c.charge));
        else if (nu > 0)
            w.AddReactant(row, nu, c.name, c.charge, "");
    }
    if (adsorbed) {
        // products: the released terms, then the adsorbed species itself
        for (const auto [k, nu] : index.Terms(e)) {
            if (nu >= 0) continue;
            const Component& c = chem.db().components[k];
            w.AddProduct(row, -nu, c.name, c.charge, "");
        }
        w.AddProduct(row, 1, eq.name, eq.charge, "");
    } else {
        w.AddProduct(row, 1, eq.name, eq.charge, AssemblyWork::AqueousPhase(eq.charge));
    }

    Species& sp = chem.species[s];
    sp.kind = adsorbed ? SpeciesKind::AdsorbedSpecies : SpeciesKind::ComplexSpecies;
    sp.name = eq.name;
    sp.charge = eq.charge;
    if (substituted) {
        w.ComposeFromRow(s);
        // An adsorbed species has no activity coefficient of its own: only the
        // dissolved terms of its reaction enter dz^2 (the database stores the
        // dz^2 of surface reactions the same way).
        if (adsorbed) sp.deltaZ2 += sp.charge * sp.charge;
    } else {
        sp.deltaZ2 = eq.deltaZ2;
        sp.componentTerms = terms;
    }
    if (eq.hasEnthalpy) {
        const double temperature = w.ctx.input.temperature;
        sp.enthalpyStatus = 1;
        sp.enthalpy = enthalpy + eq.enthalpy;
        sp.tempCorrection = TemperatureTerm(temperature, sp.enthalpy);
        sp.tempCorrectionDatabase = TemperatureTerm(temperature, eq.enthalpy);
    } else {
        sp.enthalpyStatus = 0;
        sp.enthalpy = enthalpy;
        sp.tempCorrection = 0;
    }
    sp.deltaZ2Stored = eq.deltaZ2;
    sp.ionSize = eq.complexDiameter;
    sp.logK = logK + eq.logK;
    sp.logKDatabase = eq.logK;
    sp.literatureRef = eq.literatureRef;
    sp.source = e;
    sp.reactionRow = row;
}

}  // namespace

void AddEquilibriumSpecies(AssemblyWork& w, EquilibriumType equilibriumType) {
    std::optional<EquilibriumIndex> temporary;
    const EquilibriumIndex& index = FittingIndex(w.chem.db(), temporary);
    for (const int32_t e : EquilibriaInInput(w.chem, equilibriumType)) AddOne(w, index, e, equilibriumType);
}

}  // namespace tormel
