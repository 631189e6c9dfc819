#include "output/build_results.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "core/chemical_types.h"
#include "core/equilibrium_index.h"
#include "core/renew.h"
#include "output/build_other_info.h"
#include "output/charge_suffix.h"
#include "output/saturation_results.h"

namespace tormel {

namespace {

bool Reported(ComponentType type) {
    return type == ComponentType::Cation || type == ComponentType::Electron || type == ComponentType::Ligand ||
           type == ComponentType::Ads || type == ComponentType::Gas;
}

bool IsInorganic(SpeciesKind kind) { return kind >= SpeciesKind::FreeComponent && kind <= SpeciesKind::SolidSpecies; }

int32_t Category(SpeciesKind kind) {
    if (IsDissolvedKind(kind)) return CategoryDissolved;
    if (kind == SpeciesKind::AdsorbedSpecies) return CategoryAdsorbed;
    if (IsSolidKind(kind)) return CategorySolid;
    return CategoryOrganic;
}

const CompositionTerm& Term(const ChemicalSystem& chem, int32_t s, int32_t e) {
    return chem.composition[static_cast<size_t>(Position(s, e, static_cast<int32_t>(chem.species.size())))];
}

// `name` followed by " / " and the name of every member reached along the
// redoxNext links from database component `start`.
std::string RedoxGroupName(const ChemicalSystem& chem, const std::string& name, int32_t start) {
    std::string group = name;
    if (start < 0 || start >= chem.db().ComponentCount()) return group;
    int32_t member = chem.db().components[start].redoxNext;
    for (int32_t steps = 0; member > 0 && member < chem.db().ComponentCount() && steps < chem.db().ComponentCount();
         ++steps) {
        group += " / " + chem.db().components[member].name;
        member = chem.db().components[member].redoxNext;
    }
    return group;
}

// Names of a gas component: the ligand its gas ligand species stands for.
void FillGasNames(const CalcContext& calc, int32_t c, ComponentResult& result) {
    const ChemicalSystem& chem = calc.chem;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (int32_t s = 0; s < speciesCount; ++s) {
        const Species& sp = chem.species[s];
        if (sp.kind != SpeciesKind::GasLigand) continue;
        bool holds = false;
        for (int32_t e = 0; e < sp.componentTerms && !holds; ++e) holds = Term(chem, s, e).systemComponent == c;
        if (!holds) continue;
        const int32_t k = -sp.source;
        if (k < 0 || k >= chem.db().ComponentCount()) return;
        const Component& ligand = chem.db().components[k];
        result.gasText = chem.systemComponents[c].name + " / " + ligand.name + ChargeSuffix(ligand.charge);
        const bool grouped = calc.input.redox && (ligand.redoxNext != 0 || ligand.redoxPrev != 0);
        result.displayName = grouped ? RedoxGroupName(chem, ligand.name, k) : ligand.name;
        return;
    }
}

// `result`: a record of an earlier set (or a new one), filled in place.
void FillComponentResult(const CalcContext& calc, int32_t c, ComponentResult& result) {
    const ChemicalSystem& chem = calc.chem;
    const SystemComponent& sc = chem.systemComponents[c];
    RenewKeeping(result, &ComponentResult::name, &ComponentResult::displayName, &ComponentResult::gasText,
          &ComponentResult::speciesList);
    if (!Reported(sc.type)) return;
    result.kind = sc.type;
    result.name = sc.name;
    if (sc.type == ComponentType::Gas) {
        FillGasNames(calc, c, result);
    } else {
        if (calc.input.redox)
            result.displayName = RedoxGroupName(chem, sc.name, sc.componentIndex);
        else
            result.displayName = sc.name;
    }
    result.amounts[AmountDissolved] = sc.bulkDissolved;
    result.amounts[AmountAdsorbed] = sc.bulkAdsorbed;
    result.amounts[AmountSolid] = sc.bulkSolid;
    result.amounts[AmountOrganic] = sc.boundOrganic;
    const bool calculated = sc.type == ComponentType::Gas || c == 0 || sc.balanceKind == InputType::FreeConc ||
                            sc.balanceKind == InputType::FreeAct;
    result.amounts[AmountTotal] = calculated ? sc.calculatedTotal : sc.balanceTotal;
    for (int32_t k = 0; k < 6; ++k) result.siteAmounts[k] = sc.organicClassSums[k];
    result.siteAmounts[SiteDiffuseFulvic] = sc.ddlSum[0];
    result.siteAmounts[SiteDiffuseHumic] = sc.ddlSum[1];
    result.molarMass = sc.molarMass;
    result.percentagesAllowed =
        c != 0 || (calc.state.protonBalanceMode && sc.balanceTotal != calc.state.hydroxideReference);
}

// 10^(z^2 log gamma1), the activity coefficient of charge z, formed once per
// charge of up to kCached units.
class ActivityCoefficients {
public:
    explicit ActivityCoefficients(double logGamma1) : logGamma1_(logGamma1) {}

    double Of(int32_t charge) {
        const int32_t z = charge < 0 ? -charge : charge;
        if (z >= kCached) return std::pow(10.0, charge * charge * logGamma1_);
        if (!formed_[z]) {
            coefficient_[z] = std::pow(10.0, charge * charge * logGamma1_);
            formed_[z] = true;
        }
        return coefficient_[z];
    }

private:
    static constexpr int32_t kCached = 8;
    double logGamma1_;
    std::array<double, kCached> coefficient_{};
    std::array<bool, kCached> formed_{};
};

// `result`: a record of an earlier set (or a new one), filled in place.
void FillSpeciesResult(const CalcContext& calc, int32_t s, ActivityCoefficients& coefficients,
                       SpeciesResult& result) {
    const ChemicalSystem& chem = calc.chem;
    const Species& sp = chem.species[s];
    RenewKeeping(result, &SpeciesResult::name);
    result.kind = sp.kind;
    result.hasConstants = sp.kind >= SpeciesKind::FreeHydroxide && sp.kind <= SpeciesKind::SolidSpecies;
    result.category = Category(sp.kind);
    result.name = sp.name;
    if (IsDissolvedKind(sp.kind)) AppendChargeSuffix(result.name, sp.charge);
    result.charge = IsDissolvedKind(sp.kind) || sp.kind == SpeciesKind::AdsorbedSpecies ? sp.charge : 0;
    result.concentration = sp.concentration;
    result.hasActivity = IsDissolvedKind(sp.kind);
    if (result.hasActivity)
        result.activity = sp.concentration * coefficients.Of(sp.charge);
    if (result.hasConstants) {
        result.intrinsicLogK = sp.logKDatabase;
        if (sp.kind <= SpeciesKind::RedoxPartner) {
            result.conditionalLogK = -sp.workingLogK;
        } else if (sp.logKDatabase == sp.logK) {
            result.conditionalLogK = sp.workingLogK;
        } else {
            result.conditionalLogK =
                sp.logKDatabase + calc.state.logGamma1 * sp.deltaZ2Stored + sp.tempCorrectionDatabase;
        }
    }
    result.literatureIndex = sp.kind == SpeciesKind::FreeComponent ? -1 : sp.literatureRef;
    result.literature = LiteratureText(chem, sp.literatureRef);
    result.reactionDefinition = result.hasConstants ? sp.reactionRow : -1;
    if (sp.kind == SpeciesKind::SolidSpecies) {
        double value = sp.workingLogK;
        for (int32_t e = 0; e < sp.componentTerms; ++e) {
            const CompositionTerm& term = Term(chem, s, e);
            value += term.coefficient * std::log10(chem.systemComponents[term.systemComponent].freeConcentration);
        }
        result.saturationValue = value;
    }
}

// One definition per reaction row; the species that own the rows, in
// species order, give them their constant, reference and note.
// `laterRoom` more are reserved for the definitions appended after these.
void AddReactionDefinitions(const ChemicalSystem& chem, size_t laterRoom, DefinitionFiler& definitions) {
    const int32_t width = chem.db().maxComponentsPerEquilibrium;
    definitions.Reserve(static_cast<size_t>(std::max(chem.reactionRowCount, 0)) + laterRoom);
    for (int32_t r = 0; r < chem.reactionRowCount; ++r) {
        ReactionDefinition& definition = definitions.Next();
        // the new definition's entries are empty: only the filled ones are copied
        const auto copy = [](const std::vector<ReactionEntry>& from, size_t at, ReactionEntry& to) {
            if (at >= from.size()) return;
            const ReactionEntry& entry = from[at];
            if (entry.coefficient != 0 || entry.charge != 0 || !entry.name.empty() || !entry.phase.empty()) to = entry;
        };
        for (int32_t j = 0; j < width && j < kMaxReactionEntries; ++j) {
            const size_t at = static_cast<size_t>(Position(j, r, width));
            copy(chem.reactionReactants, at, definition.reactants[j]);
            copy(chem.reactionProducts, at, definition.products[j]);
        }
    }
    size_t n = 0;
    for (const Species& sp : chem.species) {
        if (sp.reactionRow < 0) continue;
        if (n >= definitions.Count()) break;
        ReactionDefinition& definition = definitions[n++];
        definition.logK = sp.logKDatabase;
        definition.literature = LiteratureText(chem, sp.literatureRef);
        definition.note = sp.addInfo.value_or(std::string());
    }
}

// "s=n;" for every species (inorganic kinds) holding a component that is not
// organic matter.
void AddSpeciesLists(const ChemicalSystem& chem, SetRecords& records) {
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (int32_t s = 0; s < speciesCount; ++s) {
        const Species& sp = chem.species[s];
        if (!IsInorganic(sp.kind)) continue;
        for (int32_t e = 0; e < sp.componentTerms; ++e) {
            const CompositionTerm& term = Term(chem, s, e);
            if (term.systemComponent < 0 || static_cast<size_t>(term.systemComponent) >= records.components.size())
                continue;
            if (chem.systemComponents[term.systemComponent].type == ComponentType::Organic) continue;
            char entry[32];
            char* end = std::to_chars(entry, entry + 12, s + 1).ptr;
            *end++ = '=';
            end = std::to_chars(end, entry + 30, term.coefficient).ptr;
            *end++ = ';';
            records.components[term.systemComponent].speciesList.append(entry, end);
        }
    }
}

void AddMsaRecords(CalcContext& calc, SetRecords& records, MsaSummary& summary) {
    records.salts = calc.state.saltRecords;
    for (Species& sp : calc.chem.species) {
        if (sp.ionSize <= 0) continue;
        sp.resultRow = static_cast<int32_t>(records.msaIons.size());
        records.msaIons.push_back(
            MsaIonResult{sp.name, sp.charge, sp.lnGammaHS, sp.lnGammaEl, sp.lnGamma, sp.gamma, sp.ionSize});
    }
    const SolverState& st = calc.state;
    summary.delta = st.msaDelta;
    summary.hardSphere = {st.hardSphereA1, st.hardSphereA2, st.hardSphereA3};
    summary.zeta = {st.zeta[0], st.zeta[1], st.zeta[2], st.zeta[3]};
    summary.screening = st.msaGamma;
    summary.pPrime = st.msaPPrime;
    summary.omega = st.msaOmega;
}

// `storage`: an earlier input copy whose storage the snapshot's copy reuses.
InputSnapshot MakeSnapshot(const CalcContext& calc, InputProblem&& storage) {
    InputSnapshot snapshot;
    snapshot.input = std::move(storage);
    snapshot.input = calc.input;
    snapshot.protonBalance = calc.state.protonBalanceMode;
    snapshot.ionicStrength = calc.state.ionicStrength;
    snapshot.ionicStrengthFromComposition = calc.state.ionicStrengthFromComposition;
    snapshot.adsorptionLinked = false;
    snapshot.bulkFraction = calc.state.bulkFraction;
    for (int32_t f = 0; f < kOrganicFractions; ++f) {
        OrganicFractionValues& values = snapshot.fractions[f];
        values.charge = calc.state.organic.carry[f].charge;
        values.enrichment = calc.state.organic.carry[f].enrichment;
        const OrganicFraction& fraction = calc.state.organic.fractions[f];
        values.volumeFraction = fraction.present ? fraction.volume : 0;
        values.concentration = fraction.present ? fraction.concentration : 0;
    }
    return snapshot;
}

}  // namespace

void BuildResults(CalcContext& calc, ResultStore& store, ResultContext& context) {
    ChemicalSystem& chem = calc.chem;
    const SolverState& st = calc.state;
    // the previous set's record arrays and input copy lend their storage to
    // the new set; its component and species records and reaction definitions
    // are overwritten in place
    InputProblem previousInput = store.sets.empty() ? InputProblem{} : std::move(store.sets[0].snapshot.input);
    std::vector<ComponentResult> previousComponents = std::move(store.records.components);
    std::vector<SpeciesResult> previousSpecies = std::move(store.records.species);
    std::vector<ReactionDefinition> previousReactions = std::move(store.records.reactions);
    SetRecords records;
    ResetResultStore(store, records);
    ResultSet& set = store.sets[0];
    ResultHeader& header = set.header;

    const int32_t componentCount = static_cast<int32_t>(chem.systemComponents.size());
    records.components = std::move(previousComponents);
    records.components.resize(static_cast<size_t>(componentCount));
    records.componentInfos.reserve(static_cast<size_t>(componentCount));
    for (int32_t c = 0; c < componentCount; ++c) {
        FillComponentResult(calc, c, records.components[c]);
        if (records.components[c].Reported()) ++header.reportedComponentCount;
    }

    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    records.species = std::move(previousSpecies);
    records.species.resize(static_cast<size_t>(speciesCount));
    bool organicSeen = false;
    ActivityCoefficients coefficients(st.logGamma1);
    for (int32_t s = 0; s < speciesCount; ++s) {
        FillSpeciesResult(calc, s, coefficients, records.species[s]);
        if (!organicSeen && !IsInorganic(chem.species[s].kind)) {
            organicSeen = true;
            header.firstOrganicSpecies = s;
            const int32_t model = calc.input.organicModel;
            if (model >= Model5 && model <= Model7)
                header.organicReference = LiteratureText(chem, chem.db().Organic(model).literatureRef);
        }
    }

    // the solids tested for saturation while precipitation is off
    const std::vector<int32_t> solidChecks =
        calc.input.precipitation ? std::vector<int32_t>{} : EquilibriaInInput(chem, EquilibriumType::Solid);
    records.reactions = std::move(previousReactions);
    DefinitionFiler definitions(records.reactions);
    AddReactionDefinitions(chem, CheckDefinitionRoom(chem, solidChecks.size()), definitions);
    AddSpeciesLists(chem, records);

    header.iterationCount = st.iterationCount;
    header.fallbackIteration = st.fallback.active ? st.fallback.startIteration : 0;
    header.logGamma1 = st.logGamma1;
    header.cationCharge = st.cationCharge;
    header.anionCharge = st.anionCharge;

    if (calc.input.precipitation) {
        const TypeRange solids = chem.solidSpeciesRange;
        header.firstPrecipitatedSolid = solids.empty() ? 0 : solids.first;
        header.lastPrecipitatedSolid = solids.empty() ? -1 : solids.last;
    } else {
        AddSolidChecks(calc, solidChecks, SharedText(LanguageText(context.language, "EqDef", "AddInfoSolid")),
                       definitions, records);
    }
    AddGasResults(calc, definitions, records);
    definitions.Finish();

    for (const SystemComponent& sc : chem.systemComponents)
        records.componentInfos.push_back(ComponentInfo{sc.name, sc.type, sc.givenValue, sc.molarMass, sc.balanceKind});

    if (calc.input.ionicStrengthModel != kDaviesModel) AddMsaRecords(calc, records, set.msa);
    set.snapshot = MakeSnapshot(calc, std::move(previousInput));

    StoreSetRecords(store, 0, std::move(records));

    BuildOtherInfo(store, 0, context, &calc.chem.db());
}

}  // namespace tormel
