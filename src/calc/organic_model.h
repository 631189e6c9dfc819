#pragma once
// The discrete-site model of dissolved organic matter (Models 5, 6 and 7):
// fulvic and humic acid with eight proton sites each, metals bound at single
// sites, pairs and triples, an electrostatic correction by the net charge of
// each fraction and a diffuse layer of counter-ions around each fraction.
//
// The assembly adds the sites as system components; the solver calls the
// per-iteration steps below at their places (see solver.cpp).
#include <array>
#include <cstdint>
#include <vector>

#include "calc/calc_context.h"
#include "calc/organic_state.h"

namespace tormel {

// --- species kinds ---

// Position of a species within its fraction's kind block.
enum OrganicKindOffset : int32_t {
    // Model 5
    M5FreeSingle = 0,
    M5FreePair = 1,
    M5ProtonatedSingle = 2,
    M5ProtonatedPair = 3,
    M5MetalSingle = 4,
    M5HydrolysedSingle = 5,
    M5MetalPair = 6,
    M5HydrolysedPair = 7,
    // Models 6 and 7 (free/protonated/metal/hydrolysed by combination size)
    M67FreeSingle = 0,
    M67ProtonatedSingle = 3,
    M67MetalSingle = 6,
};

// First kind of the block of a model (code 2, 3, 4) and fraction (0, 1).
SpeciesKind OrganicKindBase(int32_t model, int32_t fraction);
// Kind of a site component's free or protonated species; size 1, 2 or 3.
SpeciesKind SiteSpeciesKind(int32_t model, int32_t fraction, int32_t size, bool protonated);
// Kind of a metal species at a combination of the given size.
SpeciesKind MetalSpeciesKind(int32_t model, int32_t fraction, int32_t size, bool hydrolysed);
// Fraction (0, 1) of an organic kind, -1 for inorganic kinds.
int32_t FractionOfKind(SpeciesKind kind);
// True for the metal (and hydrolysed metal) kinds.
bool IsOrganicMetalKind(SpeciesKind kind);

// --- parameters and the site layout ---

OrganicParameters ParametersOf(const OrganicModelParameters& block, int32_t model, int32_t fraction);

// Intrinsic protonation log K of proton site 1..8.
double SiteProtonationLogK(const OrganicParameters& p, int32_t site);

// The shares of a combination's sites at the three strength levels.
constexpr std::array<double, 3> kLevelShares = {0.901, 0.09, 0.009};
constexpr std::array<char, 3> kLevelLetters = {'A', 'B', 'C'};

// Pairs and triples of a model, as 1-based site numbers; Model 6's triple
// list holds (3,4,6) and (1,3,7) twice each, and both entries count.
const std::vector<std::array<int32_t, 2>>& OrganicPairs(int32_t model);
const std::vector<std::array<int32_t, 3>>& OrganicTriples(int32_t model);
// Whether pairs and triples come at three strength levels (Models 6, 7).
bool HasStrengthLevels(int32_t model);

// Total of one site component (mol/L) for a fraction of concentration C:
// size 1 with its site number, or a member of pair or triple `number`
// (1-based) at `level`.
double SingleSiteTotal(int32_t model, const OrganicParameters& p, double c, int32_t site);
double CombinationMemberTotal(int32_t model, const OrganicParameters& p, double c, int32_t size, int32_t number,
                              int32_t level);

// --- metal constants ---

// log K at 25 degrees C of a metal species at single site `site` from its
// organic equilibrium's constant and model reals.
double SingleSiteMetalLogK(int32_t model, int32_t fraction, const OrganicParameters& p, const Equilibrium& e,
                           int32_t site);
// log K of a metal species at a pair or triple: the sum of its sites'
// constants plus the strength-level term.
double CombinationMetalLogK(int32_t model, int32_t fraction, const OrganicParameters& p, const Equilibrium& e,
                            const int32_t* sites, int32_t size, int32_t level);

// --- per iteration (called by the solver) ---

// Site starting values and the organic conditional constants for the
// carried-over charges; called at the end of the solver's initialisation.
void InitialiseOrganic(CalcContext& ctx);
// The two halves of the solver's organic species step (OrganicSpeciesStep,
// solver.h): site shares, metal species, charges and donor/acceptor sums;
// then the diffuse layers (volumes, bulkFraction, counter-ion enrichment and
// the concentrations inside the layers). With solveEnrichment false the
// enrichment R of each layer stays as it is.
void OrganicMetalSpecies(CalcContext& ctx);
void OrganicDiffuseLayer(CalcContext& ctx, bool solveEnrichment);
// Conditional constants of the organic species for the current Z, I and
// logGamma1: the workingLogK of the protonated sites, and the constants
// (10^workingLogK) the species step forms the metal species from.
void OrganicWorkingLogK(CalcContext& ctx);
// The workingLogK of the metal species for the last constants, for the
// results; the solver writes them once, at the end of a solve.
void StoreOrganicWorkingLogK(CalcContext& ctx);
// The step limit and the damping of the charges as at the start of a solve
// (the fallback starts them afresh: they only ever tighten, and after a long
// oscillation of the iteration they hold the charges almost still).
void RestartChargeLimiter(CalcContext& ctx);
// Volume of the diffuse layer of one fraction before the overlap correction.
double DiffuseLayerVolume(const OrganicParameters& p, double concentration, double charge, double ionicStrength);
// Organically bound and diffuse-layer amounts of the mass-balance components
// (after the solver has reset its sums).
void OrganicSums(CalcContext& ctx);
// The species OrganicSums visits and their terms on the mass-balance
// unknowns; built once per solve, after the layer species.
void BuildOrganicSumTables(const ChemicalSystem& chem, OrganicState& org);
// The electroneutrality test of the proton balance with organic matter: the
// dissolved charges (positive, negative) count with the bulk share of the
// volume, and the diffuse layers and the fractions' own charges are added.
void AddOrganicCharges(const CalcContext& ctx, double& positive, double& negative);
// The six class sums of every non-organic system component (post-processing).
void OrganicClassSums(ChemicalSystem& chem);

}  // namespace tormel
