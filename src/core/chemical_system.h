#pragma once
// The in-memory chemical system: the database layer (loaded once) and the
// assembled layer (rebuilt by every calculation). Records refer to each other
// by 0-based index; H+ is component 0, so index 0 doubles as "none" in links.
#include <array>
#include <memory>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/chemical_types.h"
#include "core/equilibrium_index.h"

namespace tormel {

struct Component {
    int32_t type = 0;  // ComponentType
    std::string name;
    int32_t charge = 0;
    double molarMass = 0;
    double ionDiameter = 0;
    int32_t organicModel = 0;
    int32_t waterPartnerOfH = 0;
    int32_t waterPartnerOfOH = 0;
    int32_t gasPartner = 0;
    int32_t linkedLigand = 0;
    int32_t redoxNext = 0;
    int32_t redoxPrev = 0;
};

struct Equilibrium {
    int32_t type = 0;  // EquilibriumType
    std::string name;
    int32_t charge = 0;
    double logK = 0;
    double secondReal = 0;
    double thirdReal = 0;
    int32_t deltaZ2 = 0;
    bool hasEnthalpy = false;
    double enthalpy = 0;  // J/mol
    double complexDiameter = 0;
    int32_t literatureRef = -1;
    int32_t componentCount = 0;
    int32_t systemSpecies = 0;
    int32_t linkedComponent = 0;
    double linkedCoefficient = 0;
    int32_t organicModel = 0;
    double organicReal1 = 0;
    double organicReal2 = 0;
};

// First and last record index of one type; first == 0 means "no record".
struct TypeRange {
    int32_t first = 0;
    int32_t last = 0;
    bool empty() const { return first == 0; }
};

// Parameters of one organic model: [k][0] fulvic acid, [k][1] humic acid.
struct OrganicModelParameters {
    std::vector<std::array<double, 2>> values;
    int32_t literatureRef = 0;
};

constexpr int32_t kModel5ParameterCount = 12;
constexpr int32_t kModel6ParameterCount = 13;
constexpr int32_t kModel7ParameterCount = 13;
int32_t OrganicParameterCount(int32_t modelCode);

// --- assembled layer ---

// How one database component takes part in the assembled system.
struct ComponentPlacement {
    bool inInput = false;     // takes part in the calculation
    int32_t systemIndex = 0;  // > 0 its system component, < 0 minus the species that stands for it
};

struct SystemComponent {
    int32_t type = 0;
    std::string name;
    int32_t charge = 0;
    double molarMass = 0;
    double givenValue = 0;
    int32_t balanceKind = 0;
    int32_t givenMember = 0;
    double balanceTotal = 0;
    double freeConcentration = 0;
    int32_t maxCoefficient = 0;
    int32_t direction = 0;
    float damping = 0;
    int32_t componentIndex = 0;
    double sumAll = 0, sumDissolved = 0, sumOther = 0, sumAdsorbed = 0, sumSolid = 0;
    double bulkDissolved = 0, bulkAdsorbed = 0, bulkSolid = 0;
    double calculatedTotal = 0;
    std::array<double, 2> ddlSum{};
    std::array<double, 6> organicClassSums{};
    double boundFA = 0, boundHA = 0, boundOrganic = 0;
};

struct Species {
    int32_t kind = 0;  // SpeciesKind
    std::string name;
    int32_t charge = 0;
    int32_t componentTerms = 0;
    int32_t deltaZ2 = 0;
    int32_t deltaZ2Stored = 0;
    double logK = 0;
    int32_t enthalpyStatus = 0;
    double enthalpy = 0;
    double tempCorrection = 0;
    double tempCorrectionDatabase = 0;
    double ionSize = 0;
    double lnGammaHS = 0, lnGammaEl = 0, lnGamma = 0, gamma = 1;
    int32_t literatureRef = -1;
    int32_t source = 0;
    double concentration = 0;
    std::array<double, 2> organicTerms{};
    std::array<int32_t, 2> organicFields{};
    double workingLogK = 0;
    double logKDatabase = 0;
    int32_t reactionRow = -1;
    int32_t resultRow = -1;
    std::optional<std::string> addInfo;
};

struct ReactionEntry {
    int32_t coefficient = 0;  // 0 marks an empty entry
    std::string name;
    int32_t charge = 0;
    std::string phase;  // "(aq)", "(s)" or empty
};

struct CompositionTerm {
    int32_t systemComponent = 0;
    int32_t coefficient = 0;
};

struct ChemicalSystem {
    // database layer
    std::vector<Component> components;
    std::vector<Equilibrium> equilibria;
    std::vector<int32_t> stoichiometry;  // component c, equilibrium e at c * equilibria.size() + e
    std::vector<std::string> literature;
    std::array<OrganicModelParameters, 3> organicParameters;  // by model code - 2

    int32_t maxComponentsPerEquilibrium = 0;
    int32_t hydrogenIndex = 0;
    int32_t hydroxideIndex = 0;
    int32_t electronIndex = 0;
    int32_t waterEquilibriumIndex = 0;

    // component ranges by type 1..7 (2 unused) and type 7 per model code;
    // equilibrium ranges by type 1..7 and type 7 per model code
    std::array<TypeRange, 8> componentRange{};
    std::array<TypeRange, 3> organicComponentRange{};
    std::array<TypeRange, 8> equilibriumRange{};
    std::array<TypeRange, 3> organicEquilibriumRange{};
    // Which components each equilibrium is made of (equilibrium_index.h);
    // shared, read only, by the copies of this database.
    std::shared_ptr<const EquilibriumIndex> equilibriumIndex;

    // assembled layer
    std::vector<ComponentPlacement> placement;  // per database component
    std::vector<SystemComponent> systemComponents;
    std::vector<Species> species;
    std::vector<ReactionEntry> reactionReactants;  // row r, entry j at r * maxComponentsPerEquilibrium + j
    std::vector<ReactionEntry> reactionProducts;
    int32_t reactionRowCount = 0;
    std::vector<CompositionTerm> composition;  // term j of species s at j * species.size() + s
    int32_t maxSpeciesComponents = 0;
    int32_t freeHydroxideSpecies = 0;
    TypeRange complexSpeciesRange{};
    TypeRange solidSpeciesRange{};
    bool temperatureCorrectionApplied = false;

    int32_t ComponentCount() const { return static_cast<int32_t>(components.size()); }
    int32_t EquilibriumCount() const { return static_cast<int32_t>(equilibria.size()); }
    int32_t LiteratureReferenceCount() const { return static_cast<int32_t>(literature.size()); }

    int32_t Coefficient(int32_t component, int32_t equilibrium) const {
        return stoichiometry[Position(equilibrium, component, EquilibriumCount())];
    }
    int32_t& Coefficient(int32_t component, int32_t equilibrium) {
        return stoichiometry[Position(equilibrium, component, EquilibriumCount())];
    }
    OrganicModelParameters& Organic(int32_t modelCode) { return organicParameters[modelCode - 2]; }
    const OrganicModelParameters& Organic(int32_t modelCode) const { return organicParameters[modelCode - 2]; }

    // Component index by exact name; -1 when absent.
    int32_t FindComponent(std::string_view name) const;
    int32_t FindEquilibrium(std::string_view name) const;

    // Empties the assembled layer.
    void ClearAssembled();
};

}  // namespace tormel
