#include "output/saturation_results.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <span>
#include <vector>

#include "core/equilibrium_index.h"
#include "output/charge_suffix.h"

namespace tormel {

namespace {

constexpr double kGasConstantForResults = 8.3144598;  // J/(mol K)
constexpr double kInverseReferenceKelvin = 0.0033540164346805303;  // 1 / 298.15 K

// Shift of the equilibrium's log K to the calculation's temperature, as the
// result tables report it.
double TemperatureShift(const InputProblem& input, const Equilibrium& eq) {
    if (input.temperatureCorrection == 0 || eq.enthalpy == 0 || input.temperature == 25.0) return 0;
    const double factor =
        std::exp(eq.enthalpy / kGasConstantForResults * (kInverseReferenceKelvin - 1 / (input.temperature + 273.15)));
    return std::log10(std::pow(10.0, eq.logK) * factor) - eq.logK;
}

double ConditionalLogK(const CalcContext& calc, const Equilibrium& eq) {
    return eq.logK + calc.state.logGamma1 * eq.deltaZ2 + TemperatureShift(calc.input, eq);
}

// The value of a component in the solution: the free concentration of its
// system component, or the concentration of the species that stands for it.
// `firstSystemIndex` is the smallest system index taken as a system component.
double FreeValue(const ChemicalSystem& chem, int32_t k, int32_t firstSystemIndex) {
    const int32_t index = chem.placement[k].systemIndex;
    if (index >= firstSystemIndex) {
        if (static_cast<size_t>(index) < chem.systemComponents.size()) return chem.systemComponents[index].freeConcentration;
        return 0;
    }
    const size_t s = static_cast<size_t>(-index);
    return s < chem.species.size() ? chem.species[s].concentration : 0;
}

// Fills `definition` as the reaction definition of equilibrium e: `terms`
// as its reactants, the equilibrium's own species with `coefficient` as its
// product.
void FillDefinition(const ChemicalSystem& chem, int32_t e, std::span<const EquilibriumTerm> terms,
                    int32_t coefficient, ReactionDefinition& definition) {
    const Equilibrium& eq = chem.db().equilibria[e];
    for (size_t n = 0; n < terms.size() && n < kMaxReactionEntries; ++n) {
        const Component& comp = chem.db().components[terms[n].component];
        ReactionEntry& entry = definition.reactants[n];
        entry.coefficient = terms[n].coefficient;
        entry.name = comp.name;
        entry.charge = comp.charge;
        if (comp.charge == 0)
            entry.phase = std::string_view("(aq)");
        else
            entry.phase.clear();
    }
    definition.products[0].coefficient = coefficient;
    definition.products[0].name = eq.name;
    definition.logK = eq.logK;
    definition.literature = LiteratureText(chem, eq.literatureRef);
}

// pow(free value of component k, nu) for the terms of the solids, each of
// the first kKept pairs of component and coefficient formed once: the solids
// share their components.
class TermPowers {
public:
    explicit TermPowers(const ChemicalSystem& chem) : chem_(chem) {}

    double Of(int32_t k, int32_t nu) {
        for (size_t i = 0; i < count_; ++i)
            if (powers_[i].component == k && powers_[i].coefficient == nu) return powers_[i].value;
        const double value = std::pow(FreeValue(chem_, k, 0), nu);
        if (count_ < kKept) powers_[count_++] = {k, nu, value};
        return value;
    }

private:
    struct Power {
        int32_t component = 0;
        int32_t coefficient = 0;
        double value = 0;
    };
    static constexpr size_t kKept = 32;
    const ChemicalSystem& chem_;
    std::array<Power, kKept> powers_{};
    size_t count_ = 0;
};

// Files a solid check or gas result: the record takes the two log K values,
// the literature of the equilibrium and the index of the reaction definition
// that joins the set's reactions here (filled in place by `fill`).
template <class Record, class Fill>
Record& AddWithDefinition(double logK, double conditionalLogK, std::vector<Record>& list,
                          DefinitionFiler& definitions, const Fill& fill) {
    ReactionDefinition& definition = definitions.Next();
    fill(definition);
    Record& record = list.emplace_back();
    record.logK = logK;
    record.conditionalLogK = conditionalLogK;
    record.literature = definition.literature;
    record.reactionDefinition = static_cast<int32_t>(definitions.Count()) - 1;
    return record;
}

// At most one record per ligand of each gas: the room the gas results take.
size_t GasRecordRoom(const ChemicalSystem& chem, const EquilibriumIndex& index) {
    size_t room = 0;
    for (const int32_t e : EquilibriaOfType(chem.db(), EquilibriumType::Gas)) room += index.Terms(e).size();
    return room;
}

}  // namespace

const SharedText& LiteratureText(const ChemicalSystem& chem, int32_t reference) {
    static const SharedText none;
    if (reference < 0 || reference >= chem.db().LiteratureReferenceCount()) return none;
    return chem.db().literature[reference];
}

size_t CheckDefinitionRoom(const ChemicalSystem& chem, size_t solidCount) {
    std::optional<EquilibriumIndex> temporary;
    return solidCount + GasRecordRoom(chem, FittingIndex(chem.db(), temporary));
}

void AddSolidChecks(const CalcContext& calc, std::span<const int32_t> solids, const SharedText& solidNote,
                    DefinitionFiler& definitions, SetRecords& records) {
    const ChemicalSystem& chem = calc.chem;
    std::optional<EquilibriumIndex> temporary;
    const EquilibriumIndex& index = FittingIndex(chem.db(), temporary);
    definitions.Reserve(solids.size());
    records.solidChecks.reserve(records.solidChecks.size() + solids.size());
    TermPowers powers(chem);
    for (const int32_t e : solids) {
        const Equilibrium& eq = chem.db().equilibria[e];
        // the solid's components: its first componentCount terms
        const std::span<const EquilibriumTerm> terms =
            index.Terms(e).first(std::min<size_t>(index.Terms(e).size(), std::max(0, eq.componentCount)));
        double product = 1;
        for (const auto [k, nu] : terms) product *= powers.Of(k, nu);
        const double conditional = ConditionalLogK(calc, eq);

        SolidSaturation& solid = AddWithDefinition(eq.logK, conditional, records.solidChecks, definitions,
                                                   [&](ReactionDefinition& definition) {
                                                       FillDefinition(chem, e, terms, 1, definition);
                                                       definition.note = solidNote;
                                                   });
        solid.name = eq.name;
        solid.saturationIndex = std::log10(product / std::pow(10.0, -conditional));
    }
}

void AddGasResults(const CalcContext& calc, DefinitionFiler& definitions, SetRecords& records) {
    const ChemicalSystem& chem = calc.chem;
    std::optional<EquilibriumIndex> temporary;
    const EquilibriumIndex& index = FittingIndex(chem.db(), temporary);
    // room for all of them, so that filing one never moves the set's reactions
    const size_t room = GasRecordRoom(chem, index);
    definitions.Reserve(room);
    records.gases.reserve(records.gases.size() + room);
    for (const int32_t e : EquilibriaOfType(chem.db(), EquilibriumType::Gas)) {
        const Equilibrium& eq = chem.db().equilibria[e];
        if (eq.linkedComponent < 0 || eq.linkedComponent >= chem.db().ComponentCount()) continue;
        if (calc.input.components[eq.linkedComponent].inputValue != 0) continue;
        const double conditional = ConditionalLogK(calc, eq);
        const std::span<const EquilibriumTerm> terms = index.Terms(e);
        double pressure = std::pow(10.0, conditional);
        for (const auto [j, nu] : terms) pressure *= std::pow(FreeValue(chem, j, 1), nu);
        for (const auto [k, nu] : terms) {
            const Component& ligand = chem.db().components[k];
            if (ligand.type != ComponentType::Ligand || !chem.placement[k].inInput) continue;
            const auto fill = [&](ReactionDefinition& d) {
                FillDefinition(chem, e, terms, static_cast<int32_t>(eq.linkedCoefficient), d);
            };
            GasResult& gas = AddWithDefinition(eq.logK, conditional, records.gases, definitions, fill);
            gas.name = eq.name + " / " + ligand.name + ChargeSuffix(ligand.charge);
            gas.partialPressure = pressure;
            gas.ligandConcentration = FreeValue(chem, k, 1) * calc.state.bulkFraction;
        }
    }
}

}  // namespace tormel
