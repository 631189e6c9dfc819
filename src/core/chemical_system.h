#pragma once
// The assembled layer of one calculation: the unknowns, species, reaction rows
// and composition built from the input problem over a read-only database.
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/database.h"

namespace tormel {

// --- assembled layer ---

// How one database component takes part in the assembled system.
struct ComponentPlacement {
    bool inInput = false;     // takes part in the calculation
    int32_t systemIndex = 0;  // > 0 its system component, < 0 minus the species that stands for it
};

struct SystemComponent {
    ComponentType type{};
    std::string name;
    int32_t charge = 0;
    double molarMass = 0;
    double givenValue = 0;
    InputType balanceKind = InputType::NotSpecified;
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
    SpeciesKind kind{};
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

// One empty database, shared by every system that has not loaded one.
std::shared_ptr<const Database> EmptyDatabase();

struct ChemicalSystem {
    ChemicalSystem() = default;
    // A system over `db`, with nothing assembled.
    explicit ChemicalSystem(std::shared_ptr<const Database> db) : database(std::move(db)) {}
    explicit ChemicalSystem(Database db) : database(std::make_shared<const Database>(std::move(db))) {}

    // The database the system is assembled from; shared, read only. An
    // empty database until one is loaded.
    std::shared_ptr<const Database> database = EmptyDatabase();
    const Database& db() const { return *database; }

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

    // Empties the assembled layer.
    void ClearAssembled();
};

}  // namespace tormel
