#pragma once
// Activity coefficients (Davies and the mean spherical approximation), the
// ionic strength and the conditional constants of the species.
#include <cstdint>
#include <vector>

#include "calc/calc_context.h"

namespace tormel {

constexpr double kDaviesA = 0.5079;
constexpr double kDaviesLinear = 0.3;
constexpr double kAvogadro = 6.0221415e23;       // 1/mol
constexpr double kLitresPerCubicMetre = 1000;
constexpr double kBjerrumLength = 7.150542325816101e-10;      // m
constexpr double kFourPiBjerrumLength = 8.985636495986694e-9;  // m

// Davies log10 gamma of a singly charged ion at ionic strength I.
double DaviesLogGamma1(double ionicStrength);

// The Davies activity of a species: 10^(z^2 logGamma1) c.
double Activity(const SolverState& state, const Species& species);

// Half the sum of c z^2 over the dissolved species (free components, free OH,
// gas ligands, redox partners and complexes).
double IonicStrengthSum(const ChemicalSystem& chem);
// The same sum over a list of the dissolved species, in species order.
double IonicStrengthSum(const ChemicalSystem& chem, const std::vector<int32_t>& dissolved);

// The ionic strength a solve starts from.
void StartIonicStrength(CalcContext& ctx);

// logGamma1, the MSA quantities (MSA model only) and every species'
// conditional constant for the current I and species concentrations.
void UpdateActivity(CalcContext& ctx);

// Free concentrations of the unknowns given as free activities.
void FreeFromActivity(CalcContext& ctx);

// The per-iteration damped update of the ionic strength.
void UpdateIonicStrength(CalcContext& ctx, bool& converged);

// MSA: packing sums, hard-sphere and electrostatic terms and gamma of every
// species with an ion size, from the species concentrations.
void UpdateMsa(ChemicalSystem& chem, SolverState& state);

// The activity coefficient a system component's unknown carries in the
// conditional constant of an MSA complex (see update_activity.cpp).
double ComponentGammaForMsa(const ChemicalSystem& chem, const SolverState& state, int32_t systemComponent);

}  // namespace tormel
