#pragma once
// Van 't Hoff correction of equilibrium constants from 25 °C to the
// temperature of the calculation.
#include <cstdint>

#include "core/chemical_system.h"

namespace tormel {

constexpr double kGasConstant = 8.3144598;  // J/(mol K)
constexpr double kZeroCelsius = 273.15;
constexpr double kReferenceTemperature = 25.0;

// Shift of log K from 25 °C to T (°C) for a reaction enthalpy dH (J/mol):
// dH/(R ln 10) (1/298.15 - 1/(T + 273.15)); exactly 0 at 25 °C.
double TemperatureTerm(double temperature, double enthalpy);

// The same shift for the reverse reaction (the assembly's VH term):
// log10(exp(dH/R (1/T - 1/298.15))) = -TemperatureTerm.
double ReverseTemperatureTerm(double temperature, double enthalpy);

// Whether the log K values of the assembled system are corrected, by the
// correction mode: 0 never, 1 only when no species has an unknown enthalpy,
// anything else always (an unknown enthalpy then contributes 0).
bool DecideTemperatureCorrection(const ChemicalSystem& chem, int32_t mode);

}  // namespace tormel
