#pragma once
// The records of a result set: everything a finished calculation leaves for
// the user to see, save, export and compare, copied out of the chemical
// system so that a set needs neither the database nor the solver. Records own
// their texts; an absent text is an empty text.
#include <array>
#include <cstdint>
#include <string>

#include "core/chemical_system.h"
#include "core/shared_text.h"

namespace tormel {

// The five amounts of a component, in the order of their row labels
// "Dissolved", "Adsorbed", "Solid", "OrgBound", "Total".
enum AmountRow : int32_t {
    AmountDissolved = 0,
    AmountAdsorbed = 1,
    AmountSolid = 2,
    AmountOrganic = 3,
    AmountTotal = 4,
};
inline constexpr int32_t kAmountCount = 5;

// The eight organic-site amounts: mono, bi and tridentate sites and the
// diffuse layer, each fulvic then humic.
enum SiteAmount : int32_t {
    SiteMonoFulvic = 0,
    SiteMonoHumic = 1,
    SiteBiFulvic = 2,
    SiteBiHumic = 3,
    SiteTriFulvic = 4,
    SiteTriHumic = 5,
    SiteDiffuseFulvic = 6,
    SiteDiffuseHumic = 7,
};
inline constexpr int32_t kSiteAmountCount = 8;

// Where a species' amount is counted.
enum SpeciesCategory : int32_t {
    CategoryDissolved = 1,  // kinds 1, 2, 3, 4, 6
    CategoryAdsorbed = 2,   // kind 7
    CategorySolid = 3,      // kinds 5, 8
    CategoryOrganic = 4,    // organic kinds
};

// Entries per side of a reaction definition.
inline constexpr int32_t kMaxReactionEntries = 4;

struct ResultHeader {
    int32_t listedComponentCount = 0;  // kinds 1, 3, 6; set by a viewer of the set
    int32_t componentCount = 0;
    int32_t reportedComponentCount = 0;  // kinds 1, 2, 3, 4, 6
    std::string organicReference;
    int32_t speciesCount = 0;
    int32_t gasResultCount = 0;
    int32_t solidCheckCount = 0;
    int32_t saltCount = 0;
    int32_t msaIonCount = 0;
    // species range of the precipitated solids (precipitation on); an empty
    // range has last = first - 1
    int32_t firstPrecipitatedSolid = 0;
    int32_t lastPrecipitatedSolid = -1;
    int32_t firstOrganicSpecies = 0;
    int32_t reactionDefinitionCount = 0;
    double anionCharge = 0;   // eq/L
    double cationCharge = 0;  // eq/L
    double logGamma1 = 0;
    int32_t iterationCount = 0;
    // iteration at which the solver's fallback took over from the specified
    // iteration; 0 when it was not needed
    int32_t fallbackIteration = 0;
};

struct ComponentResult {
    ComponentType kind{};  // code 0 for a component that is not reported
    std::string name;
    std::string displayName;
    std::string gasText;      // gas components: gas " / " ligand with its charge suffix
    std::string speciesList;  // "s=n;" per species holding the component (s 1-based)
    std::array<double, kAmountCount> amounts{};        // mol/L
    std::array<double, kSiteAmountCount> siteAmounts{};  // mol/L
    double molarMass = 0;  // g/mol
    bool percentagesAllowed = false;

    bool Reported() const { return kind != ComponentType{}; }
};

struct SpeciesResult {
    SpeciesKind kind{};
    bool hasConstants = false;
    int32_t category = 0;  // SpeciesCategory
    std::string name;      // with the charge suffix for dissolved species
    int32_t charge = 0;
    double concentration = 0;  // mol/L of bulk solution
    bool hasActivity = false;
    double activity = 0;
    double intrinsicLogK = 0;
    double conditionalLogK = 0;
    int32_t literatureIndex = 0;  // -1 for free species
    SharedText literature;
    int32_t reactionDefinition = -1;
    double saturationValue = 0;  // precipitated solids only
};

// DefinitionFiler::Next empties a reused definition member by member, so that
// its texts keep their storage: a member added here is emptied there too.
struct ReactionDefinition {
    std::array<ReactionEntry, kMaxReactionEntries> reactants{};
    std::array<ReactionEntry, kMaxReactionEntries> products{};
    double logK = 0;
    SharedText literature;
    SharedText note;
};

// A solid tested for saturation while precipitation was off.
struct SolidSaturation {
    std::string name;
    double saturationIndex = 0;
    double logK = 0;
    double conditionalLogK = 0;
    SharedText literature;
    int32_t reactionDefinition = -1;
};

// A gas and one ligand it controls.
struct GasResult {
    std::string name;
    double partialPressure = 0;      // atm
    double ligandConcentration = 0;  // mol/L, bulk solution
    double logK = 0;
    double conditionalLogK = 0;
    SharedText literature;
    int32_t reactionDefinition = -1;
};

struct ComponentInfo {
    std::string name;
    ComponentType kind{};
    double inputValue = 0;
    double molarMass = 0;
    InputType inputType = InputType::NotSpecified;
};

struct MsaIonResult {
    std::string name;
    int32_t charge = 0;
    double lnGammaHardSphere = 0;
    double lnGammaElectrostatic = 0;
    double lnGamma = 0;
    double gamma = 0;
    double ionSize = 0;  // m
};

// The quantities of the MSA model at the solution.
struct MsaSummary {
    double delta = 0;
    std::array<double, 3> hardSphere{};  // a1, a2, a3
    std::array<double, 4> zeta{};        // zeta0 .. zeta3
    double screening = 0;                // Gamma
    double pPrime = 0;
    double omega = 0;
};

}  // namespace tormel
