// Conditional constants of the species for the current ionic strength and
// temperature, and the free concentrations of activity-given unknowns.
#include <cmath>

#include "calc/activity.h"
#include "calc/species_tables.h"

namespace tormel {

namespace {

// Davies conditional constant: log K + logGamma1 * dz^2.
double DaviesWorkingLogK(const Species& sp, double logGamma1) { return sp.logK + logGamma1 * sp.deltaZ2; }

// Kinds whose conditional constant UpdateActivity sets; free components and
// organic species keep the constant their owners set.
bool ActivitySetsConstant(SpeciesKind kind) {
    switch (kind) {
        case SpeciesKind::FreeHydroxide:
        case SpeciesKind::GasLigand:
        case SpeciesKind::RedoxPartner:
        case SpeciesKind::RedoxPartnerSolid:
        case SpeciesKind::AdsorbedSpecies:
        case SpeciesKind::SolidSpecies:
        case SpeciesKind::ComplexSpecies:
            return true;
        default:
            return false;
    }
}

}  // namespace

void BuildActivityTables(const ChemicalSystem& chem, SpeciesTables& tables) {
    tables.dissolved.clear();
    tables.activitySpecies.clear();
    tables.dissolved.reserve(chem.species.size());
    tables.activitySpecies.reserve(chem.species.size());
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (int32_t s = 0; s < speciesCount; ++s) {
        const SpeciesKind kind = chem.species[s].kind;
        if (IsDissolvedKind(kind)) tables.dissolved.push_back(s);
        if (ActivitySetsConstant(kind)) tables.activitySpecies.push_back(s);
    }
}

// Under the MSA model a complex's constant is corrected by the activity
// coefficients of the unknowns it is formed from. The unknown of a system
// component is the concentration of its free species, so its coefficient is
// the MSA gamma of that species (the first species holding the component,
// which the assembly places first). Two cases have no such gamma and are
// decided here:
//  - a gas: its unknown is the partial pressure, itself an activity, so its
//    coefficient is 1;
//  - a free species without an ion size (and the electron, which has no free
//    species): the Davies coefficient of the component's charge, the same
//    coefficient its free activity is converted with.
double ComponentGammaForMsa(const ChemicalSystem& chem, const SolverState& st, int32_t j) {
    const SystemComponent& sc = chem.systemComponents[j];
    if (sc.type == ComponentType::Gas) return 1.0;
    if (j < static_cast<int32_t>(st.firstSpeciesOf.size())) {
        const int32_t s = st.firstSpeciesOf[j];
        if (s >= 0 && chem.species[s].ionSize > 0) return chem.species[s].gamma;
    }
    const double z = sc.charge;
    return std::pow(10.0, z * z * st.logGamma1);
}

void UpdateActivity(CalcContext& ctx) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    st.logGamma1 = DaviesLogGamma1(st.ionicStrength);
    const bool msa = ctx.input.ionicStrengthModel == kMsaModel;
    if (msa) UpdateMsa(chem, st);
    const bool msaComplexes = msa && st.iterationCount != 0;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (int32_t s : TablesFor(chem, st.tables).activitySpecies) {
        Species& sp = chem.species[s];
        switch (sp.kind) {
            case SpeciesKind::FreeHydroxide:
            case SpeciesKind::GasLigand:
            case SpeciesKind::RedoxPartner:
            case SpeciesKind::RedoxPartnerSolid:
            case SpeciesKind::AdsorbedSpecies:
            case SpeciesKind::SolidSpecies:
                sp.workingLogK = DaviesWorkingLogK(sp, st.logGamma1);
                break;
            case SpeciesKind::ComplexSpecies:
                if (msaComplexes && sp.ionSize > 0) {
                    double logProduct = 0;
                    for (int32_t e = 0; e < sp.componentTerms; ++e) {
                        const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
                        if (term.coefficient == 0) continue;
                        logProduct += term.coefficient *
                                      std::log10(ComponentGammaForMsa(chem, st, term.systemComponent));
                    }
                    sp.workingLogK = sp.logK + logProduct - std::log10(sp.gamma);
                } else {
                    sp.workingLogK = DaviesWorkingLogK(sp, st.logGamma1);
                }
                break;
            default:
                continue;
        }
        if (chem.temperatureCorrectionApplied) sp.workingLogK += sp.tempCorrection;
    }
    ++st.activityCalls;
}

void FreeFromActivity(CalcContext& ctx) {
    for (SystemComponent& sc : ctx.chem.systemComponents) {
        if (sc.balanceKind != InputType::FreeAct) continue;
        const double z = sc.charge;
        sc.freeConcentration = sc.givenValue / std::pow(10.0, z * z * ctx.state.logGamma1);
    }
}

}  // namespace tormel
