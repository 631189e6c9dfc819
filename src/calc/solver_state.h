#pragma once
// Everything the equilibrium calculation keeps between its steps: the run
// state of the assembly, the solver's iteration state, the activity model's
// quantities and the results of the post-processing. One record per
// workspace, passed explicitly; the ionic strength (and, later, the organic
// charges) carry over from one calculation to the next.
#include <cstdint>
#include <string>
#include <vector>

#include "calc/organic_state.h"
#include "calc/solver_options.h"
#include "calc/species_tables.h"

namespace tormel {

// What kind of unknown of the Newton system an entry is.
enum UnknownKind : int16_t {
    UnknownComponent = 0,
    UnknownTouchedBySolid = 1,
    UnknownSolidAmount = 2,
};

// The Newton system: n mass-balance components followed by m present solids.
struct NewtonSystem {
    int32_t n = 0;
    int32_t m = 0;
    std::vector<int32_t> unknownComponent;  // unknown u < n -> system component
    std::vector<int32_t> componentUnknown;  // system component -> unknown, -999 for none
    std::vector<int32_t> solidSpecies;      // present solids in the order they entered
    std::vector<double> x, r, delta;
    std::vector<int16_t> kind;
    std::vector<double> jacobian;  // (n+m) x (n+m), row-major; overwritten by its LU factors in each step
    // per species: c_s formed from the current unknowns, for the Jacobian;
    // sized by the step itself and reused by every later step of the solve
    std::vector<double> speciesTerm;

    int32_t Size() const { return n + m; }
};

// Donor (coefficient of H+ > 0) and acceptor (< 0) sums of the proton balance.
struct ProtonSums {
    double donorDissolved = 0, donorAdsorbed = 0, donorSolid = 0;
    double acceptorDissolved = 0, acceptorAdsorbed = 0, acceptorSolid = 0;
    double donorOrganic = 0, acceptorOrganic = 0;  // filled by the organic model
    double donorBulk = 0, acceptorBulk = 0;          // bulk-scaled inorganic sums
    double donors = 0;     // D
    double acceptors = 0;  // A
};

// One line of the MSA salt table: the mean activity coefficient of a salt
// formed by a cation and a ligand of the solution.
struct SaltRecord {
    int32_t cation = 0;  // system index
    int32_t ligand = 0;  // system index
    std::string formula;
    double meanActivityCoefficient = 0;
};

// What a solve answers.
struct SolveResult {
    bool converged = false;
    bool cancelled = false;
    int32_t iterations = 0;
    std::string worstComponent;
    double worstRatio = 0;
    bool fallbackUsed = false;  // the specified iteration stalled; the fallback finished the solve
    std::string message;  // why a solve ended without convergence; empty otherwise
};

// State of the secant update of the free H+ concentration.
struct ProtonUpdateState {
    bool firstCallDone = false;
    int32_t stage = 0;  // 0, 1, 2
    bool up = false;
    float damping = 0;
    double hPrevious = 0, tPrevious = 0;
    double hCurrent = 0, tCurrent = 0;
};

// The best state of the specified iteration so far (lowest worst ratio
// since the set of present solids last changed), from which the fallback
// starts when that iteration stalls or diverges.
struct BestIterate {
    double worstRatio = 0;
    double progressRatio = 0;   // worst ratio at the last marked progress
    int32_t progressIteration = 0;
    int32_t solids = -1;        // present solids when it was taken
    std::vector<double> free;   // per system component
    std::vector<double> amounts;  // per species of the solid range
    NewtonSystem newton;
    double ionicStrength = 0;
};

struct FallbackState {
    bool active = false;
    int32_t startIteration = 0;
    BestIterate best;
    // with organic matter: the last Jacobian formed and the present solids it
    // was formed with, used again while its steps serve
    std::vector<double> jacobian;
    std::vector<int32_t> jacobianSolids;
};

struct SolverState {
    // --- run state of the assembly and the driver ---
    bool abortRequested = false;
    bool redoxProtonFlag = false;
    double hydrogenInput = 0;
    double hydroxideReference = 0;
    double inputChargeExcess = 0;
    double cationCharge = 0;
    double anionCharge = 0;
    std::vector<int32_t> solidTotalCounts;
    std::vector<SaltRecord> saltRecords;
    bool resultExists = false;

    // --- iteration ---
    int32_t maxIterations = kSolverOptions.maxIterations;
    bool fallbackAllowed = true;  // off: the specified iteration alone, up to the bound
    int32_t iterationCount = 0;
    double inputCriterion = 1.0001;
    double workingCriterion = 1.0001;
    double saturationTolerance = 1.0001;
    double worstRatio = 1;
    double previousWorstRatio = 1;
    double protonWorstRatio = 1;
    double otherWorstRatio = 1;
    std::string worstComponentName;
    bool protonBalanceMode = false;
    double bulkFraction = 1.0;
    int32_t newtonCountdown = 0;
    float newtonStall = 0;
    bool newtonUsed = false;
    ProtonUpdateState proton;
    ProtonSums protonSums;
    NewtonSystem newton;
    FallbackState fallback;
    // per system component: the first species whose composition holds it
    std::vector<int32_t> firstSpeciesOf;
    // the species each step of an iteration visits (built by InitialiseSolve)
    SpeciesTables tables;

    // --- ionic strength and activity ---
    double ionicStrength = 0;  // carries over between calculations
    double ionicStrengthFromComposition = 0;  // post-processing with a fixed I
    double logGamma1 = 0;
    float ionicStrengthDamping = 0;
    int32_t ionicStrengthDirection = 0;
    int32_t activityCalls = 0;  // calls of UpdateActivity in this solve

    // MSA
    double msaDelta = 0.99;
    double msaGamma = 0;
    double zeta[4] = {0, 0, 0, 0};
    double hardSphereA1 = 0, hardSphereA2 = 0, hardSphereA3 = 0;
    double msaOmega = 1, msaPPrime = 0;
    bool gammaIterationCapped = false;  // the last Gamma iteration hit maxGammaPasses

    // --- dissolved organic matter (Z and R carry over between calculations) ---
    OrganicState organic;

    // --- progress bar of the progress report ---
    double barSlope = 0, barOffset = 0;

    // --- precipitation ---
    // per solid of the solid range: its amount after the previous iteration
    // (tells a solid that is dissolving from one that is growing)
    std::vector<double> solidPreviousAmount;
    // the progress list: one line per solid that entered, in order
    std::vector<std::string> solidProgressLines;
    // the second (solids) bar of the progress report
    double solidBarSlope = 0, solidBarOffset = 0;
    int32_t solidBarPosition = 0;
};

// Each of these leaves its record as a default-constructed one would be,
// but keeps the storage of its lists for the next solve, so that a worker
// calculating one water after another does not allocate it again each time.
void ClearNewtonSystem(NewtonSystem& ns);
void ClearBestIterate(BestIterate& best);
void ClearFallback(FallbackState& fallback);
// The state of a workspace that has calculated nothing yet.
void ResetSolverState(SolverState& st);

}  // namespace tormel
