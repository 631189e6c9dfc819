#include "result_test_support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <span>

#include "calc/reference_case.h"
#include "calc/real_database.h"
#include "core/language.h"
#include "input/input_file_writer.h"
#include "output/output_file.h"

namespace tormel::test {

namespace {

constexpr double kFullPrecision = 1e-15;   // "%.16G"
constexpr double kTenDigits = 1e-9;        // "%9.9E"

bool Near(double a, double b, double relative) {
    if (a == b) return true;
    if (std::isnan(a) && std::isnan(b)) return true;
    return std::fabs(a - b) <= relative * std::max(std::fabs(a), std::fabs(b));
}

class SetComparer {
public:
    // `a` as a quoted field of an output file holds it
    void Text(const std::string& where, const std::string& a, const std::string& b) {
        EXPECT_EQ(QuotedFieldText(a), b) << where;
    }
    // whole-line texts are kept as they are
    void Line(const std::string& where, const std::string& a, const std::string& b) { EXPECT_EQ(a, b) << where; }
    void Int(const std::string& where, int64_t a, int64_t b) { EXPECT_EQ(a, b) << where; }
    void Number(const std::string& where, double a, double b, double relative = kFullPrecision) {
        EXPECT_TRUE(Near(a, b, relative)) << where << ": " << a << " vs " << b;
    }
};

std::string At(const char* kind, size_t i, const char* field) {
    return std::string(kind) + " " + std::to_string(i) + " " + field;
}

void CompareEntries(SetComparer& c, const std::string& where, const std::array<ReactionEntry, kMaxReactionEntries>& a,
                    const std::array<ReactionEntry, kMaxReactionEntries>& b) {
    for (size_t j = 0; j < a.size(); ++j) {
        const std::string w = where + " entry " + std::to_string(j);
        c.Int(w + " coefficient", a[j].coefficient, b[j].coefficient);
        c.Text(w + " name", a[j].name, b[j].name);
        c.Int(w + " charge", a[j].charge, b[j].charge);
        c.Text(w + " phase", a[j].phase, b[j].phase);
    }
}

// Two lists of records of one kind hold as many records; `fields` compares
// each pair (index, expected, actual).
template <class Record, class Fields>
void CompareEach(const char* kind, std::span<const Record> expected, std::span<const Record> actual, Fields fields) {
    ASSERT_EQ(expected.size(), actual.size()) << kind << " count";
    for (size_t i = 0; i < expected.size(); ++i) fields(i, expected[i], actual[i]);
}

}  // namespace

std::string EnglishLanguageFile() { return std::string(TORMEL_SOURCE_DIR) + "/data/Languages/0default.lang"; }

std::string ReferenceCaseFile(std::string_view id) {
    return std::string(TORMEL_TEST_DATA) + "/reference/" + std::string(id) + ".json";
}

void PrepareWorkspace(Workspace& ws, const TempFolder& folder, RecordingUi& ui) {
    ws.folders.workingFolder = folder.Path();
    ws.folders.inputFolder = folder.File("Input/");
    ws.folders.outputFolder = folder.File("Output/");
    ws.folders.dataFolder = folder.File("Data/");
    ws.folders.programFolder = folder.Path();
    ws.folders.settingsFile = folder.File("TORMEL64.INI");
    ws.folders.languageFile = EnglishLanguageFile();
    CreateWorkingFolders(ws.folders);
    ws.settings = Settings(ws.folders.settingsFile);
    ws.language = Language(ws.folders.languageFile);
    if (const ChemicalSystem* database = RealDatabase()) ws.chem = *database;
    ws.ui = &ui.services;
}

bool CalculateReferenceCase(Workspace& ws, const std::string& file, int32_t ionicStrengthModel) {
    const auto reference = ReadJsonFile(file);
    const ChemicalSystem* database = RealDatabase();
    if (!reference || !database) return false;
    if (!PrepareReferenceCase(*reference, *database, 1.0001, ws.chem, ws.input)) return false;
    ws.input.ionicStrengthModel = ionicStrengthModel;
    ws.input.description = reference->TextOr("description", "");
    ws.solver = SolverState{};
    const CalculationOutcome outcome = CalculateInput(ws, false);
    return outcome.assembled && outcome.solve.converged;
}

void ExpectSetsEqual(const ResultStore& expectedStore, int32_t expectedSet, const ResultStore& actualStore,
                     int32_t actualSet) {
    SetComparer c;
    const ResultSet& e = expectedStore.sets[expectedSet];
    const ResultSet& a = actualStore.sets[actualSet];
    const SetView ev = ViewSet(expectedStore, expectedSet);
    const SetView av = ViewSet(actualStore, actualSet);
    const InputProblem& ei = e.snapshot.input;
    const InputProblem& ai = a.snapshot.input;

    // header
    c.Int("component count", e.header.componentCount, a.header.componentCount);
    c.Int("reported component count", e.header.reportedComponentCount, a.header.reportedComponentCount);
    c.Line("organic reference", e.header.organicReference, a.header.organicReference);
    c.Int("species count", e.header.speciesCount, a.header.speciesCount);
    c.Int("gas-result count", e.header.gasResultCount, a.header.gasResultCount);
    c.Int("solid-check count", e.header.solidCheckCount, a.header.solidCheckCount);
    c.Int("salt count", e.header.saltCount, a.header.saltCount);
    c.Int("MSA-ion count", e.header.msaIonCount, a.header.msaIonCount);
    c.Int("reaction count", e.header.reactionDefinitionCount, a.header.reactionDefinitionCount);
    c.Int("iterations", e.header.iterationCount, a.header.iterationCount);
    c.Int("fallback iteration", e.header.fallbackIteration, a.header.fallbackIteration);
    c.Number("cation charge", e.header.cationCharge, a.header.cationCharge);
    c.Number("anion charge", e.header.anionCharge, a.header.anionCharge);
    if (ei.precipitation) {
        c.Int("first solid", e.header.firstPrecipitatedSolid, a.header.firstPrecipitatedSolid);
        c.Int("last solid", e.header.lastPrecipitatedSolid, a.header.lastPrecipitatedSolid);
    }

    // snapshot
    // the description reads back without blanks at its ends
    const size_t first = ei.description.find_first_not_of(' ');
    const size_t last = ei.description.find_last_not_of(' ');
    c.Line("description", first == std::string::npos ? "" : ei.description.substr(first, last - first + 1),
           ai.description);
    c.Int("adsorption", ei.adsorption, ai.adsorption);
    c.Int("redox", ei.redox, ai.redox);
    c.Int("precipitation", ei.precipitation, ai.precipitation);
    c.Int("organic", ei.organicComplexation, ai.organicComplexation);
    c.Int("proton balance", e.snapshot.protonBalance, a.snapshot.protonBalance);
    c.Int("ionic strength fixed", ei.ionicStrengthFixed, ai.ionicStrengthFixed);
    c.Number("ionic strength", e.snapshot.ReportedIonicStrength(), a.snapshot.ReportedIonicStrength());
    c.Number("bulk fraction", e.snapshot.bulkFraction, a.snapshot.bulkFraction);
    c.Int("model", ei.ionicStrengthModel, ai.ionicStrengthModel);
    c.Number("criterion", ei.convergenceCriterion, ai.convergenceCriterion);
    c.Number("temperature", ei.temperature, ai.temperature);
    c.Int("temperature correction", ei.temperatureCorrection, ai.temperatureCorrection);
    c.Int("force neutral", ei.forceNeutral, ai.forceNeutral);
    c.Int("adsorption linked", e.snapshot.adsorptionLinked, a.snapshot.adsorptionLinked);
    if (ei.forceNeutral) {
        c.Int("neutralise cation", ei.neutraliseCation, ai.neutraliseCation);
        c.Int("neutralise anion", ei.neutraliseAnion, ai.neutraliseAnion);
    }
    if (ei.ionicStrengthFixed) c.Number("fixed I", ei.fixedIonicStrength, ai.fixedIonicStrength);
    if (ei.organicComplexation) {
        c.Int("organic model", ei.organicModel, ai.organicModel);
        c.Number("DOC", ei.docConcentration, ai.docConcentration);
        c.Number("fulvic fraction", ei.fulvicFraction, ai.fulvicFraction);
        for (size_t f = 0; f < 2; ++f) {
            const OrganicFractionValues& x = e.snapshot.fractions[f];
            const OrganicFractionValues& y = a.snapshot.fractions[f];
            c.Number(At("fraction", f, "Z"), x.charge, y.charge);
            c.Number(At("fraction", f, "R"), x.enrichment, y.enrichment);
            c.Number(At("fraction", f, "V"), x.volumeFraction, y.volumeFraction);
            c.Number(At("fraction", f, "C"), x.concentration, y.concentration);
        }
    }

    for (size_t b = 0; b < e.otherInfo.size(); ++b) {
        c.Line(At("block", b, "title"), e.otherInfo[b].title, a.otherInfo[b].title);
        c.Line(At("block", b, "long text"), e.otherInfo[b].longText, a.otherInfo[b].longText);
        c.Int(At("block", b, "rows"), e.otherInfo[b].rowCount, a.otherInfo[b].rowCount);
        c.Int(At("block", b, "columns"), e.otherInfo[b].columnCount, a.otherInfo[b].columnCount);
    }

    CompareEach("component", ev.components, av.components, [&](size_t i, const auto& x, const auto& y) {
        c.Int(At("component", i, "kind"), CodeOf(x.kind), CodeOf(y.kind));
        c.Text(At("component", i, "name"), x.name, y.name);
        c.Text(At("component", i, "display name"), x.displayName, y.displayName);
        c.Text(At("component", i, "gas text"), x.gasText, y.gasText);
        c.Text(At("component", i, "species list"), x.speciesList, y.speciesList);
        for (size_t r = 0; r < x.amounts.size(); ++r) c.Number(At("component", i, "amount"), x.amounts[r], y.amounts[r]);
        if (ei.organicComplexation)
            for (size_t r = 0; r < x.siteAmounts.size(); ++r)
                c.Number(At("component", i, "site amount"), x.siteAmounts[r], y.siteAmounts[r]);
        c.Number(At("component", i, "molar mass"), x.molarMass, y.molarMass, kTenDigits);
        c.Int(At("component", i, "percentages"), x.percentagesAllowed, y.percentagesAllowed);
        const ComponentInfo& p = ev.componentInfos[i];
        const ComponentInfo& q = av.componentInfos[i];
        c.Text(At("info", i, "name"), p.name, q.name);
        c.Int(At("info", i, "kind"), CodeOf(p.kind), CodeOf(q.kind));
        c.Number(At("info", i, "input value"), p.inputValue, q.inputValue, kTenDigits);
        c.Number(At("info", i, "molar mass"), p.molarMass, q.molarMass, kTenDigits);
        c.Int(At("info", i, "input type"), CodeOf(p.inputType), CodeOf(q.inputType));
    });

    CompareEach("species", ev.species, av.species, [&](size_t i, const auto& x, const auto& y) {
        c.Int(At("species", i, "kind"), CodeOf(x.kind), CodeOf(y.kind));
        c.Text(At("species", i, "name"), x.name, y.name);
        c.Int(At("species", i, "category"), x.category, y.category);
        c.Number(At("species", i, "concentration"), x.concentration, y.concentration);
        c.Int(At("species", i, "has activity"), x.hasActivity, y.hasActivity);
        if (x.hasActivity) c.Number(At("species", i, "activity"), x.activity, y.activity, kTenDigits);
        c.Int(At("species", i, "has constants"), x.hasConstants, y.hasConstants);
        if (x.hasConstants) {
            c.Number(At("species", i, "intrinsic log K"), x.intrinsicLogK, y.intrinsicLogK, kTenDigits);
            c.Number(At("species", i, "conditional log K"), x.conditionalLogK, y.conditionalLogK, kTenDigits);
        }
        c.Text(At("species", i, "literature"), x.literatureIndex >= 0 ? x.literature : "", y.literature);
        c.Int(At("species", i, "reaction definition"), x.reactionDefinition, y.reactionDefinition);
        c.Number(At("species", i, "saturation"), x.saturationValue, y.saturationValue);
    });

    CompareEach("reaction", ev.reactions, av.reactions, [&](size_t i, const auto& x, const auto& y) {
        CompareEntries(c, At("reaction", i, "reactant"), x.reactants, y.reactants);
        CompareEntries(c, At("reaction", i, "product"), x.products, y.products);
        c.Number(At("reaction", i, "log K"), x.logK, y.logK);
        c.Text(At("reaction", i, "literature"), x.literature, y.literature);
        c.Text(At("reaction", i, "note"), x.note, y.note);
    });

    CompareEach("solid", ev.solidChecks, av.solidChecks, [&](size_t i, const auto& x, const auto& y) {
        c.Text(At("solid", i, "name"), x.name, y.name);
        c.Number(At("solid", i, "SI"), x.saturationIndex, y.saturationIndex);
        c.Number(At("solid", i, "log K"), x.logK, y.logK);
        c.Number(At("solid", i, "conditional log K"), x.conditionalLogK, y.conditionalLogK);
        c.Text(At("solid", i, "literature"), x.literature, y.literature);
        c.Int(At("solid", i, "reaction definition"), x.reactionDefinition, y.reactionDefinition);
    });

    CompareEach("gas", ev.gases, av.gases, [&](size_t i, const auto& x, const auto& y) {
        c.Text(At("gas", i, "name"), x.name, y.name);
        c.Number(At("gas", i, "pressure"), x.partialPressure, y.partialPressure);
        c.Number(At("gas", i, "ligand"), x.ligandConcentration, y.ligandConcentration);
        c.Number(At("gas", i, "log K"), x.logK, y.logK);
        c.Number(At("gas", i, "conditional log K"), x.conditionalLogK, y.conditionalLogK);
        c.Text(At("gas", i, "literature"), x.literature, y.literature);
        c.Int(At("gas", i, "reaction definition"), x.reactionDefinition, y.reactionDefinition);
    });

    CompareEach("salt", ev.salts, av.salts, [&](size_t i, const auto& x, const auto& y) {
        c.Text(At("salt", i, "formula"), x.formula, y.formula);
        c.Int(At("salt", i, "cation"), x.cation, y.cation);
        c.Int(At("salt", i, "ligand"), x.ligand, y.ligand);
        c.Number(At("salt", i, "mean"), x.meanActivityCoefficient, y.meanActivityCoefficient);
    });
    CompareEach("ion", ev.msaIons, av.msaIons, [&](size_t i, const auto& x, const auto& y) {
        c.Text(At("ion", i, "name"), x.name, y.name);
        c.Int(At("ion", i, "charge"), x.charge, y.charge);
        c.Number(At("ion", i, "ln gamma HS"), x.lnGammaHardSphere, y.lnGammaHardSphere);
        c.Number(At("ion", i, "ln gamma el"), x.lnGammaElectrostatic, y.lnGammaElectrostatic);
        c.Number(At("ion", i, "ln gamma"), x.lnGamma, y.lnGamma);
        c.Number(At("ion", i, "gamma"), x.gamma, y.gamma);
        c.Number(At("ion", i, "ion size"), x.ionSize, y.ionSize);
    });
    if (ei.ionicStrengthModel != 1) {
        c.Number("MSA delta", e.msa.delta, a.msa.delta);
        for (size_t k = 0; k < 3; ++k) c.Number(At("MSA", k, "a"), e.msa.hardSphere[k], a.msa.hardSphere[k]);
        for (size_t k = 0; k < 4; ++k) c.Number(At("MSA", k, "zeta"), e.msa.zeta[k], a.msa.zeta[k]);
        c.Number("MSA Gamma", e.msa.screening, a.msa.screening);
        c.Number("MSA P'", e.msa.pPrime, a.msa.pPrime);
        c.Number("MSA Omega", e.msa.omega, a.msa.omega);
    }
}

ComponentResult MakeComponent(ComponentType kind, const std::string& name, double total, double molarMass,
                              const std::string& speciesList) {
    ComponentResult c;
    c.kind = kind;
    c.name = name;
    c.displayName = name;
    c.amounts[AmountDissolved] = total;
    c.amounts[AmountTotal] = total;
    c.molarMass = molarMass;
    c.percentagesAllowed = true;
    c.speciesList = speciesList;
    return c;
}

SpeciesResult MakeSpecies(SpeciesKind kind, const std::string& name, double concentration) {
    SpeciesResult s;
    s.kind = kind;
    s.name = name;
    s.concentration = concentration;
    s.category = kind == SpeciesKind::AdsorbedSpecies                                          ? CategoryAdsorbed
                 : kind == SpeciesKind::SolidSpecies || kind == SpeciesKind::RedoxPartnerSolid ? CategorySolid
                                                                                               : CategoryDissolved;
    s.hasActivity = s.category == CategoryDissolved;
    s.activity = concentration;
    s.hasConstants = kind >= SpeciesKind::FreeHydroxide && kind <= SpeciesKind::SolidSpecies;
    s.literatureIndex = kind == SpeciesKind::FreeComponent ? -1 : 0;
    return s;
}

}  // namespace tormel::test

namespace tormel::test {

bool WriteReferenceInput(const std::string& file, const std::string& path, double scale,
                         const std::string& description) {
    const auto reference = ReadJsonFile(file);
    const ChemicalSystem* database = RealDatabase();
    if (!reference || !database) return false;
    ChemicalSystem chem;
    InputProblem input;
    if (!PrepareReferenceCase(*reference, *database, 1.0001, chem, input)) return false;
    for (int32_t k = 0; k < chem.db().ComponentCount(); ++k) {
        ComponentInput& c = input.components[k];
        if (k != chem.db().hydrogenIndex && c.inputType == InputType::TotalConc) c.inputValue *= scale;
    }
    input.description = description.empty() ? reference->TextOr("description", "") : description;
    return WriteUtf16File(path, std::string_view(FormatInputFile(input, chem.db())));
}

}  // namespace tormel::test
