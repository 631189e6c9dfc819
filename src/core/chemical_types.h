#pragma once
// Enumerations shared by the database, the input problem and the calculation.
// Their values are the integer codes of the database, input and output files;
// the file readers and writers convert with CodeOf and the ...FromCode
// functions, which reject a code that names no kind.
#include <cstdint>
#include <optional>

namespace tormel {

// Kind of a database component.
enum class ComponentType : int32_t {
    Cation = 1,
    Electron = 2,
    Ligand = 3,
    Ads = 4,
    RedSol = 5,
    Gas = 6,
    Organic = 7,
};

// Kind of a database equilibrium.
enum class EquilibriumType : int32_t {
    Water = 1,
    Complex = 2,
    Adsorption = 3,
    Redox = 4,
    Gas = 5,
    Solid = 6,
    Organic = 7,
};

// The organic model codes stay plain integers: they index the parameter sets
// and the organic ranges (code - Model5) and are compared with stored codes.
enum OrganicModelCode : int32_t {
    Model5 = 2,
    Model6 = 3,
    Model7 = 4,
};

// Kind of an assembled species. The organic kinds FirstOrganic..LastOrganic
// are a numbered block laid out by the organic models; form them with
// OrganicKind and read their position back with OrganicKindNumber.
enum class SpeciesKind : int32_t {
    FreeComponent = 1,
    FreeHydroxide = 2,
    GasLigand = 3,
    RedoxPartner = 4,
    RedoxPartnerSolid = 5,
    ComplexSpecies = 6,
    AdsorbedSpecies = 7,
    SolidSpecies = 8,
    FirstOrganic = 9,
    LastOrganic = 72,
};

// How a component's amount is given (the balance kind of an unknown).
enum class InputType : int32_t {
    NotSpecified = 0,
    FreeConc = 1,
    FreeAct = 2,
    TotalConc = 3,
    GasPres = 4,
    // Assembled systems only: a redox group whose amount is fixed by one
    // member given as a free concentration or activity.
    RedoxMemberGiven = 5,
};

constexpr int32_t CodeOf(ComponentType type) { return static_cast<int32_t>(type); }
constexpr int32_t CodeOf(EquilibriumType type) { return static_cast<int32_t>(type); }
constexpr int32_t CodeOf(SpeciesKind kind) { return static_cast<int32_t>(kind); }
constexpr int32_t CodeOf(InputType type) { return static_cast<int32_t>(type); }

constexpr std::optional<ComponentType> ComponentTypeFromCode(int32_t code) {
    if (code < CodeOf(ComponentType::Cation) || code > CodeOf(ComponentType::Organic)) return std::nullopt;
    return static_cast<ComponentType>(code);
}
constexpr std::optional<EquilibriumType> EquilibriumTypeFromCode(int32_t code) {
    if (code < CodeOf(EquilibriumType::Water) || code > CodeOf(EquilibriumType::Organic)) return std::nullopt;
    return static_cast<EquilibriumType>(code);
}
constexpr std::optional<SpeciesKind> SpeciesKindFromCode(int32_t code) {
    if (code < CodeOf(SpeciesKind::FreeComponent) || code > CodeOf(SpeciesKind::LastOrganic)) return std::nullopt;
    return static_cast<SpeciesKind>(code);
}
constexpr std::optional<InputType> InputTypeFromCode(int32_t code) {
    if (code < CodeOf(InputType::NotSpecified) || code > CodeOf(InputType::RedoxMemberGiven)) return std::nullopt;
    return static_cast<InputType>(code);
}

// Number of organic kinds, and the organic kind at position `number`
// (0 = FirstOrganic) of the organic block.
constexpr int32_t kOrganicKindCount = CodeOf(SpeciesKind::LastOrganic) - CodeOf(SpeciesKind::FirstOrganic) + 1;
constexpr SpeciesKind OrganicKind(int32_t number) {
    return static_cast<SpeciesKind>(CodeOf(SpeciesKind::FirstOrganic) + number);
}
constexpr int32_t OrganicKindNumber(SpeciesKind kind) { return CodeOf(kind) - CodeOf(SpeciesKind::FirstOrganic); }
// The kind `offset` places after `kind` within the organic block.
constexpr SpeciesKind OffsetKind(SpeciesKind kind, int32_t offset) {
    return static_cast<SpeciesKind>(CodeOf(kind) + offset);
}

// Species that count as dissolved: in the dissolved sums, the ionic strength
// and the charge balance.
constexpr bool IsDissolvedKind(SpeciesKind kind) {
    return kind == SpeciesKind::FreeComponent || kind == SpeciesKind::FreeHydroxide || kind == SpeciesKind::GasLigand ||
           kind == SpeciesKind::RedoxPartner || kind == SpeciesKind::ComplexSpecies;
}
constexpr bool IsSolidKind(SpeciesKind kind) {
    return kind == SpeciesKind::RedoxPartnerSolid || kind == SpeciesKind::SolidSpecies;
}
// Species bound by dissolved organic matter; their sums are the organic
// model's own.
constexpr bool IsOrganicKind(SpeciesKind kind) { return kind >= SpeciesKind::FirstOrganic; }

// Index rule of every two-dimensional table.
constexpr int32_t Position(int32_t column, int32_t row, int32_t columnCount) {
    return row * columnCount + column;
}

}  // namespace tormel
