#pragma once
// Precipitation and dissolution: how saturated each solid is, which solids
// enter the equilibrium and with how much, and how present solids leave it
// again when they dissolve completely. The solver calls these between its
// iterations; present solids are kept saturated by the Newton step itself.
#include <cstdint>

#include "calc/calc_context.h"

namespace tormel {

enum SaturationState : int32_t {
    SolidInEquilibrium = 0,
    SolidOversaturated = 1,
    SolidAbsent = 2,
    SolidUndersaturated = 3,
};

// Saturation of one solid at the current free concentrations.
struct SolidSaturation {
    double logIap = 0;  // sum of nu log c over all entries (free concentrations)
    double logKsp = 0;  // -workingLogK
    double ratio = 1;   // (IAP / Ksp)^(1/n), n = mass-balance units of the solid
    int32_t state = SolidAbsent;
};

// log IAP, log Ksp, saturation ratio and state of solid species s, judged
// with the solver's current saturation tolerance.
SolidSaturation SaturationOf(const CalcContext& ctx, int32_t s);

// log10(IAP/Ksp) of solid species s at the current free concentrations: 0
// when saturated (the "saturation value" the results show for a solid).
double SaturationIndexOf(const ChemicalSystem& chem, int32_t s);

// Lets solid s enter with the amount that leaves the solution just
// saturated, moves the free concentrations of its components accordingly and
// adds its amount to the Newton system. False (and nothing changed) when no
// amount can be found.
bool NewSolid(CalcContext& ctx, int32_t s, double ratio, bool showProgress);

// Makes solid s (its amount already set) a present solid: the progress
// line, the Newton steps allowed after an entry, its unknown.
void AdmitSolid(CalcContext& ctx, int32_t s, double ratio, bool showProgress);

// When the composition of solid s (over the mass-balance components) is a
// combination of present solids, s cannot simply join them: their
// saturation conditions would fix its own, and the Newton system would be
// singular. Being oversaturated, s forms from them instead, until the first
// of them is used up; that one leaves. False when s is no such combination
// (or could form from none of them); nothing is changed then.
bool ReplacePresentSolids(CalcContext& ctx, int32_t s, double ratio, bool showProgress);

// Start of a solve: every solid absent, no progress lines.
void StartSolids(CalcContext& ctx);

// After each update of the free concentrations: a present solid that keeps
// shrinking and has come to hold a negligible share of its components is
// taken out of the equilibrium (amount 0, out of the Newton system); its
// components are back in solution. Clears `converged` when one leaves.
void ReleaseDissolvedSolids(CalcContext& ctx, bool& converged);

// Whether a present solid holds system component j.
bool PresentSolidHolds(const CalcContext& ctx, int32_t j);

// The present-solid part of the Newton system.
void AddSolidUnknown(NewtonSystem& ns, int32_t s, double amount);
void RemoveSolidUnknown(NewtonSystem& ns, int32_t k);

// The solids bar of the progress report: scaled from the ratio of the first
// solid that enters, positioned by the ratio of each check.
void RescaleSolidBar(SolverState& state, double ratio);
void PositionSolidBar(SolverState& state, double ratio);

}  // namespace tormel
