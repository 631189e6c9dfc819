// Constants of the metal species of the organic models, from the metal's
// organic equilibrium: its log K and (Model 6) the spread Delta LK1 of the
// single sites and (Models 6, 7) the strength-level term Delta LK2.
#include "calc/organic_model.h"

namespace tormel {

namespace {

constexpr double kModel5FulvicTypeB = 3.96;  // pK_MHB = 3.96 pK_MHA (fulvic acid)
constexpr double kModel5HumicTypeBFactor = 3;  // pK_MHB = 3 pK_MHA - 3 (humic acid)
constexpr double kModel5HumicTypeBShift = 3;
constexpr double kModel6TypeBFactor = 3.39;  // log K_MB = 3.39 log K_MA - 1.15
constexpr double kModel6TypeBShift = 1.15;
constexpr double kTripleLevelFactor = 1.5;  // a triple's level term is 1.5 times a pair's

}  // namespace

double SingleSiteMetalLogK(int32_t model, int32_t fraction, const OrganicParameters& p, const Equilibrium& e,
                           int32_t site) {
    const double logK = e.logK;
    const bool typeA = site <= 4;
    switch (model) {
        case Model5:
            // the database holds pK_MHA; the species is formed by exchange with H+
            if (typeA) return -logK;
            return fraction == kFulvic ? -kModel5FulvicTypeB * logK
                                       : kModel5HumicTypeBShift - kModel5HumicTypeBFactor * logK;
        case Model6: {
            const double spread = e.organicReal1;
            if (typeA) return logK + spread * (2 * site - 5) / 6.0;
            return kModel6TypeBFactor * logK - kModel6TypeBShift + spread * (2 * site - 13) / 6.0;
        }
        default:
            if (typeA) return logK;
            return logK * p.pKB / p.pKA;
    }
}

double CombinationMetalLogK(int32_t model, int32_t fraction, const OrganicParameters& p, const Equilibrium& e,
                            const int32_t* sites, int32_t size, int32_t level) {
    double sum = 0;
    for (int32_t k = 0; k < size; ++k) sum += SingleSiteMetalLogK(model, fraction, p, e, sites[k]);
    if (model == Model5) return sum;
    const double levelTerm = level * e.organicReal2;
    return sum + (size == 3 ? kTripleLevelFactor * levelTerm : levelTerm);
}

}  // namespace tormel
