#include "conversion.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <optional>
#include <set>

#include "chem_formula.h"
#include "core/c_number.h"
#include "ion_diameters.h"
#include "literature.h"
#include "published_data.h"

namespace dbconvert {

const char* const kDatabaseVersion = "1.2";

namespace {

using tormel::Component;
using tormel::Equilibrium;

constexpr double kTolerance = 1e-9;

// A species written on the components: log a(species) = logK + sum of
// coefficient x log a(component); enthalpy of that formation reaction.
struct Expr {
    std::map<int, double> coef;
    double logK = 0;
    double enthalpy = 0;
    bool enthalpyKnown = true;
};

void AddScaled(Expr& into, const Expr& x, double factor) {
    for (const auto& [c, v] : x.coef) into.coef[c] += factor * v;
    into.logK += factor * x.logK;
    into.enthalpy += factor * x.enthalpy;
    into.enthalpyKnown = into.enthalpyKnown && x.enthalpyKnown;
}

void Clean(Expr& e) {
    for (auto it = e.coef.begin(); it != e.coef.end();) {
        if (std::fabs(it->second) < kTolerance) it = e.coef.erase(it);
        else ++it;
    }
}

bool IsIntegral(const Expr& e) {
    for (const auto& [c, v] : e.coef)
        if (std::fabs(v - std::round(v)) > kTolerance) return false;
    return true;
}

std::string Coefficient(double v) { return tormel::FormatC("%g", v); }

// Sums of constants carry binary noise (2.947 - 9.5688 = -6.621799999999999);
// the data have far fewer decimals, so round it away. Also turns -0 into 0.
double Tidy(double v, double scale) {
    double r = std::round(v * scale) / scale;
    return r == 0 ? 0.0 : r;
}

// The same for products such as 4.8e-3 x 2: twelve significant digits.
double Tidy12(double v) {
    double r = tormel::StrToDoubleC(tormel::FormatC("%.12G", v));
    return r == 0 ? 0.0 : r;
}

struct ComponentInfo {
    std::string name;
    tormel::ComponentType type{};
    int charge = 0;
    std::string species;         // formula with charge, as in the source data
    std::string element;         // element without valence ("Fe")
    int valence = INT_MIN;       // oxidation state when known
    std::string replacedMaster;  // master species this free ion stands in for
    double molarMass = 0;
    int organicModel = 0;
};

struct OutputEquilibrium {
    Equilibrium eq;
    std::map<int, double> coef;
};

class Converter {
public:
    explicit Converter(const MinteqData& data) : data_(data) {}
    ConversionResult Run();

private:
    const MinteqData& data_;
    ConversionResult result_;
    ConversionReport& report() { return result_.report; }
    LiteratureTable literature_;

    std::vector<ComponentInfo> comps_;
    std::map<std::string, int> basis_;  // species name -> component
    int hydrogen_ = 0, electron_ = -1, hydroxide_ = -1;
    std::map<std::string, const DataEntry*> aqueousDefs_;
    std::map<std::string, const DataEntry*> surfaceDefs_;
    std::map<std::string, std::string> ionOfMaster_;   // replaced master -> free ion
    std::map<std::string, std::string> masterOfIon_;   // free ion -> replaced master
    std::map<std::string, Expr> memo_;
    std::set<std::string> inProgress_;
    std::map<std::string, double> elementGfw_;

    std::vector<OutputEquilibrium> water_, complexes_, adsorption_, redox_, gases_, solids_;
    std::array<std::vector<OutputEquilibrium>, 3> organics_;

    // --- components ---
    void CollectElementWeights();
    void BuildComponents();
    double MolarMassOf(const std::string& formula, const std::string& what);
    void NameComponents();

    // --- algebra ---
    std::optional<Expr> Express(const std::string& species, std::string* why);
    // `defined` written on the components through `entry`. For a phase the
    // defined term is the first one on the left, whatever other terms are
    // called (solid Sb(OH)3 dissolves into aqueous Sb(OH)3).
    std::optional<Expr> Generic(const DataEntry& entry, const std::string& defined, std::string* why,
                                bool phase = false);
    std::optional<Expr> RawRedox(int component, std::string* why);

    // --- equilibria ---
    void IndexDefinitions();
    void ConvertAqueous();
    void ConvertRedox();
    void ConvertPhases();
    void ConvertSurface();
    void ConvertOrganic();

    int DeltaZ2(const Expr& e, int formedCharge, bool surface) const;
    // False, with the reason in the report, when `e` is missing (`why` says
    // why it could not be written) or cannot be stored.
    bool CheckUsable(const std::optional<Expr>& e, const std::string& why, const std::string& kind,
                     const std::string& name, int line);
    // The equilibrium of `type` that forms `name` with `charge` as `e` writes
    // it; the literature reference and any links are the caller's.
    OutputEquilibrium Formed(const Expr& e, tormel::EquilibriumType type, const std::string& name, int charge,
                             bool surface) const;
    void Fill();
};

// ---------------------------------------------------------------------------
// components

std::string ElementOf(const std::string& masterElement) {
    size_t p = masterElement.find('(');
    return p == std::string::npos ? masterElement : masterElement.substr(0, p);
}

std::optional<int> ValenceOf(const std::string& masterElement) {
    size_t open = masterElement.find('('), close = masterElement.find(')');
    if (open == std::string::npos || close == std::string::npos || close <= open + 1) return std::nullopt;
    auto v = tormel::ParseDoubleC(masterElement.substr(open + 1, close - open - 1));
    if (!v) return std::nullopt;
    return static_cast<int>(*v);
}

void Converter::CollectElementWeights() {
    for (const auto& m : data_.masters) {
        if (m.element.find('(') != std::string::npos || !m.elementGfw) continue;
        if (m.element == "Alkalinity" || m.element == "E") continue;
        elementGfw_[m.element] = *m.elementGfw;
    }
}

double Converter::MolarMassOf(const std::string& formula, const std::string& what) {
    auto counts = ElementCounts(formula);
    if (!counts) {
        report().notes.push_back({"component", what, 0, "formula not readable; molar mass 0"});
        return 0;
    }
    double mass = 0;
    for (const auto& [element, n] : *counts) {
        auto it = elementGfw_.find(element);
        if (it == elementGfw_.end()) {
            report().notes.push_back({"component", what, 0, "no weight for element " + element + "; molar mass 0"});
            return 0;
        }
        mass += n * it->second;
    }
    return mass;
}

void Converter::BuildComponents() {
    // Master species in file order, each once; valences from every line.
    struct Master {
        std::string species, element;
        int valence = INT_MIN;
    };
    std::vector<Master> masters;
    for (const auto& m : data_.masters) {
        std::string element = ElementOf(m.element);
        if (element == "Alkalinity" || element == "E" || element == "O" || element == "H") continue;
        auto it = std::find_if(masters.begin(), masters.end(), [&](const Master& x) { return x.species == m.species; });
        if (it == masters.end()) {
            masters.push_back({m.species, element, INT_MIN});
            it = masters.end() - 1;
        }
        if (auto v = ValenceOf(m.element)) it->valence = *v;
    }

    // A master species that is not a free ion gives way to the free ion when
    // the data define that ion from it by protonation alone:
    // Hg(OH)2 + 2 H+ = Hg+2 + 2 H2O makes Hg+2 the component.
    for (auto& m : masters) {
        SpeciesName sn = SplitCharge(m.species);
        if (IsBareElement(sn.formula)) continue;
        const DataEntry* found = nullptr;
        std::string ion;
        for (const auto& e : data_.solutionSpecies) {
            if (e.reaction.left.size() != 2 || e.reaction.right.empty() || e.reaction.right.size() > 2) continue;
            bool hasMaster = false, hasH = false;
            for (const auto& t : e.reaction.left) {
                hasMaster = hasMaster || (t.species == m.species && t.coefficient == 1);
                hasH = hasH || t.species == "H+";
            }
            if (!hasMaster || !hasH) continue;
            if (e.reaction.right.size() == 2 && e.reaction.right[1].species != "H2O") continue;
            SpeciesName product = SplitCharge(e.reaction.right[0].species);
            if (product.formula != m.element || product.charge <= 0 || e.reaction.right[0].coefficient != 1) continue;
            found = &e;
            ion = e.reaction.right[0].species;
        }
        if (found) {
            ionOfMaster_[m.species] = ion;
            masterOfIon_[ion] = m.species;
        }
    }

    auto addComponent = [&](ComponentInfo c) {
        basis_[c.species] = static_cast<int>(comps_.size());
        comps_.push_back(std::move(c));
    };

    ComponentInfo h;
    h.name = "H";
    h.type = tormel::ComponentType::Cation;
    h.charge = 1;
    h.species = "H+";
    h.element = "H";
    h.molarMass = MolarMassOf("H", "H");
    addComponent(h);
    hydrogen_ = 0;

    std::vector<ComponentInfo> cations, ligands;
    for (const auto& m : masters) {
        ComponentInfo c;
        c.element = m.element;
        c.valence = m.valence;
        c.species = m.species;
        auto rep = ionOfMaster_.find(m.species);
        if (rep != ionOfMaster_.end()) {
            c.species = rep->second;
            c.replacedMaster = m.species;
        }
        SpeciesName sn = SplitCharge(c.species);
        c.charge = sn.charge;
        c.name = sn.formula;  // final names in NameComponents
        c.molarMass = MolarMassOf(sn.formula, c.species);
        c.type = sn.charge > 0 ? tormel::ComponentType::Cation : tormel::ComponentType::Ligand;
        (c.type == tormel::ComponentType::Cation ? cations : ligands).push_back(c);
    }
    // A neutral free element with charged cations of its own (Hg) is the
    // metal in another oxidation state: a cation too.
    for (auto it = ligands.begin(); it != ligands.end();) {
        bool metal = it->charge == 0 && IsBareElement(SplitCharge(it->species).formula) &&
                     std::any_of(cations.begin(), cations.end(),
                                 [&](const ComponentInfo& x) { return x.element == it->element; });
        if (metal) {
            it->type = tormel::ComponentType::Cation;
            cations.push_back(*it);
            it = ligands.erase(it);
        } else {
            ++it;
        }
    }
    for (auto& c : cations) addComponent(c);

    ComponentInfo e;
    e.name = "e";
    e.type = tormel::ComponentType::Electron;
    e.charge = -1;
    e.species = "e-";
    electron_ = static_cast<int>(comps_.size());
    addComponent(e);

    ComponentInfo oh;
    oh.name = "OH";
    oh.type = tormel::ComponentType::Ligand;
    oh.charge = -1;
    oh.species = "OH-";
    oh.element = "O";
    oh.molarMass = MolarMassOf("OH", "OH");
    hydroxide_ = static_cast<int>(comps_.size());
    comps_.push_back(oh);  // not a basis species: other species are written on H+
    for (auto& c : ligands) addComponent(c);

    for (const auto& s : data_.surfaceMasters) {
        ComponentInfo a;
        a.name = s.species;
        a.type = tormel::ComponentType::Ads;
        a.species = s.species;
        a.element = s.site;
        addComponent(a);
    }
}

void Converter::NameComponents() {
    std::map<std::string, int> perElement, perFormula;
    for (const auto& c : comps_) {
        if (c.type != tormel::ComponentType::Cation && c.type != tormel::ComponentType::Ligand) continue;
        ++perElement[c.element];
        ++perFormula[c.name];
    }
    for (auto& c : comps_) {
        if (c.type != tormel::ComponentType::Cation && c.type != tormel::ComponentType::Ligand) continue;
        if (c.species == "H+" || c.species == "OH-") continue;
        if (perElement[c.element] < 2) continue;
        if (c.name != c.element && perFormula[c.name] < 2) continue;
        int valence = c.valence;
        if (valence == INT_MIN && IsBareElement(c.name)) valence = c.charge;
        if (valence == INT_MIN) {
            report().notes.push_back({"component", c.species, 0, "oxidation state unknown; named by formula"});
            continue;
        }
        c.name = c.element + "(" + RomanNumeral(valence) + ")";
    }
    std::set<std::string> seen;
    for (const auto& c : comps_)
        if (!seen.insert(c.name).second)
            report().notes.push_back({"component", c.name, 0, "component name used twice"});
}

// ---------------------------------------------------------------------------
// algebra

std::optional<Expr> Converter::Generic(const DataEntry& entry, const std::string& defined, std::string* why,
                                       bool phase) {
    if (!entry.logK) {
        if (why) *why = "no log_k";
        return std::nullopt;
    }
    std::map<std::string, double> signedCoef;
    double coefD = 0;
    for (size_t i = 0; i < entry.reaction.left.size(); ++i) {
        const auto& t = entry.reaction.left[i];
        if (phase && i == 0) coefD = -t.coefficient;
        else signedCoef[t.species] -= t.coefficient;
    }
    for (const auto& t : entry.reaction.right) signedCoef[t.species] += t.coefficient;
    if (!phase) {
        coefD = signedCoef[defined];
        signedCoef.erase(defined);
    }
    if (coefD == 0) {
        if (why) *why = "species not in its own reaction";
        return std::nullopt;
    }
    Expr sum;
    for (const auto& [species, c] : signedCoef) {
        if (species == "H2O" || c == 0) continue;
        std::string inner;
        auto x = Express(species, &inner);
        if (!x) {
            if (why) *why = species + ": " + inner;
            return std::nullopt;
        }
        AddScaled(sum, *x, c);
    }
    Expr out;
    for (const auto& [comp, v] : sum.coef) out.coef[comp] = -v / coefD;
    out.logK = (*entry.logK - sum.logK) / coefD;
    out.enthalpyKnown = entry.enthalpy.has_value() && sum.enthalpyKnown;
    out.enthalpy = out.enthalpyKnown ? (*entry.enthalpy - sum.enthalpy) / coefD : 0;
    Clean(out);
    return out;
}

std::optional<Expr> Converter::Express(const std::string& species, std::string* why) {
    auto b = basis_.find(species);
    if (b != basis_.end()) {
        Expr e;
        e.coef[b->second] = 1;
        return e;
    }
    if (species == "H2O") return Expr{};
    auto m = memo_.find(species);
    if (m != memo_.end()) return m->second;
    if (inProgress_.count(species)) {
        if (why) *why = "circular definition";
        return std::nullopt;
    }
    const DataEntry* def = nullptr;
    auto rep = ionOfMaster_.find(species);
    if (rep != ionOfMaster_.end()) def = aqueousDefs_[rep->second];
    else if (auto a = aqueousDefs_.find(species); a != aqueousDefs_.end()) def = a->second;
    else if (auto s = surfaceDefs_.find(species); s != surfaceDefs_.end()) def = s->second;
    if (!def) {
        if (why) *why = "no definition";
        return std::nullopt;
    }
    inProgress_.insert(species);
    auto out = Generic(*def, species, why);
    inProgress_.erase(species);
    if (out) memo_[species] = *out;
    return out;
}

// The component written on the components of another redox state, from the
// reaction that defines it (or defines the master species it stands in for).
std::optional<Expr> Converter::RawRedox(int component, std::string* why) {
    const ComponentInfo& c = comps_[component];
    if (!c.replacedMaster.empty()) {
        auto def = aqueousDefs_.find(c.replacedMaster);
        if (def == aqueousDefs_.end()) return std::nullopt;
        auto s = Generic(*def->second, c.replacedMaster, why);
        auto m = Express(c.replacedMaster, why);
        if (!s || !m) return std::nullopt;
        double a = m->coef[component];
        if (a == 0) return std::nullopt;
        Expr rest = *m;
        rest.coef.erase(component);
        Expr out = *s;
        AddScaled(out, rest, -1);
        for (auto& [k, v] : out.coef) v /= a;
        out.logK /= a;
        out.enthalpy /= a;
        Clean(out);
        return out;
    }
    auto def = aqueousDefs_.find(c.species);
    if (def == aqueousDefs_.end()) return std::nullopt;
    return Generic(*def->second, c.species, why);
}

// ---------------------------------------------------------------------------
// equilibria

bool IsIdentity(const DataEntry& e) {
    return e.reaction.left.size() == 1 && e.reaction.right.size() == 1 &&
           e.reaction.left[0].species == e.reaction.right[0].species;
}

void Converter::IndexDefinitions() {
    auto index = [&](const std::vector<DataEntry>& list, std::map<std::string, const DataEntry*>& defs,
                     const char* kind) {
        for (const auto& e : list) {
            if (IsIdentity(e) || e.reaction.right.empty()) continue;
            const std::string& defined = e.reaction.right[0].species;
            auto it = defs.find(defined);
            if (it != defs.end())
                report().replacedDefinitions.push_back(
                    {kind, defined, it->second->line,
                     "defined again at line " + std::to_string(e.line) + "; the later definition is used"});
            defs[defined] = &e;
        }
    };
    index(data_.solutionSpecies, aqueousDefs_, "aqueous species");
    index(data_.surfaceSpecies, surfaceDefs_, "surface species");
}

int Converter::DeltaZ2(const Expr& e, int formedCharge, bool surface) const {
    // The electron counts with its charge -1: the calculation holds it, like
    // every component given by its activity, as activity / gamma1, so its
    // coefficient cancels only when it enters dz^2. Adsorbed species carry no
    // activity coefficient, so sites do not enter and for surface species the
    // formed species' charge is not subtracted.
    double sum = 0;
    for (const auto& [c, v] : e.coef) {
        if (comps_[c].type == tormel::ComponentType::Ads) continue;
        sum += v * comps_[c].charge * comps_[c].charge;
    }
    if (!surface) sum -= static_cast<double>(formedCharge) * formedCharge;
    return static_cast<int>(std::lround(sum));
}

bool Converter::CheckUsable(const std::optional<Expr>& expr, const std::string& why, const std::string& kind,
                            const std::string& name, int line) {
    if (!expr) {
        report().skipped.push_back({kind, name, line, why});
        return false;
    }
    const Expr& e = *expr;
    if (!IsIntegral(e)) {
        std::string terms;
        for (const auto& [c, v] : e.coef)
            if (std::fabs(v - std::round(v)) > kTolerance) terms += (terms.empty() ? "" : ", ") + Coefficient(v) + " " + comps_[c].name;
        report().skipped.push_back({kind, name, line, "fractional coefficients (" + terms + ")"});
        return false;
    }
    if (e.coef.size() > 4) {
        std::string terms;
        for (const auto& [c, v] : e.coef) terms += (terms.empty() ? "" : ", ") + comps_[c].name;
        report().skipped.push_back(
            {kind, name, line, std::to_string(e.coef.size()) + " components (" + terms + "); at most 4 are allowed"});
        return false;
    }
    if (e.coef.empty()) {
        report().skipped.push_back({kind, name, line, "reaction has no components"});
        return false;
    }
    return true;
}

OutputEquilibrium Converter::Formed(const Expr& e, tormel::EquilibriumType type, const std::string& name, int charge,
                                    bool surface) const {
    OutputEquilibrium out;
    out.eq.type = type;
    out.eq.name = name;
    out.eq.charge = charge;
    out.eq.logK = e.logK;
    out.eq.hasEnthalpy = e.enthalpyKnown;
    out.eq.enthalpy = e.enthalpyKnown ? e.enthalpy : 0;
    out.eq.deltaZ2 = DeltaZ2(e, charge, surface);
    out.coef = e.coef;
    return out;
}

void Converter::ConvertAqueous() {
    for (const auto& entry : data_.solutionSpecies) {
        if (IsIdentity(entry) || entry.reaction.right.empty()) continue;
        const std::string& defined = entry.reaction.right[0].species;
        if (aqueousDefs_[defined] != &entry) continue;  // a later definition wins

        if (defined == "OH-") {
            // Stored as the formation of water from H+ and OH-.
            if (!entry.logK) continue;
            OutputEquilibrium w;
            w.eq.type = tormel::EquilibriumType::Water;
            w.eq.name = "H2O";
            w.eq.charge = 0;
            w.eq.logK = -*entry.logK;
            w.eq.hasEnthalpy = entry.enthalpy.has_value();
            w.eq.enthalpy = entry.enthalpy ? -*entry.enthalpy : 0;
            w.eq.deltaZ2 = 2;
            w.eq.literatureRef = literature_.AddSourceCode(entry.logKSource);
            w.coef[hydrogen_] = 1;
            w.coef[hydroxide_] = 1;
            water_.push_back(w);
            continue;
        }

        std::string name = defined;
        if (basis_.count(defined)) {
            auto rep = masterOfIon_.find(defined);
            if (rep == masterOfIon_.end()) continue;  // a redox relation, handled with the redox couples
            name = rep->second;                       // the former master species becomes a complex
        } else if (ionOfMaster_.count(defined)) {
            continue;  // relation of a replaced master to another state: a redox couple
        }

        std::string why;
        const auto e = Express(name, &why);
        if (!CheckUsable(e, why, "aqueous species", name, entry.line)) continue;
        SpeciesName sn = SplitCharge(name);
        OutputEquilibrium out = Formed(*e, tormel::EquilibriumType::Complex, sn.formula, sn.charge, false);
        if (auto d = IonDiameter(name)) {
            out.eq.complexDiameter = *d;
            report().complexesWithDiameter.push_back(name);
        }
        out.eq.literatureRef = literature_.AddSourceCode(entry.logKSource);
        if (!e->enthalpyKnown)
            report().notes.push_back({"aqueous species", name, entry.line,
                                      entry.analytic ? "only an analytic expression is given; enthalpy unknown"
                                                     : "no delta_h; enthalpy unknown"});
        complexes_.push_back(out);
    }
}

void Converter::ConvertRedox() {
    std::map<int, Expr> raw;
    std::map<int, std::string> rawSource;
    for (int c = 0; c < static_cast<int>(comps_.size()); ++c) {
        if (c == hydrogen_ || c == electron_ || c == hydroxide_) continue;
        std::string why;
        if (auto r = RawRedox(c, &why)) raw[c] = *r;
        else if (!why.empty()) report().skipped.push_back({"redox couple", comps_[c].species, 0, why});
    }
    for (const auto& [a, first] : raw) {
        const ComponentInfo& ca = comps_[a];
        const DataEntry* def = aqueousDefs_[ca.replacedMaster.empty() ? ca.species : ca.replacedMaster];
        Expr e = first;
        int partner = -1;
        for (int step = 0; step < 6; ++step) {
            std::vector<int> others;
            for (const auto& [c, v] : e.coef)
                if (c != hydrogen_ && c != electron_) others.push_back(c);
            if (others.size() != 1) break;
            int b = others[0];
            double v = e.coef[b];
            if (std::fabs(v - 1) < kTolerance) {
                partner = b;
                break;
            }
            auto next = raw.find(b);
            if (next == raw.end()) break;
            e.coef.erase(b);
            AddScaled(e, next->second, v);
            Clean(e);
        }
        std::string relation;
        for (const auto& [c, v] : first.coef) relation += (relation.empty() ? "" : " + ") + Coefficient(v) + " " + comps_[c].name;
        if (partner < 0 || !IsIntegral(e)) {
            report().skipped.push_back({"redox couple", ca.name, def ? def->line : 0,
                                        relation + " = " + ca.name +
                                            ": a redox equilibrium here turns one unit of one component into one unit "
                                            "of another; no such relation follows from the data"});
            continue;
        }
        OutputEquilibrium out = Formed(e, tormel::EquilibriumType::Redox, ca.name, ca.charge, false);
        out.eq.linkedComponent = a;
        out.eq.linkedCoefficient = 1;
        out.eq.literatureRef = literature_.AddSourceCode(def ? def->logKSource : "");
        redox_.push_back(out);
    }
}

void Converter::ConvertPhases() {
    std::map<std::string, const DataEntry*> last;
    for (const auto& p : data_.phases) {
        auto it = last.find(p.phaseName);
        if (it != last.end())
            report().replacedDefinitions.push_back({p.isGas ? "gas" : "solid", p.phaseName, it->second->line,
                                                    "defined again at line " + std::to_string(p.line) +
                                                        "; the later definition is used"});
        last[p.phaseName] = &p;
    }
    for (const auto& p : data_.phases) {
        if (last[p.phaseName] != &p) continue;
        const char* kind = p.isGas ? "gas" : "solid";
        if (p.reaction.left.empty()) continue;
        std::string why;
        const auto e = Generic(p, p.reaction.left[0].species, &why, true);
        if (!CheckUsable(e, why, kind, p.phaseName, p.line)) continue;
        if (!p.isGas) {
            OutputEquilibrium out = Formed(*e, tormel::EquilibriumType::Solid, p.phaseName, 0, false);
            out.eq.literatureRef = literature_.AddSourceCode(p.logKSource);
            solids_.push_back(out);
            continue;
        }
        // A gas is linked to one ligand; besides it only H+ may take part.
        int ligand = -1;
        std::string problem;
        for (const auto& [c, v] : e->coef) {
            if (c == hydrogen_) continue;
            if (comps_[c].type == tormel::ComponentType::Ligand && ligand < 0 && std::fabs(v - 1) < kTolerance)
                ligand = c;
            else problem += (problem.empty() ? "" : ", ") + Coefficient(v) + " " + comps_[c].name;
        }
        if (ligand < 0 || !problem.empty()) {
            report().skipped.push_back(
                {kind, p.phaseName, p.line,
                 "a gas dissolves into one ligand (coefficient 1) and H+ only; this one needs " +
                     (problem.empty() ? std::string("no ligand") : problem)});
            continue;
        }
        ComponentInfo g;
        g.name = p.phaseName;
        g.type = tormel::ComponentType::Gas;
        g.species = p.phaseName;
        int gi = static_cast<int>(comps_.size());
        comps_.push_back(g);
        OutputEquilibrium out = Formed(*e, tormel::EquilibriumType::Gas, p.phaseName, 0, false);
        out.eq.linkedComponent = gi;
        out.eq.linkedCoefficient = 1;
        out.eq.literatureRef = literature_.AddSourceCode(p.logKSource);
        gases_.push_back(out);
    }
}

void Converter::ConvertSurface() {
    for (const auto& entry : data_.surfaceSpecies) {
        if (IsIdentity(entry) || entry.reaction.right.empty()) continue;
        const std::string& defined = entry.reaction.right[0].species;
        if (surfaceDefs_[defined] != &entry) continue;
        std::string why;
        const auto e = Express(defined, &why);
        if (!CheckUsable(e, why, "surface species", defined, entry.line)) continue;
        SpeciesName sn = SplitCharge(defined);
        OutputEquilibrium out = Formed(*e, tormel::EquilibriumType::Adsorption, sn.formula, sn.charge, true);
        out.eq.literatureRef = entry.logKSource.empty() ? literature_.Add(kCitationSurface)
                                                        : literature_.AddSourceCode(entry.logKSource);
        adsorption_.push_back(out);
    }
}

void Converter::ConvertOrganic() {
    static const char* fractionNames[2] = {"FA", "HA"};
    static const char* citations[3] = {kCitationOrganicModel5, kCitationOrganicModel6, kCitationOrganicModel7};
    for (int code = tormel::Model5; code <= tormel::Model7; ++code) {
        int modelNumber = code + 3;
        int organic[2];
        for (int f = 0; f < 2; ++f) {
            ComponentInfo o;
            o.name = std::string(fractionNames[f]) + std::to_string(modelNumber);
            o.type = tormel::ComponentType::Organic;
            o.charge = -1;
            o.organicModel = code;
            organic[f] = static_cast<int>(comps_.size());
            comps_.push_back(o);
        }
        int lit = literature_.Add(citations[code - 2]);
        for (const auto& k : OrganicMetalConstants(code)) {
            auto metalIt = std::find_if(comps_.begin(), comps_.end(), [&](const ComponentInfo& c) {
                return c.name == k.metal && c.type == tormel::ComponentType::Cation;
            });
            if (metalIt == comps_.end()) {
                report().organicNotes.push_back("Model " + std::to_string(modelNumber) + ": no component " + k.metal);
                continue;
            }
            int metal = static_cast<int>(metalIt - comps_.begin());
            const std::string& orgName = comps_[organic[k.fraction]].name;
            auto make = [&](const std::string& name, int charge, std::map<int, double> coef) {
                OutputEquilibrium out;
                out.eq.type = tormel::EquilibriumType::Organic;
                out.eq.name = name;
                out.eq.charge = charge;
                out.eq.logK = k.logK;
                out.eq.organicModel = code;
                if (code == tormel::Model6) {
                    out.eq.organicReal1 = k.deltaLK1;
                    out.eq.organicReal2 = k.deltaLK2;
                } else if (code == tormel::Model7) {
                    out.eq.organicReal2 = k.deltaLK2;
                }
                out.eq.literatureRef = lit;
                out.coef = std::move(coef);
                organics_[code - 2].push_back(out);
            };
            make(k.metal + "-" + orgName, metalIt->charge - 1, {{metal, 1}, {organic[k.fraction], 1}});
            if (!k.hydroxoToo) continue;
            // The first hydroxo complex of the metal: metal 1, H+ -1.
            bool hydroxo = false;
            for (const auto& c : complexes_)
                if (c.coef.size() == 2 && c.coef.count(metal) && c.coef.at(metal) == 1 && c.coef.count(hydrogen_) &&
                    c.coef.at(hydrogen_) == -1) {
                    hydroxo = true;
                    break;
                }
            if (!hydroxo) {
                report().organicNotes.push_back("Model " + std::to_string(modelNumber) + ": no hydroxo complex of " +
                                                k.metal + "; its hydrolysed species is left out");
                continue;
            }
            make(k.metal + "OH-" + orgName, metalIt->charge - 2,
                 {{metal, 1}, {hydrogen_, -1}, {organic[k.fraction], 1}});
        }
    }
}

void Converter::Fill() {
    auto& chem = result_.chem;
    for (const auto& c : comps_) {
        Component rec;
        rec.type = c.type;
        rec.name = c.name;
        rec.charge = (c.type == tormel::ComponentType::RedSol || c.type == tormel::ComponentType::Gas) ? 0 : c.charge;
        if (c.type == tormel::ComponentType::Cation || c.type == tormel::ComponentType::Ligand) {
            rec.molarMass = c.molarMass;
            if (auto d = IonDiameter(c.species)) rec.ionDiameter = *d;
            else report().componentsWithoutDiameter.push_back(c.name + " (" + c.species + ")");
        }
        rec.organicModel = c.organicModel;
        chem.components.push_back(rec);
    }
    std::vector<const OutputEquilibrium*> all;
    for (const auto* list : {&water_, &complexes_, &adsorption_, &redox_, &gases_, &solids_})
        for (const auto& e : *list) all.push_back(&e);
    for (const auto& list : organics_)
        for (const auto& e : list) all.push_back(&e);
    const int nc = static_cast<int>(comps_.size());
    const int ne = static_cast<int>(all.size());
    chem.stoichiometry.assign(static_cast<size_t>(nc) * ne, 0);
    for (int i = 0; i < ne; ++i) {
        Equilibrium eq = all[i]->eq;
        eq.logK = Tidy(eq.logK, 1e10);
        eq.enthalpy = Tidy(eq.enthalpy, 1e6);
        eq.componentCount = static_cast<int>(all[i]->coef.size());
        chem.equilibria.push_back(eq);
    }
    for (int i = 0; i < ne; ++i)
        for (const auto& [c, v] : all[i]->coef) chem.Coefficient(c, i) = static_cast<int32_t>(std::lround(v));
    chem.literature.assign(literature_.Lines().begin(), literature_.Lines().end());
    for (int code = tormel::Model5; code <= tormel::Model7; ++code) {
        auto& params = chem.Organic(code);
        auto set = OrganicModelParameterSet(code);
        auto& desc = result_.descriptions[code - 2];
        static const char* fractionText[2] = {"fulvic acid", "humic acid"};
        for (const auto& p : set) {
            params.values.push_back({Tidy12(p.value[0]), Tidy12(p.value[1])});
            std::array<std::string, 2> d;
            for (int f = 0; f < 2; ++f)
                d[f] = "Model " + std::to_string(code + 3) + ", " + fractionText[f] + ": " + p.meaning + "; " + p.unitNote;
            desc.push_back(d);
        }
        params.literatureRef = organics_[code - 2].empty() ? 0 : organics_[code - 2].front().eq.literatureRef;
    }
    chem.hydrogenIndex = hydrogen_;
    chem.hydroxideIndex = hydroxide_;
    chem.electronIndex = electron_;
    chem.waterEquilibriumIndex = 0;

    const std::string version = kDatabaseVersion;
    result_.headers[tormel::DbComponents] = {"Components, converted from the MINTEQA2 v4 data (minteq.v4.dat)", version};
    result_.headers[tormel::DbEquilibria] = {
        "Equilibria at 25 C, converted from the MINTEQA2 v4 data (minteq.v4.dat)", version};
    result_.headers[tormel::DbLiterature] = {"Literature references of the converted MINTEQA2 v4 data", version};
    result_.headers[tormel::DbModel5] = {"Humic ion-binding Model V, fulvic and humic acid, per gram of carbon", version};
    result_.headers[tormel::DbModel6] = {"Humic ion-binding Model VI, fulvic and humic acid, per gram of carbon",
                                         version};
    result_.headers[tormel::DbModel7] = {"Humic ion-binding Model VII, fulvic and humic acid, per gram of carbon",
                                         version};
}

ConversionResult Converter::Run() {
    report().parserProblems = data_.problems;
    CollectElementWeights();
    IndexDefinitions();
    BuildComponents();
    NameComponents();
    ConvertAqueous();
    ConvertSurface();
    ConvertRedox();
    ConvertPhases();
    ConvertOrganic();
    if (water_.size() != 1) report().notes.push_back({"water", "H2O", 0, "the water equilibrium is missing"});
    Fill();
    report().unresolvedSourceCodes = literature_.UnresolvedCodes();
    return std::move(result_);
}

}  // namespace

ConversionResult ConvertMinteq(const MinteqData& data) {
    Converter converter(data);
    return converter.Run();
}

}  // namespace dbconvert
