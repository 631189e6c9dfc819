#pragma once
// State of the dissolved-organic-matter model: the layout the assembly builds
// (which system components are sites, which species sit on which sites),
// what each iteration recomputes (shares, charges, diffuse layers) and what
// carries over from one calculation to the next (the charge Z and the
// counter-ion enrichment R of each fraction).
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "calc/species_tables.h"
#include "core/chemical_types.h"

namespace tormel {

// Fractions of the organic matter.
constexpr int32_t kFulvic = 0;
constexpr int32_t kHumic = 1;
constexpr int32_t kOrganicFractions = 2;

// The parameters of one fraction under the active model, by role.
struct OrganicParameters {
    double pKA = 0, deltaPKA = 0;  // proton constant of type-A sites and its spread
    double pKB = 0, deltaPKB = 0;  // the same for type-B sites
    double pairShare = 0;          // share of the sites in pairs
    double tripleShare = 0;        // share of the sites in triples (Models 6, 7)
    double nA = 0, nB = 0;         // site densities, mol per g C
    double electrostaticP = 0;     // P of w = P log10 I
    double radius = 0;             // m
    double molarMass = 0;          // g C per mol of particles
    double diffuseFactor = 0;      // K_D
    double maxDiffuseVolume = 0;   // V_max (read from the fulvic set only)
};

// A site component: one of the eight single sites, or one member of a pair
// or triple, with its free and protonated species.
struct OrganicSite {
    int32_t component = 0;          // system index
    int32_t freeSpecies = 0;
    int32_t protonatedSpecies = 0;
    int32_t site = 0;               // the proton site 1..8 it stands for
    double protonationLogK = 0;     // intrinsic, at 25 degrees C
    // 10^logK of the protonated species, taken once per solve, and
    // 10^workingLogK, set with each working constant
    double protonIntrinsic = 0;
    double protonConstant = 0;
    // per iteration
    double total = 0;  // free + protonated
    double share = 0;  // the protonated (Model 5) or free (Models 6, 7) share of the total
};

// A single site, a pair or a triple (at one strength level); its members are
// consecutive entries of the fraction's site list.
struct OrganicCombination {
    int32_t firstSite = 0;  // index into OrganicFraction::sites
    int32_t size = 1;       // 1, 2 or 3
    int32_t number = 0;     // 1-based within singles, pairs or triples
    int32_t level = 0;      // strength level 0, 1, 2 (Models 6, 7)
    // per iteration: the metal species at the combination, summed (each
    // holds every member once)
    double metalSum = 0;
    // per iteration: the mean free + protonated concentration of the members
    // times their shares (under Model 5 also divided by the H+ activity once
    // per member): what a metal species at the combination is formed from
    // besides its constant and the metal's activity
    double binding = 0;
};

// The species of one organic equilibrium on one fraction: a metal (or its
// hydroxo form) at every single site, pair and triple.
struct OrganicMetalBlock {
    // species k of the block sits on combination k of the fraction
    int32_t equilibrium = 0;
    int32_t metalComponent = -1;   // system index of the metal, -1 when a species stands for it
    int32_t standingSpecies = -1;  // species whose activity stands for the metal
    int32_t hydroxoSpecies = -1;   // hydrolysed blocks: the hydroxo complex whose activity is used
    int32_t metalCharge = 0;
    bool hydrolysed = false;
    int32_t firstSpecies = 0;  // the block's species are consecutive
    int32_t speciesCount = 0;
    // what every species of the block holds besides its sites: the terms on
    // mass-balance unknowns (built once per solve)
    std::vector<CompositionTerm> terms;
    double sum = 0;  // per iteration: the block's species, summed
};

// A run of consecutive metal species of one fraction that share their
// electrostatic and activity correction: one charge, at combinations of one
// size, within one block.
struct OrganicConstantRun {
    int32_t first = 0, end = 0;  // species offsets from the fraction's first metal species
    int32_t speciesCharge = 0;
    int32_t size = 1;  // of the combinations
    // per iteration: the two terms of the correction of log K
    double electrostatic = 0, activity = 0;
};

struct OrganicFraction {
    bool present = false;
    double concentration = 0;  // C, g C/L
    int32_t organicComponent = -1;  // database component (FA5, HA7, ...)
    SpeciesKind kindBase{};         // first species kind of the fraction's block
    OrganicParameters parameters;
    std::vector<OrganicSite> sites;
    std::vector<OrganicCombination> combinations;  // singles, then pairs, then triples
    std::vector<OrganicMetalBlock> metals;
    int32_t firstMetalSpecies = 0;  // metal species of the fraction are consecutive from here
    int32_t metalSpeciesCount = 0;
    // per metal species (from firstMetalSpecies): 10^logK, taken once per
    // solve, and 10^workingLogK, set with each working constant
    std::vector<double> metalIntrinsic;
    std::vector<double> metalConstant;
    std::vector<OrganicConstantRun> constantRuns;  // built with the 10^logK
    bool intrinsicTaken = false;  // the 10^logK of the sites and metal species are taken for this solve
    // per iteration
    double charge = 0;        // sum z c over the fraction's species / C
    double volume = 0;        // diffuse-layer volume fraction V
    double electrostatic = 0; // w = P log10 I
    double donors = 0;        // protonated sites
    double acceptors = 0;     // hydrolysed metal species
};

// What carries over between calculations for one fraction.
struct OrganicCarryOver {
    double charge = -0.0001;      // Z, eq per g C
    double enrichment = 10.0;     // R
};

struct OrganicState {
    // --- carried over from calculation to calculation (set once per program run) ---
    std::array<OrganicCarryOver, kOrganicFractions> carry{};

    // --- built by the assembly ---
    bool active = false;  // a fraction with C > 0 takes part
    int32_t model = 0;    // OrganicModelCode
    std::array<OrganicFraction, kOrganicFractions> fractions{};

    // --- per solve ---
    std::vector<int32_t> layerSpecies;  // the dissolved species, which the diffuse layers hold
    // the layer species with their terms on mass-balance unknowns, for the
    // balance sums (the sites and metal species are summed by site, block and
    // combination)
    SpeciesTermList layerTerms;
    float stepLimit = 0.01f;  // largest change of Z per iteration, shared by both fractions
    std::array<bool, kOrganicFractions> risingCharge{};
    std::array<float, kOrganicFractions> chargeDamping{};  // weight of the old Z
    double ddlDonors = 0, ddlAcceptors = 0;  // proton donors and acceptors held in the diffuse layers
    bool counterIonCapped = false;          // the last iteration hit maxCounterIonPasses
    std::string counterIonMessage;          // what the cap concerned, for the solve's message
};

}  // namespace tormel
