// The organic model's part of the problem assembly. Before the sort of the
// system components: the site components of each fraction with their free
// species. After the complexes: the protonated site species and, for every
// metal with an organic equilibrium of the active model, a species at every
// single site, pair and triple of that equilibrium's fraction.
#include <string>
#include <string_view>

#include "calc/assembly_work.h"
#include "calc/organic_model.h"

namespace tormel {

namespace {

bool StartsWith(std::string_view text, std::string_view prefix) { return text.substr(0, prefix.size()) == prefix; }

// The organic component of a fraction under the model: the humic one is the
// one whose name begins with "HA", the fulvic one the other.
int32_t FractionComponent(const ChemicalSystem& chem, int32_t model, int32_t fraction) {
    const TypeRange range = chem.db().organicComponentRange[model - Model5];
    if (range.empty()) return -1;
    for (int32_t c = range.first; c <= range.last; ++c) {
        const Component& comp = chem.db().components[c];
        if (comp.type != ComponentType::Organic || comp.organicModel != model) continue;
        if (StartsWith(comp.name, "HA") == (fraction == kHumic)) return c;
    }
    return -1;
}

// A site component and its free species.
void AddSite(AssemblyWork& w, OrganicFraction& fr, int32_t model, int32_t fraction, int32_t size, int32_t site,
             const std::string& name, double total) {
    ChemicalSystem& chem = w.chem;
    const int32_t j = w.NewSystemComponent();
    SystemComponent& sc = chem.systemComponents[j];
    sc.type = ComponentType::Organic;
    sc.name = name;
    sc.charge = -1;
    sc.givenValue = total;
    sc.balanceKind = InputType::TotalConc;
    sc.componentIndex = fr.organicComponent;
    const int32_t s = w.NewSpecies();
    Species& sp = chem.species[s];
    sp.kind = SiteSpeciesKind(model, fraction, size, false);
    sp.name = AssemblyWork::FreeName(name);
    sp.charge = -1;
    sp.componentTerms = 1;
    sp.deltaZ2 = 1;
    sp.enthalpyStatus = 2;
    sp.literatureRef = -1;
    sp.reactionRow = -1;
    sp.source = -fr.organicComponent;
    w.Coef(s, j) = 1;
    OrganicSite entry;
    entry.component = j;
    entry.freeSpecies = s;
    entry.site = site;
    entry.protonationLogK = SiteProtonationLogK(fr.parameters, site);
    fr.sites.push_back(entry);
}

void AddCombination(OrganicFraction& fr, int32_t size, int32_t number, int32_t level) {
    OrganicCombination comb;
    comb.firstSite = static_cast<int32_t>(fr.sites.size());
    comb.size = size;
    comb.number = number;
    comb.level = level;
    fr.combinations.push_back(comb);
}

void AddSites(AssemblyWork& w, OrganicFraction& fr, int32_t model, int32_t fraction) {
    const std::string& base = w.chem.db().components[fr.organicComponent].name;
    const OrganicParameters& p = fr.parameters;
    const double c = fr.concentration;
    for (int32_t site = 1; site <= 8; ++site) {
        AddCombination(fr, 1, site, 0);
        AddSite(w, fr, model, fraction, 1, site, base + "-" + std::to_string(site), SingleSiteTotal(model, p, c, site));
    }
    const int32_t levels = HasStrengthLevels(model) ? 3 : 1;
    const char* const memberLetters[] = {"a", "b", "c"};
    const auto& pairs = OrganicPairs(model);
    for (int32_t n = 1; n <= static_cast<int32_t>(pairs.size()); ++n)
        for (int32_t level = 0; level < levels; ++level) {
            AddCombination(fr, 2, n, level);
            const double total = CombinationMemberTotal(model, p, c, 2, n, level);
            for (int32_t k = 0; k < 2; ++k) {
                std::string name = base + "-bi-" + std::to_string(n);
                if (levels > 1) name += std::string("-") + kLevelLetters[level] + "-";
                name += memberLetters[k];
                AddSite(w, fr, model, fraction, 2, pairs[n - 1][k], name, total);
            }
        }
    const auto& triples = OrganicTriples(model);
    for (int32_t n = 1; n <= static_cast<int32_t>(triples.size()); ++n)
        for (int32_t level = 0; level < levels; ++level) {
            AddCombination(fr, 3, n, level);
            const double total = CombinationMemberTotal(model, p, c, 3, n, level);
            for (int32_t k = 0; k < 3; ++k) {
                const std::string name = base + "-tri-" + std::to_string(n) + "-" + kLevelLetters[level] + "-" +
                                         memberLetters[k];
                AddSite(w, fr, model, fraction, 3, triples[n - 1][k], name, total);
            }
        }
}

// The protonated species of every site component of a fraction.
void AddProtonatedSpecies(AssemblyWork& w, OrganicFraction& fr, int32_t model, int32_t fraction) {
    ChemicalSystem& chem = w.chem;
    const std::string& hydrogen = chem.db().components[chem.db().hydrogenIndex].name;
    const int32_t literature = chem.db().Organic(model).literatureRef;
    for (const OrganicCombination& comb : fr.combinations)
        for (int32_t k = 0; k < comb.size; ++k) {
            OrganicSite& site = fr.sites[comb.firstSite + k];
            const std::string& siteName = chem.systemComponents[site.component].name;
            const int32_t s = w.NewSpecies();
            Species& sp = chem.species[s];
            sp.kind = SiteSpeciesKind(model, fraction, comb.size, true);
            // single sites (and Model 5's pairs) carry the H+ component's name,
            // the members of Model 6 and 7 combinations a plain "H-"
            const bool plainPrefix = comb.size > 1 && model != Model5;
            sp.name = (plainPrefix ? std::string("H") : hydrogen) + "-" + siteName;
            sp.charge = 0;
            sp.logK = site.protonationLogK;
            sp.logKDatabase = site.protonationLogK;
            sp.enthalpyStatus = 0;
            sp.literatureRef = literature;
            sp.reactionRow = -1;
            sp.source = -fr.organicComponent;
            w.Coef(s, 0) = 1;
            w.Coef(s, site.component) = 1;
            w.ComposeFromRow(s);
            site.protonatedSpecies = s;
        }
}

// The components of an organic equilibrium: the metal (the one that is
// neither H+ nor the organic component) and the H+ coefficient. False when
// the equilibrium does not concern this fraction or a component is missing.
bool EquilibriumTakesPart(const ChemicalSystem& chem, int32_t e, int32_t organicComponent, int32_t& metal,
                          int32_t& hydrogenCoefficient) {
    if (chem.db().Coefficient(organicComponent, e) == 0) return false;
    metal = -1;
    hydrogenCoefficient = 0;
    for (int32_t k = 0; k < chem.db().ComponentCount(); ++k) {
        const int32_t nu = chem.db().Coefficient(k, e);
        if (nu == 0 || k == organicComponent) continue;
        if (k == chem.db().hydrogenIndex) {
            hydrogenCoefficient = nu;
            continue;
        }
        if (!chem.placement[k].inInput) return false;
        metal = k;
    }
    return metal > 0;
}

// The first complex formed from the metal with coefficient 1 and H+ with
// coefficient -1 (its row equals the metal's row minus H+); -1 when none.
int32_t FindHydroxoSpecies(AssemblyWork& w, int32_t metalRowSpecies) {
    const ChemicalSystem& chem = w.chem;
    const TypeRange range = chem.complexSpeciesRange;
    const int32_t systemCount = static_cast<int32_t>(chem.systemComponents.size());
    for (int32_t s = range.first; s <= range.last && s < static_cast<int32_t>(chem.species.size()); ++s) {
        if (chem.species[s].kind != SpeciesKind::ComplexSpecies) continue;
        bool same = true;
        for (int32_t j = 0; j < systemCount && same; ++j) {
            const int32_t expected = w.Coef(metalRowSpecies, j) - (j == 0 ? 1 : 0);
            same = w.Coef(s, j) == expected;
        }
        if (same) return s;
    }
    return -1;
}

void AddMetalBlock(AssemblyWork& w, OrganicFraction& fr, int32_t model, int32_t fraction, int32_t e, int32_t metal,
                   int32_t hydrogenCoefficient) {
    ChemicalSystem& chem = w.chem;
    const Equilibrium& eq = chem.db().equilibria[e];
    const Component& metalComp = chem.db().components[metal];
    OrganicMetalBlock block;
    block.equilibrium = e;
    block.hydrolysed = hydrogenCoefficient != 0;
    block.metalCharge = metalComp.charge;
    // the species that holds the metal's row: its free species, or the
    // species that stands for it
    int32_t metalRow;
    if (chem.placement[metal].systemIndex > 0) {
        block.metalComponent = chem.placement[metal].systemIndex;
        metalRow = -1;
    } else {
        block.standingSpecies = -chem.placement[metal].systemIndex;
        metalRow = block.standingSpecies;
    }
    if (block.hydrolysed) {
        // the hydroxo complex, searched against a scratch row of the metal
        const int32_t scratch = w.NewSpecies();
        if (metalRow >= 0)
            w.AddRow(scratch, metalRow, 1);
        else
            w.Coef(scratch, block.metalComponent) = 1;
        block.hydroxoSpecies = FindHydroxoSpecies(w, scratch);
        chem.species.pop_back();
        w.dense.pop_back();
        if (block.hydroxoSpecies < 0) return;  // no hydroxo complex whose activity the block could use
    }
    block.firstSpecies = static_cast<int32_t>(chem.species.size());
    const OrganicParameters& p = fr.parameters;
    for (const OrganicCombination& comb : fr.combinations) {
        int32_t sites[3] = {0, 0, 0};
        for (int32_t k = 0; k < comb.size; ++k) sites[k] = fr.sites[comb.firstSite + k].site;
        const int32_t s = w.NewSpecies();
        Species& sp = chem.species[s];
        sp.kind = MetalSpeciesKind(model, fraction, comb.size, block.hydrolysed);
        std::string name = eq.name;
        if (comb.size == 1) {
            name += "-mono-" + std::to_string(comb.number);
        } else {
            name += (comb.size == 2 ? "-bi-" : "-tri-") + std::to_string(comb.number);
            if (HasStrengthLevels(model)) name += std::string("-") + kLevelLetters[comb.level];
        }
        sp.name = name;
        sp.charge = eq.charge - (comb.size - 1);
        sp.logK = comb.size == 1 ? SingleSiteMetalLogK(model, fraction, p, eq, sites[0])
                                 : CombinationMetalLogK(model, fraction, p, eq, sites, comb.size, comb.level);
        sp.logKDatabase = eq.logK;
        sp.enthalpyStatus = eq.hasEnthalpy ? 1 : 0;
        sp.enthalpy = eq.enthalpy;
        sp.literatureRef = eq.literatureRef;
        sp.reactionRow = -1;
        sp.source = e;
        sp.organicFields = {block.hydroxoSpecies, block.standingSpecies};
        if (metalRow >= 0)
            w.AddRow(s, metalRow, 1);
        else
            w.Coef(s, block.metalComponent) += 1;
        w.Coef(s, 0) += hydrogenCoefficient;
        for (int32_t k = 0; k < comb.size; ++k) w.Coef(s, fr.sites[comb.firstSite + k].component) += 1;
        w.ComposeFromRow(s);
    }
    block.speciesCount = static_cast<int32_t>(chem.species.size()) - block.firstSpecies;
    fr.metals.push_back(block);
}

}  // namespace

void PrepareOrganicModel(AssemblyWork& w) {
    ChemicalSystem& chem = w.chem;
    const InputProblem& input = w.ctx.input;
    OrganicState& org = w.ctx.state.organic;
    org.active = false;
    org.model = input.organicModel;
    org.fractions = {};
    if (org.model < Model5 || org.model > Model7) return;
    const double fulvic = input.fulvicFraction;
    const std::array<double, kOrganicFractions> concentrations = {input.docConcentration * fulvic / 1000,
                                                                  input.docConcentration * (1 - fulvic) / 1000};
    for (int32_t fraction = 0; fraction < kOrganicFractions; ++fraction) {
        OrganicFraction& fr = org.fractions[fraction];
        fr.concentration = concentrations[fraction];
        fr.organicComponent = FractionComponent(chem, org.model, fraction);
        if (!(fr.concentration > 0) || fr.organicComponent < 0) continue;
        fr.present = true;
        fr.kindBase = OrganicKindBase(org.model, fraction);
        fr.parameters = ParametersOf(chem.db().Organic(org.model), org.model, fraction);
        // the organic component itself stays out of the system: its sites stand for it
        AddSites(w, fr, org.model, fraction);
        org.active = true;
    }
}

void AddOrganicSpecies(AssemblyWork& w) {
    ChemicalSystem& chem = w.chem;
    OrganicState& org = w.ctx.state.organic;
    if (!org.active) return;
    const TypeRange range = chem.db().organicEquilibriumRange[org.model - Model5];
    for (int32_t fraction = 0; fraction < kOrganicFractions; ++fraction) {
        OrganicFraction& fr = org.fractions[fraction];
        if (!fr.present) continue;
        AddProtonatedSpecies(w, fr, org.model, fraction);
        fr.firstMetalSpecies = static_cast<int32_t>(chem.species.size());
        if (!range.empty())
            for (int32_t e = range.first; e <= range.last; ++e) {
                const Equilibrium& eq = chem.db().equilibria[e];
                if (eq.type != EquilibriumType::Organic || eq.organicModel != org.model) continue;
                int32_t metal = -1, hydrogenCoefficient = 0;
                if (!EquilibriumTakesPart(chem, e, fr.organicComponent, metal, hydrogenCoefficient)) continue;
                AddMetalBlock(w, fr, org.model, fraction, e, metal, hydrogenCoefficient);
            }
        fr.metalSpeciesCount = static_cast<int32_t>(chem.species.size()) - fr.firstMetalSpecies;
    }
}

}  // namespace tormel
