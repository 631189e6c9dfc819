#include "calc/temperature.h"

#include <cmath>

namespace tormel {

double TemperatureTerm(double temperature, double enthalpy) {
    if (temperature == kReferenceTemperature) return 0;
    const double exponent =
        (enthalpy / kGasConstant) * (1 / (temperature + kZeroCelsius) - 1 / (kReferenceTemperature + kZeroCelsius));
    return -std::log10(std::exp(exponent));
}

double ReverseTemperatureTerm(double temperature, double enthalpy) {
    if (temperature == kReferenceTemperature) return 0;
    return -TemperatureTerm(temperature, enthalpy);
}

bool DecideTemperatureCorrection(const ChemicalSystem& chem, int32_t mode) {
    if (mode == 0) return false;
    if (mode == 1) {
        for (const Species& sp : chem.species)
            if (sp.enthalpyStatus == 0) return false;
        return true;
    }
    return true;
}

}  // namespace tormel
