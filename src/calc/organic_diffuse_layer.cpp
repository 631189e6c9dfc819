// The diffuse layers around the fulvic and humic particles: their volumes,
// the bulk solution's share of the volume, the enrichment of counter-ions
// that balances each particle's charge, and the concentration of every
// dissolved species inside each layer.
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "calc/compare.h"
#include "calc/organic_model.h"
#include "calc/solver_options.h"

namespace tormel {

namespace {

constexpr double kDebyeLengthAtUnitStrength = 3.03934514937934e-10;  // m; kappa^-1 = this / sqrt(I)
constexpr double kParticlesPerMolePerCubicMetre = 6.0221415e26;     // Avogadro's number x 1000 L/m^3
constexpr int32_t kMaxCounterIonCharge = 8;

// Concentrations of the positive dissolved species, summed by charge.
using ChargeSums = std::array<double, kMaxCounterIonCharge + 1>;

ChargeSums CounterIonsByCharge(const ChemicalSystem& chem, const std::vector<int32_t>& layerSpecies) {
    ChargeSums sums{};
    for (int32_t s : layerSpecies) {
        const Species& sp = chem.species[s];
        if (sp.charge <= 0) continue;
        sums[std::min(sp.charge, kMaxCounterIonCharge)] += sp.concentration;
    }
    return sums;
}

// The layer's counter-ion sum for enrichment R: negative for a negative
// particle (its counter-ions balance a negative charge).
double CounterIonSum(const ChargeSums& sums, double enrichment, bool negativeParticle) {
    double s = 0;
    for (int32_t z = 1; z <= kMaxCounterIonCharge; ++z)
        if (sums[z] != 0) s += sums[z] * std::pow(enrichment, z);
    return negativeParticle ? -s : s;
}

// Finds R so that the counter-ions of the layer match its charge density Q.
// Returns false when the pass bound was hit.
bool SolveEnrichment(const ChargeSums& sums, double q, double criterion, double& enrichment) {
    if (!(enrichment > 0) || !std::isfinite(enrichment)) enrichment = OrganicCarryOver{}.enrichment;
    const bool negative = q < 0;
    double s = CounterIonSum(sums, enrichment, negative);
    for (int32_t pass = 0; pass < kSolverOptions.maxCounterIonPasses; ++pass) {
        if (RelativelyEqual(s, q, criterion)) return true;
        if (s == 0) return true;  // no counter-ions in the solution: nothing to enrich
        enrichment *= (q / s + 3) / 4;
        s = CounterIonSum(sums, enrichment, negative);
    }
    return RelativelyEqual(s, q, criterion);
}

// The counter-ion enrichment of each layer for its fraction's charge.
void SolveEnrichments(CalcContext& ctx) {
    SolverState& st = ctx.state;
    OrganicState& org = st.organic;
    const ChargeSums sums = CounterIonsByCharge(ctx.chem, org.layerSpecies);
    org.counterIonCapped = false;
    for (int32_t f = 0; f < kOrganicFractions; ++f) {
        const OrganicFraction& fr = org.fractions[f];
        if (!fr.present || !(fr.volume > 0)) continue;
        const double q = org.carry[f].charge * fr.concentration / fr.volume;
        if (!SolveEnrichment(sums, q, st.inputCriterion, org.carry[f].enrichment)) {
            org.counterIonCapped = true;
            org.counterIonMessage = std::string(f == kFulvic ? "fulvic" : "humic") +
                                    " diffuse layer: the counter-ion enrichment did not settle within " +
                                    std::to_string(kSolverOptions.maxCounterIonPasses) + " passes";
        }
    }
}

}  // namespace

double DiffuseLayerVolume(const OrganicParameters& p, double concentration, double charge, double ionicStrength) {
    if (!(ionicStrength > 0) || !(p.molarMass > 0)) return 0;
    const double debyeLength = kDebyeLengthAtUnitStrength / std::sqrt(ionicStrength);
    const double r = p.radius;
    const double outer = r + debyeLength;
    const double shell = 4 * std::numbers::pi / 3 * (outer * outer * outer - r * r * r);
    const double kz = p.diffuseFactor * std::fabs(charge);
    return shell * (kParticlesPerMolePerCubicMetre / p.molarMass) * concentration * kz / (1 + kz);
}

void OrganicDiffuseLayer(CalcContext& ctx, bool solveEnrichment) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    OrganicState& org = st.organic;
    // volumes, shrunk together so that they never exceed V_max
    double sumVolumes = 0;
    double maxVolume = 0;
    for (int32_t f = 0; f < kOrganicFractions; ++f) {
        OrganicFraction& fr = org.fractions[f];
        fr.volume = 0;
        if (!fr.present) continue;
        fr.volume = DiffuseLayerVolume(fr.parameters, fr.concentration, org.carry[f].charge, st.ionicStrength);
        sumVolumes += fr.volume;
        if (maxVolume == 0) maxVolume = fr.parameters.maxDiffuseVolume;
    }
    const double overlap = maxVolume > 0 ? sumVolumes / maxVolume + 1 : 1;
    for (OrganicFraction& fr : org.fractions) fr.volume /= overlap;
    st.bulkFraction = 1 - org.fractions[kFulvic].volume - org.fractions[kHumic].volume;

    if (solveEnrichment) SolveEnrichments(ctx);

    // concentrations inside the layers: counter-ions enriched, co-ions excluded
    std::array<ChargeSums, kOrganicFractions> factor{};  // R^z by charge
    for (int32_t f = 0; f < kOrganicFractions; ++f) {
        factor[f][0] = org.fractions[f].present ? 1.0 : 0.0;
        for (int32_t z = 1; z <= kMaxCounterIonCharge; ++z) factor[f][z] = factor[f][z - 1] * org.carry[f].enrichment;
    }
    org.ddlDonors = org.ddlAcceptors = 0;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (int32_t s : org.layerSpecies) {
        Species& sp = chem.species[s];
        const int32_t z = std::min(sp.charge, kMaxCounterIonCharge);
        for (int32_t f = 0; f < kOrganicFractions; ++f)
            sp.organicTerms[f] = z < 0 ? 0.0 : sp.concentration * factor[f][z];
        if (sp.charge < 0) continue;
        // protons the layers hold or take up, for the proton balance
        const double inLayers = org.fractions[kFulvic].volume * sp.organicTerms[kFulvic] +
                                org.fractions[kHumic].volume * sp.organicTerms[kHumic];
        for (int32_t e = 0; e < sp.componentTerms; ++e) {
            const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
            if (term.systemComponent != 0 || term.coefficient == 0) continue;
            (term.coefficient > 0 ? org.ddlDonors : org.ddlAcceptors) += std::abs(term.coefficient) * inLayers;
        }
    }
}

}  // namespace tormel
