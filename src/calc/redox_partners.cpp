// Redox partners: a component reached from a represented one through a redox
// equilibrium becomes a species formed from the representative's unknowns,
// H+ and the electron.
#include <cstdlib>

#include "calc/assembly_work.h"
#include "calc/temperature.h"

namespace tormel {

namespace {

// The species that stands for an already placed component. Before the redox
// groups are built the assembly reads it from the component's link; within
// the groups from the species map.
int32_t Representative(const AssemblyWork& w, int32_t component, bool groupStep) {
    if (groupStep) return w.speciesOf[component];
    return std::abs(w.chem.placement[component].systemIndex);
}

// The reaction's own component: the first one that is neither H+ nor the electron.
int32_t ReactionComponent(const ChemicalSystem& chem, int32_t e) {
    for (int32_t k = 0; k < chem.db().ComponentCount(); ++k) {
        if (k == chem.db().hydrogenIndex || (chem.db().electronIndex > 0 && k == chem.db().electronIndex)) continue;
        if (chem.db().Coefficient(k, e) != 0) return k;
    }
    return -1;
}

// The temperature term of partner t, formed from its representative by the
// couple e used forwards (sign +1: the couple forms t) or backwards (sign -1).
// Like the other substituted species (free OH, gas ligands), t keeps the
// negative of its formation enthalpy from the unknowns, so that a complex
// built on it subtracts it; the couple's enthalpy enters with the sign of
// its direction, the representative's as the representative holds it. An
// unknown enthalpy of either leaves t without one (term 0).
void SetPartnerEnthalpy(const Species& representative, const Equilibrium& e, int32_t sign, double temperature,
                        Species& t) {
    const bool known = e.hasEnthalpy && representative.enthalpyStatus != 0;
    t.enthalpyStatus = known ? 1 : 0;
    t.enthalpy = known ? representative.enthalpy - sign * e.enthalpy : 0;
    t.tempCorrection = known ? ReverseTemperatureTerm(temperature, t.enthalpy) : 0;
    t.tempCorrectionDatabase = e.hasEnthalpy ? TemperatureTerm(temperature, e.enthalpy) : 0;
}

void AddReactionRows(AssemblyWork& w, int32_t t, int32_t e, int32_t a, int32_t b, int32_t n, bool groupStep) {
    ChemicalSystem& chem = w.chem;
    const Equilibrium& eq = chem.db().equilibria[e];
    const Component& compA = chem.db().components[a];
    const Component& compB = chem.db().components[b];
    const int32_t row = w.NewReactionRow();
    chem.species[t].reactionRow = row;
    const int32_t linked = static_cast<int32_t>(eq.linkedCoefficient);
    if (!groupStep) {
        const bool solidPartner = chem.db().components[n].type == ComponentType::RedSol;
        if (solidPartner)
            w.AddReactant(row, chem.db().Coefficient(b, e), compB.name, 0, "(s)");
        else
            w.AddReactant(row, chem.db().Coefficient(b, e), compB.name, compB.charge,
                          AssemblyWork::AqueousPhase(compB.charge));
        const int32_t h = chem.db().Coefficient(chem.db().hydrogenIndex, e);
        if (h != 0) {
            const Component& hydrogen = chem.db().components[chem.db().hydrogenIndex];
            w.AddReactant(row, h, hydrogen.name, hydrogen.charge, "");
        }
        if (chem.db().electronIndex > 0) {
            const Component& electron = chem.db().components[chem.db().electronIndex];
            w.AddReactant(row, chem.db().Coefficient(chem.db().electronIndex, e), electron.name, electron.charge, "");
        }
        const bool aqueous = compA.type != ComponentType::RedSol && compB.charge == 0;
        w.AddProduct(row, linked, compA.name, compA.charge, aqueous ? "(aq)" : "");
        return;
    }
    bool solidTerm = compA.type == ComponentType::RedSol;
    for (int32_t k = 0; k < chem.db().ComponentCount(); ++k) {
        const int32_t nu = chem.db().Coefficient(k, e);
        if (nu == 0) continue;
        const Component& c = chem.db().components[k];
        w.AddReactant(row, nu, c.name, c.charge, "");
        if (c.type == ComponentType::RedSol) solidTerm = true;
    }
    w.AddProduct(row, linked, compA.name, compA.charge, "");
    if (solidTerm) chem.species[t].addInfo = w.ctx.Text("EqDef", "AddInfoSolid");
}

}  // namespace

void AddRedoxPartners(AssemblyWork& w, bool groupStep) {
    ChemicalSystem& chem = w.chem;
    if (chem.db().equilibriumRange[EquilibriumType::Redox].empty()) return;
    const int32_t electronColumn =
        chem.db().electronIndex > 0 ? chem.placement[chem.db().electronIndex].systemIndex : -1;
    const double temperature = w.ctx.input.temperature;
    // Each pass places at least one component, so the passes are bounded by
    // the number of components.
    for (int32_t pass = 0; pass <= chem.db().ComponentCount(); ++pass) {
        bool added = false;
        for (const int32_t e : EquilibriaOfType(chem.db(), EquilibriumType::Redox)) {
            const Equilibrium& eq = chem.db().equilibria[e];
            const int32_t a = eq.linkedComponent;
            const int32_t b = ReactionComponent(chem, e);
            if (a <= 0 || b < 0 || a >= chem.db().ComponentCount()) continue;
            if ((w.placed[a] != 0) == (w.placed[b] != 0)) continue;
            const bool placedIsA = w.placed[a] != 0;
            const int32_t p = placedIsA ? a : b;
            const int32_t n = placedIsA ? b : a;
            const int32_t sign = placedIsA ? -1 : 1;
            const int32_t rep = Representative(w, p, groupStep);

            const int32_t t = w.NewSpecies();
            Species& sp = chem.species[t];
            sp.logK = sign * eq.logK + chem.species[rep].logK;
            w.dense[t] = w.dense[rep];
            const int32_t h = chem.db().Coefficient(chem.db().hydrogenIndex, e);
            if (h != 0) w.AddRow(t, 0, sign * h);
            if (electronColumn > 0)
                w.Coef(t, electronColumn) += sign * chem.db().Coefficient(chem.db().electronIndex, e);
            SetPartnerEnthalpy(chem.species[rep], eq, sign, temperature, sp);

            const Component& partner = chem.db().components[n];
            Species& t2 = chem.species[t];
            if (partner.type == ComponentType::RedSol) {
                t2.kind = SpeciesKind::RedoxPartnerSolid;
                t2.name = partner.name;
            } else {
                t2.kind = SpeciesKind::RedoxPartner;
                t2.name = AssemblyWork::FreeName(partner.name);
            }
            t2.charge = partner.charge;
            w.ComposeFromRow(t);
            t2.literatureRef = eq.literatureRef;
            t2.logKDatabase = eq.logK;
            t2.deltaZ2Stored = eq.deltaZ2;
            if (!groupStep) t2.ionSize = eq.complexDiameter;
            chem.placement[n].systemIndex = -t;
            t2.source = -n;
            w.speciesOf[n] = t;
            w.placed[n] = 1;
            AddReactionRows(w, t, e, a, b, n, groupStep);
            added = true;
        }
        if (!added) return;
    }
}

}  // namespace tormel
