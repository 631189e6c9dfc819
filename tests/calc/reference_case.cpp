#include "reference_case.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <map>
#include <utility>

#include "calc/calc_context.h"
#include "calc/run_calculation.h"
#include "component_inputs.h"
#include "precipitation_invariants.h"
#include "solution_checks.h"  // Davies activities written out, not the solver's own

namespace tormel::test {

namespace {

// "CaHCO3+" -> ("CaHCO3", 1); "CO3-2" -> ("CO3", -2); "H4SiO4" -> ("H4SiO4", 0)
std::pair<std::string, int> SplitCharge(const std::string& key) {
    size_t end = key.size();
    size_t digits = end;
    while (digits > 0 && std::isdigit(static_cast<unsigned char>(key[digits - 1]))) --digits;
    if (digits > 0 && (key[digits - 1] == '+' || key[digits - 1] == '-')) {
        const int magnitude = digits == end ? 1 : std::stoi(key.substr(digits));
        return {key.substr(0, digits - 1), key[digits - 1] == '+' ? magnitude : -magnitude};
    }
    return {key, 0};
}

// Master species whose component is named after the element and its
// oxidation state.
const std::map<std::string, std::string>& OxidationStateNames() {
    static const std::map<std::string, std::string> names = {
        {"Fe+2", "Fe(II)"}, {"Fe+3", "Fe(III)"}, {"Cu+2", "Cu(II)"}, {"Cu+", "Cu(I)"},
        {"Mn+2", "Mn(II)"}, {"Cr+2", "Cr(II)"},  {"Tl+", "Tl(I)"},   {"Hg", "Hg(0)"},
        {"MnO4-2", "Mn(VI)"}, {"MnO4-", "Mn(VII)"}, {"UO2+", "U(V)"}, {"UO2+2", "U(VI)"},
    };
    return names;
}

class CaseRun {
public:
    CaseRun(const JsonValue& c, const ChemicalSystem& database, double criterion)
        : c_(c), chem_(database) {
        input_.ionicStrengthModel = 1;
        input_.convergenceCriterion = criterion;
    }

    // Sets the inputs only; false when a name of the case is not in the database.
    bool Prepare() {
        out_.id = c_.TextOr("id", "?");
        ClearInputs(input_, chem_);
        const JsonValue* options = c_.Find("options");
        auto option = [&](const char* name) { return options && options->BoolOr(name, false); };
        out_.hasSolids = input_.precipitation = option("precipitation");
        input_.redox = option("redox");
        input_.adsorption = option("adsorption");
        input_.temperature = c_.NumberOr("temperature_C", 25);
        input_.temperatureCorrection = option("temperature_correction") ? 2 : 0;
        const bool fixedPh = c_.TextOr("ph_mode", "") == "fixed";
        if (!Give(chem_.db().components[chem_.db().hydrogenIndex].name, fixedPh ? InputType::FreeAct : InputType::TotalConc,
                  fixedPh ? std::pow(10.0, -c_.NumberOr("ph", 7)) : c_.NumberOr("h_total_mol_L", 0)))
            return false;
        if (chem_.db().electronIndex > 0) {
            ComponentInput& e = input_.components[chem_.db().electronIndex];
            e.inputType = InputType::FreeAct;
            e.inputValue = c_.Find("pe") ? std::pow(10.0, -c_.NumberOr("pe", 0)) : 1.0;
        }
        auto giveAll = [&](const JsonValue* list, InputType type) {
            if (list)
                for (const auto& [name, value] : list->members)
                    if (!Give(name, type, value.number)) return false;
            return true;
        };
        if (!giveAll(c_.Find("totals_mol_L"), InputType::TotalConc)) return false;
        if (const JsonValue* groups = c_.Find("redox_groups"))
            for (const JsonValue& group : groups->items) {
                const JsonValue* members = group.Find("members");
                if (!members || members->items.empty()) return Fail("redox group without members");
                if (!Give(members->items[0].text, InputType::TotalConc, group.NumberOr("total_mol_L", 0))) return false;
            }
        const JsonValue* adsorbent = c_.Find("adsorbent");
        if (!giveAll(c_.Find("gases_atm"), InputType::GasPres) ||
            !giveAll(adsorbent ? adsorbent->Find("sites_mol_L") : nullptr, InputType::TotalConc))
            return false;
        if (const JsonValue* tol = c_.Find("tolerance")) {
            tolerance_ = tol->NumberOr("relative_concentration", tolerance_);
            ionicTolerance_ = tol->NumberOr("ionic_strength_relative", ionicTolerance_);
            phTolerance_ = tol->NumberOr("ph_absolute", phTolerance_);
            siTolerance_ = tol->NumberOr("saturation_index_absolute", siTolerance_);
            precipitatedTolerance_ = tol->NumberOr("precipitated_relative", tolerance_);
        }
        return true;
    }
    ChemicalSystem& Chem() { return chem_; }
    InputProblem& Input() { return input_; }

    ReferenceOutcome Run() {
        if (!Prepare()) return out_;
        CalcContext ctx{chem_, input_, state_};
        const CalculationOutcome result = RunCalculation(ctx, false);
        out_.solve = result.solve;
        if (!result.assembled) out_.setupError = "assembly refused the case";
        if (!out_.solve.converged) return out_;
        Compare();
        return out_;
    }

private:
    const JsonValue& c_;
    ChemicalSystem chem_;
    InputProblem input_;
    SolverState state_;
    ReferenceOutcome out_;
    double tolerance_ = 0.005, ionicTolerance_ = 0.005, phTolerance_ = 0.002, siTolerance_ = 0.005;
    double precipitatedTolerance_ = 0.005;

    bool Fail(const std::string& message) {
        out_.setupError = message;
        return false;
    }

    bool Give(const std::string& name, InputType type, double value) {
        const int32_t k = chem_.db().FindComponent(name);
        if (k < 0) return Fail("component " + name + " not in the database");
        input_.components[k] = {value, type};
        return true;
    }

    int32_t FindSpecies(const std::string& key, bool adsorbed) const {
        const auto [base, charge] = SplitCharge(key);
        for (size_t s = 0; s < chem_.species.size(); ++s) {
            const Species& sp = chem_.species[s];
            const bool wanted = adsorbed ? sp.kind == SpeciesKind::AdsorbedSpecies : sp.kind == SpeciesKind::ComplexSpecies;
            if (wanted && sp.name == base && sp.charge == charge) return static_cast<int32_t>(s);
        }
        // the oxidation-state name of the component first, then the bare formula
        std::vector<std::string> candidates;
        if (auto it = OxidationStateNames().find(key); it != OxidationStateNames().end())
            candidates.push_back(it->second);
        candidates.push_back(base);
        for (const std::string& name : candidates) {
            const int32_t k = chem_.db().FindComponent(name);
            if (k < 0) continue;
            const int32_t s = RepresentingSpecies(chem_, k);
            if (s >= 0 && chem_.species[s].charge == charge) return s;
        }
        return -1;
    }

    int32_t FindSolid(const std::string& name) const {
        for (size_t s = 0; s < chem_.species.size(); ++s)
            if (chem_.species[s].kind == SpeciesKind::SolidSpecies && chem_.species[s].name == name) return static_cast<int32_t>(s);
        return -1;
    }

    // Coefficient of database component k in species s, read from the
    // database reaction rather than from the assembled composition.
    double DatabaseCoefficient(int32_t s, int32_t k) const {
        const Species& sp = chem_.species[s];
        if (sp.kind <= SpeciesKind::RedoxPartnerSolid) return -sp.source == k ? 1 : 0;
        return chem_.db().Coefficient(k, sp.source);
    }

    double ComponentTotal(int32_t k, bool adsorbed) const {
        double sum = 0;
        for (size_t s = 0; s < chem_.species.size(); ++s) {
            const Species& sp = chem_.species[s];
            if (adsorbed ? sp.kind != SpeciesKind::AdsorbedSpecies : !IsDissolvedKind(sp.kind)) continue;
            sum += DatabaseCoefficient(static_cast<int32_t>(s), k) * sp.concentration;
        }
        return sum;
    }

    // log10(IAP K) of a solid or gas formation equilibrium at the case's temperature.
    bool SaturationIndex(const std::string& name, double& si) const {
        for (int32_t e = 0; e < chem_.db().EquilibriumCount(); ++e) {
            const Equilibrium& eq = chem_.db().equilibria[e];
            if ((eq.type == EquilibriumType::Solid || eq.type == EquilibriumType::Gas) && eq.name == name)
                return DatabaseSaturationIndex(chem_, state_, input_, e, si);
        }
        return false;
    }

    void Record(const std::string& quantity, double ours, double expected, double tolerance, bool relative) {
        Comparison cmp{quantity, ours, expected, 0, tolerance, relative, false};
        if (relative) {
            cmp.deviation = expected == 0 ? (ours == 0 ? 0 : HUGE_VAL) : std::fabs(ours - expected) / std::fabs(expected);
            out_.maxRelative = std::max(out_.maxRelative, cmp.deviation);
        } else {
            cmp.deviation = std::fabs(ours - expected);
            out_.maxAbsolute = std::max(out_.maxAbsolute, cmp.deviation);
        }
        cmp.ok = cmp.deviation <= tolerance;
        if (!cmp.ok) ++out_.failures;
        out_.comparisons.push_back(cmp);
    }

    void Missing(const std::string& quantity) {
        Comparison cmp{quantity + " (not found)", 0, 0, HUGE_VAL, 0, true, false};
        ++out_.failures;
        out_.comparisons.push_back(cmp);
    }

    // Components of a redox group's element, by the case's own list.
    std::vector<std::string> ElementMembers(const std::string& element) const {
        if (const JsonValue* groups = c_.Find("redox_groups"))
            for (const JsonValue& group : groups->items)
                if (group.TextOr("element", "") == element)
                    if (const JsonValue* members = group.Find("members")) {
                        std::vector<std::string> names;
                        for (const JsonValue& m : members->items) names.push_back(m.text);
                        return names;
                    }
        return {};
    }

    void CompareTotals(const JsonValue* list, bool adsorbed, const char* label) {
        if (!list) return;
        for (const auto& [name, value] : list->members) {
            std::vector<std::string> members = {name};
            if (chem_.db().FindComponent(name) < 0) members = ElementMembers(name);
            double total = 0;
            bool found = !members.empty();
            for (const std::string& m : members) {
                const int32_t k = chem_.db().FindComponent(m);
                if (k < 0) {
                    found = false;
                    break;
                }
                total += ComponentTotal(k, adsorbed);
            }
            if (!found) {
                Missing(std::string(label) + " " + name);
                continue;
            }
            Record(std::string(label) + " " + name, total, value.number, tolerance_, true);
        }
    }

    void Compare() {
        const JsonValue* expected = c_.Find("expected");
        if (!expected) return;
        Record("ionic strength", state_.ionicStrength, expected->NumberOr("ionic_strength", 0), ionicTolerance_, true);
        const Species& h = chem_.species[0];
        const double ph = -(std::log10(h.concentration) + DaviesLog(state_.ionicStrength, h.charge));
        Record("pH", ph, expected->NumberOr("ph", 0), phTolerance_, false);
        for (const char* list : {"species", "adsorbed_species"}) {
            const JsonValue* species = expected->Find(list);
            if (!species) continue;
            const bool adsorbed = std::string(list) == "adsorbed_species";
            for (const auto& [name, value] : species->members) {
                const int32_t s = FindSpecies(name, adsorbed);
                if (s < 0) {
                    Missing(std::string(list) + " " + name);
                    continue;
                }
                Record(std::string(list) + " " + name, chem_.species[s].concentration, value.number, tolerance_, true);
            }
        }
        CompareTotals(expected->Find("dissolved_totals_mol_L"), false, "dissolved");
        CompareTotals(expected->Find("adsorbed_totals_mol_L"), true, "adsorbed");
        CompareTotals(expected->Find("redox_state_totals_mol_L"), false, "redox state");
        if (const JsonValue* solids = expected->Find("precipitated_mol_L"))
            for (const auto& [name, value] : solids->members) {
                const int32_t s = FindSolid(name);
                // a solid the assembly did not form cannot have precipitated
                const double amount = s >= 0 ? chem_.species[s].concentration : 0.0;
                if (s < 0 && value.number != 0) {
                    Missing("precipitated " + name);
                    continue;
                }
                Record("precipitated " + name, amount, value.number, precipitatedTolerance_, true);
            }
        if (const JsonValue* indices = expected->Find("saturation_indices"))
            for (const auto& [name, value] : indices->members) {
                double si = 0;
                if (!SaturationIndex(name, si)) {
                    Missing("SI " + name);
                    continue;
                }
                Record("SI " + name, si, value.number, siTolerance_, false);
            }
    }
};

}  // namespace

bool PrepareReferenceCase(const JsonValue& reference, const ChemicalSystem& database, double criterion,
                          ChemicalSystem& chem, InputProblem& input) {
    CaseRun run(reference, database, criterion);
    if (!run.Prepare()) return false;
    chem = std::move(run.Chem());
    input = run.Input();
    return true;
}

ReferenceOutcome RunReferenceCase(const JsonValue& reference, const ChemicalSystem& database, double criterion) {
    return CaseRun(reference, database, criterion).Run();
}

std::vector<std::string> ReferenceCaseFiles() {
    namespace fs = std::filesystem;
    std::vector<std::string> files;
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(fs::path(TORMEL_TEST_DATA) / "reference", ec))
        if (entry.path().extension() == ".json") files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace tormel::test
