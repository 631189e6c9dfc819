// The site layout of the organic models: species kinds, the parameters by
// role, the pairs and triples of each model, the site totals and the proton
// constants of the eight sites.
#include <cmath>

#include "calc/organic_model.h"

namespace tormel {

namespace {

constexpr int32_t kModel5BlockSize = 8;
constexpr int32_t kModel67BlockSize = 12;

bool TypeA(int32_t site) { return site <= 4; }

}  // namespace

// --- kinds ---

SpeciesKind OrganicKindBase(int32_t model, int32_t fraction) {
    // blocks start at kinds 9 and 17 (Model 5), 25 and 37 (Model 6), 49 and 61 (Model 7)
    switch (model) {
        case Model5:
            return OrganicKind(fraction == kFulvic ? 0 : 8);
        case Model6:
            return OrganicKind(fraction == kFulvic ? 16 : 28);
        default:
            return OrganicKind(fraction == kFulvic ? 40 : 52);
    }
}

SpeciesKind SiteSpeciesKind(int32_t model, int32_t fraction, int32_t size, bool protonated) {
    const SpeciesKind base = OffsetKind(OrganicKindBase(model, fraction), size - 1);
    if (model == Model5) return OffsetKind(base, protonated ? M5ProtonatedSingle : M5FreeSingle);
    return OffsetKind(base, protonated ? M67ProtonatedSingle : M67FreeSingle);
}

SpeciesKind MetalSpeciesKind(int32_t model, int32_t fraction, int32_t size, bool hydrolysed) {
    const int32_t first = model == Model5 ? M5MetalSingle : M67MetalSingle;
    return OffsetKind(OrganicKindBase(model, fraction), first + 2 * (size - 1) + (hydrolysed ? 1 : 0));
}

int32_t FractionOfKind(SpeciesKind kind) {
    const int32_t n = OrganicKindNumber(kind);
    if (n < 0 || n >= kOrganicKindCount) return -1;
    if (n < 8) return kFulvic;
    if (n < 16) return kHumic;
    if (n < 28) return kFulvic;
    if (n < 40) return kHumic;
    if (n < 52) return kFulvic;
    return kHumic;
}

bool IsOrganicMetalKind(SpeciesKind kind) {
    const int32_t n = OrganicKindNumber(kind);
    if (n < 0 || n >= kOrganicKindCount) return false;
    if (n < 16) return n % kModel5BlockSize >= M5MetalSingle;
    return (n - 16) % kModel67BlockSize >= M67MetalSingle;
}

// --- parameters ---

OrganicParameters ParametersOf(const OrganicModelParameters& block, int32_t model, int32_t fraction) {
    OrganicParameters p;
    const auto value = [&](int32_t position, int32_t set) {
        return position < static_cast<int32_t>(block.values.size()) ? block.values[position][set] : 0.0;
    };
    const int32_t shift = model == Model5 ? 0 : 1;  // Models 6 and 7 add the triple share at 5
    p.pKA = value(0, fraction);
    p.deltaPKA = value(1, fraction);
    p.pKB = value(2, fraction);
    p.deltaPKB = value(3, fraction);
    p.pairShare = value(4, fraction);
    p.tripleShare = model == Model5 ? 0.0 : value(5, fraction);
    p.nA = value(5 + shift, fraction);
    p.nB = value(6 + shift, fraction);
    p.electrostaticP = value(7 + shift, fraction);
    p.radius = value(8 + shift, fraction);
    p.molarMass = value(9 + shift, fraction);
    p.diffuseFactor = value(10 + shift, fraction);
    p.maxDiffuseVolume = value(11 + shift, kFulvic);
    return p;
}

double SiteProtonationLogK(const OrganicParameters& p, int32_t site) {
    if (TypeA(site)) return p.pKA + p.deltaPKA * (2 * site - 5) / 6.0;
    return p.pKB + p.deltaPKB * (2 * site - 13) / 6.0;
}

// --- combinations ---

const std::vector<std::array<int32_t, 2>>& OrganicPairs(int32_t model) {
    static const std::vector<std::array<int32_t, 2>> model5 = {{1, 2}, {1, 4}, {1, 6}, {1, 8}, {2, 3}, {2, 5},
                                                               {2, 7}, {3, 4}, {3, 6}, {3, 8}, {4, 5}, {4, 7}};
    static const std::vector<std::array<int32_t, 2>> model6 = {{1, 2}, {3, 4}, {1, 5}, {2, 6},
                                                               {3, 7}, {4, 8}, {5, 6}, {7, 8}};
    static const std::vector<std::array<int32_t, 2>> model7 = {{1, 2}, {3, 4}, {1, 5}, {2, 6}, {3, 7}, {4, 8}};
    if (model == Model5) return model5;
    return model == Model6 ? model6 : model7;
}

const std::vector<std::array<int32_t, 3>>& OrganicTriples(int32_t model) {
    static const std::vector<std::array<int32_t, 3>> none;
    static const std::vector<std::array<int32_t, 3>> model6 = {
        {1, 2, 3}, {1, 2, 4}, {1, 3, 4}, {2, 3, 4}, {1, 2, 5}, {3, 4, 6}, {1, 3, 7}, {2, 4, 8},
        {1, 5, 6}, {3, 4, 6}, {1, 3, 7}, {4, 6, 8}, {5, 6, 7}, {5, 6, 8}, {5, 7, 8}, {6, 7, 8}};
    static const std::vector<std::array<int32_t, 3>> model7 = {{1, 2, 5}, {1, 2, 6}, {1, 2, 7}, {1, 2, 8},
                                                               {3, 4, 5}, {3, 4, 6}, {3, 4, 7}, {3, 4, 8}};
    if (model == Model5) return none;
    return model == Model6 ? model6 : model7;
}

bool HasStrengthLevels(int32_t model) { return model != Model5; }

// --- totals ---

double SingleSiteTotal(int32_t model, const OrganicParameters& p, double c, int32_t site) {
    const double single = 1 - p.pairShare - (model == Model5 ? 0.0 : p.tripleShare);
    return single * (TypeA(site) ? p.nA : p.nB) / 4 * c;
}

double CombinationMemberTotal(int32_t model, const OrganicParameters& p, double c, int32_t size, int32_t number,
                              int32_t level) {
    if (size == 2) {
        const double base = p.pairShare * p.nA * c;
        if (model == Model5) return base / 16;
        double divisor = 8;  // Model 7: every pair alike
        if (model == Model6) divisor = number <= 2 ? 6 : (number <= 6 ? 12 : 24);
        return base / divisor * kLevelShares[level];
    }
    const double base = p.tripleShare * p.nA * c;
    double divisor = 16;  // Model 7
    if (model == Model6) divisor = number <= 4 ? 27 : (number <= 8 ? 18 : (number <= 12 ? 36 : 216));
    return base / divisor * kLevelShares[level];
}

}  // namespace tormel
