#include "calc/assemble_system.h"

#include <algorithm>
#include <utility>

#include "calc/assembly_work.h"
#include "calc/temperature.h"

namespace tormel {

namespace {

// Which components take part: those with an input value, H+ and OH always,
// the electron with redox, the ligand of every gas, and whole redox groups.
void SetInputFlags(CalcContext& ctx) {
    ChemicalSystem& chem = ctx.chem;
    const std::vector<ComponentInput>& inputs = ctx.input.components;
    SolverState& st = ctx.state;
    std::vector<ComponentPlacement>& placement = chem.placement;
    placement.resize(chem.db().components.size());
    for (size_t k = 0; k < placement.size(); ++k) placement[k] = {inputs[k].inputValue != 0, 0};
    if (chem.db().electronIndex > 0) placement[chem.db().electronIndex].inInput = ctx.input.redox;
    placement[chem.db().hydrogenIndex].inInput = true;
    placement[chem.db().hydroxideIndex].inInput = true;
    st.hydrogenInput = inputs[chem.db().hydrogenIndex].inputValue;
    st.hydroxideReference = inputs[chem.db().hydroxideIndex].inputValue;
    st.redoxProtonFlag = false;
    const int32_t count = chem.db().ComponentCount();
    for (const int32_t i : ComponentsOfType(chem.db(), ComponentType::Gas)) {
        const Component& c = chem.db().components[i];
        if (placement[i].inInput && c.linkedLigand > 0) placement[c.linkedLigand].inInput = true;
    }
    if (ctx.input.redox) {
        for (int32_t i = 0; i < count; ++i) {
            const Component& c = chem.db().components[i];
            if (placement[i].inInput && c.redoxNext > 0) placement[c.redoxNext].inInput = true;
        }
        for (int32_t i = count - 1; i >= 0; --i) {
            const Component& c = chem.db().components[i];
            if (placement[i].inInput && c.redoxPrev > 0) placement[c.redoxPrev].inInput = true;
        }
    }
}

void ResetAssembledLayer(AssemblyWork& w) {
    ChemicalSystem& chem = w.chem;
    chem.systemComponents.reserve(2 * chem.db().components.size() + 400);
    chem.species.reserve(4 * chem.db().equilibria.size());
    w.ctx.state.solidTotalCounts.clear();
}

// A free species of kind `kind` that stands for system component `sc`.
int32_t AddFreeSpecies(AssemblyWork& w, SpeciesKind kind, int32_t component, int32_t sc, double ionSize) {
    const Component& c = w.chem.db().components[component];
    const int32_t s = w.NewSpecies();
    Species& sp = w.chem.species[s];
    sp.kind = kind;
    sp.name = AssemblyWork::FreeName(c.name);
    sp.charge = c.charge;
    sp.componentTerms = 1;
    sp.deltaZ2 = c.charge * c.charge;
    sp.enthalpyStatus = 2;
    sp.ionSize = ionSize;
    sp.literatureRef = -1;
    sp.reactionRow = -1;
    sp.source = -component;
    w.Coef(s, sc) = 1;
    return s;
}

// A system component that copies the component's own record.
int32_t AddComponentUnknown(AssemblyWork& w, int32_t component) {
    const Component& c = w.chem.db().components[component];
    const int32_t j = w.NewSystemComponent();
    SystemComponent& sc = w.chem.systemComponents[j];
    sc.type = c.type;
    sc.name = c.name;
    sc.charge = c.charge;
    sc.molarMass = c.molarMass;
    const ComponentInput& given = w.ctx.input.components[component];
    sc.givenValue = given.inputValue;
    sc.balanceKind = given.inputType;
    sc.componentIndex = component;
    w.chem.placement[component].systemIndex = j;
    w.placed[component] = 1;
    return j;
}

void AddHydrogen(AssemblyWork& w) {
    const int32_t h = w.chem.db().hydrogenIndex;
    AddComponentUnknown(w, h);  // system component 0
    w.chem.systemComponents[0].balanceTotal = w.ctx.state.hydrogenInput - w.ctx.state.hydroxideReference;
    AddFreeSpecies(w, SpeciesKind::FreeComponent, h, 0, w.chem.db().components[h].ionDiameter);
    w.speciesOf[h] = 0;
}

void AddElectron(AssemblyWork& w) {
    ChemicalSystem& chem = w.chem;
    const int32_t e = chem.db().electronIndex;
    const int32_t j = w.NewSystemComponent();
    SystemComponent& sc = chem.systemComponents[j];
    sc.type = ComponentType::Electron;
    sc.name.assign(1, 'e');
    sc.charge = -1;
    sc.balanceKind = InputType::FreeAct;
    sc.givenValue = w.ctx.input.components[e].inputValue;
    sc.componentIndex = e;
    chem.placement[e].systemIndex = j;
    w.placed[e] = 1;
}

// Each gas in the input is an unknown given by its partial pressure; its
// ligand becomes a species formed from the gas (and H+).
void AddGases(AssemblyWork& w) {
    ChemicalSystem& chem = w.chem;
    const double temperature = w.ctx.input.temperature;
    for (const int32_t g : ComponentsOfType(chem.db(), ComponentType::Gas)) {
        const Component& gas = chem.db().components[g];
        if (!chem.placement[g].inInput) continue;
        w.placed[g] = 1;
        const int32_t j = w.NewSystemComponent();
        {
            SystemComponent& sc = chem.systemComponents[j];
            sc.type = gas.type;
            sc.name = gas.name;
            sc.charge = 0;
            sc.balanceKind = w.ctx.input.components[g].inputType;
            sc.givenValue = w.ctx.input.components[g].inputValue;
            sc.componentIndex = g;
        }
        chem.placement[g].systemIndex = j;
        const int32_t s = w.NewSpecies();
        {
            Species& sp = chem.species[s];
            sp.kind = SpeciesKind::GasLigand;
            const Component& ligand = chem.db().components[gas.linkedLigand];
            sp.name = AssemblyWork::FreeName(ligand.name);
            sp.charge = ligand.charge;
        }
        int32_t eq = -1;
        for (const int32_t e : EquilibriaOfType(chem.db(), EquilibriumType::Gas))
            if (chem.db().equilibria[e].linkedComponent == g) {
                eq = e;
                break;
            }
        if (eq < 0) continue;
        const Equilibrium& e = chem.db().equilibria[eq];
        Species& sp = chem.species[s];
        sp.componentTerms = e.componentCount;
        sp.deltaZ2 = -e.deltaZ2;
        sp.deltaZ2Stored = e.deltaZ2;
        sp.enthalpy = e.enthalpy;
        if (e.hasEnthalpy) {
            sp.enthalpyStatus = 1;
            sp.tempCorrection = ReverseTemperatureTerm(temperature, e.enthalpy);
            sp.tempCorrectionDatabase = 0;
        } else {
            sp.enthalpyStatus = 0;
            sp.tempCorrection = 0;
        }
        sp.logK = -e.logK;
        sp.logKDatabase = e.logK;
        sp.literatureRef = e.literatureRef;
        const int32_t row = w.NewReactionRow();
        int32_t ligand = -1;
        for (int32_t k = 0; k < chem.db().ComponentCount(); ++k) {
            const int32_t nu = chem.db().Coefficient(k, eq);
            if (nu == 0) continue;
            const Component& c = chem.db().components[k];
            w.AddReactant(row, nu, c.name, c.charge, AssemblyWork::AqueousPhase(c.charge));
            if (c.type == ComponentType::Ligand) {
                ligand = k;
                break;
            }
        }
        if (ligand < 0) continue;  // a gas equilibrium must contain a ligand
        w.placed[ligand] = 1;
        const int32_t h = chem.db().Coefficient(chem.db().hydrogenIndex, eq);
        if (h != 0) w.Coef(s, 0) = -h;
        w.Coef(s, j) = chem.db().Coefficient(ligand, eq);
        chem.placement[ligand].systemIndex = -s;
        w.speciesOf[ligand] = s;
        chem.species[s].source = -ligand;
        chem.species[s].reactionRow = row;
        w.AddProduct(row, static_cast<int32_t>(e.linkedCoefficient), gas.name, 0, "");
    }
}

// Redox groups whose head is not yet represented: one unknown per group,
// balanced by the sum of the members' totals, or fixed by the member given
// as a free concentration or activity.
void AddRedoxGroups(AssemblyWork& w) {
    ChemicalSystem& chem = w.chem;
    for (int32_t c = 0; c < chem.db().ComponentCount(); ++c) {
        const Component& head = chem.db().components[c];
        if (!chem.placement[c].inInput || w.placed[c] || head.redoxPrev != 0 || head.redoxNext < 1) continue;
        w.speciesOf[c] = static_cast<int32_t>(chem.species.size());
        const int32_t j = w.NewSystemComponent();
        SystemComponent& sc = chem.systemComponents[j];
        sc.type = head.type;
        sc.name = head.name;
        sc.charge = head.charge;
        sc.molarMass = head.molarMass;
        sc.balanceKind = InputType::TotalConc;
        sc.givenValue = 0;
        sc.componentIndex = c;
        int32_t guard = 0;
        for (int32_t m = c; m != 0 && guard <= chem.db().ComponentCount();
             m = chem.db().components[m].redoxNext, ++guard) {
            const ComponentInput& member = w.ctx.input.components[m];
            if (member.inputType == InputType::FreeConc || member.inputType == InputType::FreeAct) {
                sc.balanceKind = InputType::RedoxMemberGiven;
                sc.givenValue = member.inputValue;
                sc.givenMember = m;
                break;
            }
            if (member.inputType == InputType::TotalConc) sc.givenValue += member.inputValue;
        }
        AddFreeSpecies(w, SpeciesKind::FreeComponent, c, j, 0);
        chem.placement[c].systemIndex = j;
        w.placed[c] = 1;
        AddRedoxPartners(w, true);
    }
    if (chem.systemComponents[0].balanceKind != InputType::TotalConc) return;
    SystemComponent& hydrogen = chem.systemComponents[0];
    for (size_t s = 0; s < chem.species.size(); ++s) {
        const Species& sp = chem.species[s];
        if (sp.kind != SpeciesKind::RedoxPartner && sp.kind != SpeciesKind::RedoxPartnerSolid) continue;
        w.ctx.state.redoxProtonFlag = true;
        const int32_t nu = w.Coef(static_cast<int32_t>(s), 0);
        const ComponentInput& member = w.ctx.input.components[-sp.source];
        if (nu == 0 || member.inputValue == 0 || member.inputType != InputType::TotalConc) continue;
        if (nu < 0)
            hydrogen.balanceTotal -= std::abs(member.inputValue) * nu;
        else
            hydrogen.balanceTotal += member.inputValue * nu;
    }
}

// Free OH is formed from water and H+.
void AddHydroxide(AssemblyWork& w) {
    ChemicalSystem& chem = w.chem;
    const Equilibrium& water = chem.db().equilibria[chem.db().waterEquilibriumIndex];
    const int32_t oh = chem.db().hydroxideIndex;
    const Component& hydroxide = chem.db().components[oh];
    const Component& hydrogen = chem.db().components[chem.db().hydrogenIndex];
    const int32_t s = w.NewSpecies();
    Species& sp = chem.species[s];
    sp.kind = SpeciesKind::FreeHydroxide;
    sp.name = AssemblyWork::FreeName(hydroxide.name);
    sp.charge = hydroxide.charge;
    sp.componentTerms = 1;
    w.Coef(s, 0) = -1;
    sp.deltaZ2 = -water.deltaZ2;
    sp.deltaZ2Stored = -water.deltaZ2;
    sp.enthalpyStatus = water.hasEnthalpy ? 1 : 0;
    sp.enthalpy = water.enthalpy;
    sp.tempCorrection = ReverseTemperatureTerm(w.ctx.input.temperature, water.enthalpy);
    sp.logK = -water.logK;
    sp.logKDatabase = water.logK;
    sp.literatureRef = water.literatureRef;
    sp.ionSize = 0;
    sp.source = -oh;
    chem.placement[oh].systemIndex = -s;
    w.speciesOf[oh] = s;
    w.placed[oh] = 1;
    chem.freeHydroxideSpecies = s;
    const int32_t row = w.NewReactionRow();
    sp.reactionRow = row;
    w.AddReactant(row, 1, hydrogen.name, 1, "");
    w.AddReactant(row, 1, hydroxide.name, -1, "");
    w.AddProduct(row, 1, water.name, 0, "");
    sp.addInfo = w.ctx.Text("EqDef", "AddInfoWater");
}

void AddRemainingComponents(AssemblyWork& w) {
    ChemicalSystem& chem = w.chem;
    for (int32_t c = 0; c < chem.db().ComponentCount(); ++c) {
        if (!chem.placement[c].inInput || w.placed[c]) continue;
        const int32_t j = AddComponentUnknown(w, c);
        const Component& comp = chem.db().components[c];
        const SpeciesKind kind =
            comp.type == ComponentType::Ads ? SpeciesKind::AdsorbedSpecies : SpeciesKind::FreeComponent;
        w.speciesOf[c] = AddFreeSpecies(w, kind, c, j, comp.ionDiameter);
    }
}

// Puts the unknowns in ascending component order (H+ stays first).
void SortSystemComponents(AssemblyWork& w) {
    ChemicalSystem& chem = w.chem;
    auto& scs = chem.systemComponents;
    const int32_t count = static_cast<int32_t>(scs.size());
    for (int32_t i = 0; i + 1 < count; ++i)
        for (int32_t j = i + 1; j < count; ++j) {
            if (scs[i].componentIndex <= scs[j].componentIndex) continue;
            std::swap(scs[i], scs[j]);
            for (size_t s = 0; s < w.dense.size(); ++s) std::swap(w.dense[s][i], w.dense[s][j]);
            chem.placement[scs[i].componentIndex].systemIndex = i;
            chem.placement[scs[j].componentIndex].systemIndex = j;
        }
}

// The compact composition the solver reads: for each species its non-zero
// coefficients in ascending system-component order.
void BuildComposition(AssemblyWork& w) {
    ChemicalSystem& chem = w.chem;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    int32_t widest = 0;
    for (const Species& sp : chem.species) widest = std::max(widest, sp.componentTerms);
    chem.maxSpeciesComponents = widest;
    chem.composition.assign(static_cast<size_t>(widest) * speciesCount, CompositionTerm{});
    const int32_t systemCount = static_cast<int32_t>(chem.systemComponents.size());
    for (int32_t s = 0; s < speciesCount; ++s) {
        int32_t term = 0;
        for (int32_t j = 0; j < systemCount && term < chem.species[s].componentTerms; ++j) {
            const int32_t nu = w.dense[s][j];
            if (nu == 0) continue;
            chem.composition[Position(s, term, speciesCount)] = {j, nu};
            ++term;
        }
    }
}

}  // namespace

AssemblyResult AssembleSystem(CalcContext& ctx) {
    ChemicalSystem& chem = ctx.chem;
    const InputProblem& input = ctx.input;
    chem.ClearAssembled();
    // the problem has one input per database component (SetProgramDefaults)
    if (input.components.size() != chem.db().components.size()) return {};
    SetInputFlags(ctx);
    AssemblyWork w(ctx);
    ResetAssembledLayer(w);
    AddHydrogen(w);
    if (input.redox && chem.db().electronIndex > 0) AddElectron(w);
    AddGases(w);
    if (input.redox) {
        AddRedoxPartners(w, false);
        AddRedoxGroups(w);
    }
    AddHydroxide(w);
    AddRemainingComponents(w);
    if (input.organicComplexation) PrepareOrganicModel(w);
    SortSystemComponents(w);

    const int32_t firstComplex = static_cast<int32_t>(chem.species.size());
    AddEquilibriumSpecies(w, EquilibriumType::Complex);
    const int32_t endComplex = static_cast<int32_t>(chem.species.size());
    chem.complexSpeciesRange = {firstComplex, endComplex - 1};
    if (input.organicComplexation) AddOrganicSpecies(w);
    if (input.adsorption) AddEquilibriumSpecies(w, EquilibriumType::Adsorption);
    if (input.precipitation) {
        AddSolidSpecies(w);
        if (std::string refusal = CheckSolidTotals(w); !refusal.empty()) return {false, std::move(refusal)};
    }
    BuildComposition(w);
    chem.temperatureCorrectionApplied = DecideTemperatureCorrection(chem, input.temperatureCorrection);
    return {true, {}};
}

}  // namespace tormel
