#pragma once
// Enumerations shared by the database, the input problem and the calculation.
#include <cstdint>

namespace tormel {

enum ComponentType : int32_t {
    Cation = 1,
    Electron = 2,
    Ligand = 3,
    Ads = 4,
    RedSol = 5,
    Gas = 6,
    Organic = 7,
};

enum EquilibriumType : int32_t {
    EqWater = 1,
    EqComplex = 2,
    EqAdsorption = 3,
    EqRedox = 4,
    EqGas = 5,
    EqSolid = 6,
    EqOrganic = 7,
};

enum OrganicModelCode : int32_t {
    Model5 = 2,
    Model6 = 3,
    Model7 = 4,
};

enum SpeciesKind : int32_t {
    FreeComponent = 1,
    FreeHydroxide = 2,
    GasLigand = 3,
    RedoxPartner = 4,
    RedoxPartnerSolid = 5,
    ComplexSpecies = 6,
    AdsorbedSpecies = 7,
    SolidSpecies = 8,
    // 9..72: organic kinds
};

enum InputType : int32_t {
    InpTypeNotSpecified = 0,
    InpTypeFreeConc = 1,
    InpTypeFreeAct = 2,
    InpTypeTotalConc = 3,
    InpTypeGasPres = 4,
};

// Species that count as dissolved: in the dissolved sums, the ionic strength
// and the charge balance.
constexpr bool IsDissolvedKind(int32_t kind) {
    return kind == FreeComponent || kind == FreeHydroxide || kind == GasLigand || kind == RedoxPartner ||
           kind == ComplexSpecies;
}
constexpr bool IsSolidKind(int32_t kind) { return kind == RedoxPartnerSolid || kind == SolidSpecies; }
// Species bound by dissolved organic matter (kinds 9 to 72); their sums are
// the organic model's own.
constexpr bool IsOrganicKind(int32_t kind) { return kind > SolidSpecies; }

// Index rule of every two-dimensional table.
constexpr int32_t Position(int32_t column, int32_t row, int32_t columnCount) {
    return row * columnCount + column;
}

}  // namespace tormel
