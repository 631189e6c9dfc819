#pragma once
// The database: components, equilibria, their stoichiometry, the literature
// and the organic model parameters. Loaded once, then only read: every
// calculation takes it by const reference, and the batch workers share one.
// Records refer to each other by 0-based index; H+ is component 0, so index 0
// doubles as "none" in links.
#include <array>
#include <cstdint>
#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/chemical_types.h"
#include "core/component_name_index.h"
#include "core/equilibrium_index.h"
#include "core/shared_text.h"

namespace tormel {

struct Component {
    ComponentType type{};
    std::string name;
    int32_t charge = 0;
    double molarMass = 0;
    double ionDiameter = 0;
    int32_t organicModel = 0;
    int32_t waterPartnerOfH = 0;
    int32_t waterPartnerOfOH = 0;
    int32_t gasPartner = 0;
    int32_t linkedLigand = 0;
    int32_t redoxNext = 0;
    int32_t redoxPrev = 0;
};

struct Equilibrium {
    EquilibriumType type{};
    std::string name;
    int32_t charge = 0;
    double logK = 0;
    double secondReal = 0;
    double thirdReal = 0;
    int32_t deltaZ2 = 0;
    bool hasEnthalpy = false;
    double enthalpy = 0;  // J/mol
    double complexDiameter = 0;
    int32_t literatureRef = -1;
    int32_t componentCount = 0;
    int32_t linkedComponent = 0;
    double linkedCoefficient = 0;
    int32_t organicModel = 0;
    double organicReal1 = 0;
    double organicReal2 = 0;
};

// First and last record index of one type; first == 0 means "no record".
struct TypeRange {
    int32_t first = 0;
    int32_t last = 0;
    bool empty() const { return first == 0; }
};

// Type ranges indexed by the kind itself (code 0 unused).
template <typename Kind>
struct RangesByType {
    std::array<TypeRange, 8> ranges{};
    TypeRange& operator[](Kind kind) { return ranges[static_cast<size_t>(kind)]; }
    const TypeRange& operator[](Kind kind) const { return ranges[static_cast<size_t>(kind)]; }
};

// Parameters of one organic model: [k][0] fulvic acid, [k][1] humic acid.
struct OrganicModelParameters {
    std::vector<std::array<double, 2>> values;
    int32_t literatureRef = 0;
};

constexpr int32_t kModel5ParameterCount = 12;
constexpr int32_t kModel6ParameterCount = 13;
constexpr int32_t kModel7ParameterCount = 13;
int32_t OrganicParameterCount(int32_t modelCode);

struct Database {
    std::vector<Component> components;
    std::vector<Equilibrium> equilibria;
    std::vector<int32_t> stoichiometry;  // component c, equilibrium e at c * equilibria.size() + e
    std::vector<SharedText> literature;
    std::array<OrganicModelParameters, 3> organicParameters;  // by model code - 2

    int32_t maxComponentsPerEquilibrium = 0;
    int32_t hydrogenIndex = 0;
    int32_t hydroxideIndex = 0;
    int32_t electronIndex = 0;
    int32_t waterEquilibriumIndex = 0;

    // component ranges by type (Electron unused) and Organic per model code;
    // equilibrium ranges by type and Organic per model code
    RangesByType<ComponentType> componentRange{};
    std::array<TypeRange, 3> organicComponentRange{};
    RangesByType<EquilibriumType> equilibriumRange{};
    std::array<TypeRange, 3> organicEquilibriumRange{};
    // Which components each equilibrium is made of (equilibrium_index.h),
    // built by the loader.
    std::shared_ptr<const EquilibriumIndex> equilibriumIndex;
    // The components by name, letter case ignored (component_name_index.h),
    // built by the loader.
    std::shared_ptr<const ComponentNameIndex> componentNames;

    int32_t ComponentCount() const { return static_cast<int32_t>(components.size()); }
    int32_t EquilibriumCount() const { return static_cast<int32_t>(equilibria.size()); }
    int32_t LiteratureReferenceCount() const { return static_cast<int32_t>(literature.size()); }

    int32_t Coefficient(int32_t component, int32_t equilibrium) const {
        return stoichiometry[Position(equilibrium, component, EquilibriumCount())];
    }
    int32_t& Coefficient(int32_t component, int32_t equilibrium) {
        return stoichiometry[Position(equilibrium, component, EquilibriumCount())];
    }
    OrganicModelParameters& Organic(int32_t modelCode) { return organicParameters[modelCode - 2]; }
    const OrganicModelParameters& Organic(int32_t modelCode) const { return organicParameters[modelCode - 2]; }

    // Component index by exact name; -1 when absent.
    int32_t FindComponent(std::string_view name) const;
    int32_t FindEquilibrium(std::string_view name) const;
};

// The indices of the records of `type` in ascending order: those within the
// type's range that are of that type. Used as
// `for (int32_t e : EquilibriaOfType(db, t))` or `ComponentsOfType(db, t)`.
template <class Record, class Type>
class RecordsOfType {
public:
    RecordsOfType(const std::vector<Record>& records, TypeRange range, Type type) : records_(records), type_(type) {
        const int32_t count = static_cast<int32_t>(records.size());
        first_ = range.empty() ? 0 : std::max(range.first, 0);
        end_ = range.empty() ? first_ : std::clamp(range.last + 1, first_, std::max(first_, count));
    }

    class Iterator {
    public:
        Iterator(const RecordsOfType& all, int32_t i) : all_(all), i_(all.Next(i)) {}
        int32_t operator*() const { return i_; }
        Iterator& operator++() {
            i_ = all_.Next(i_ + 1);
            return *this;
        }
        bool operator!=(const Iterator& other) const { return i_ != other.i_; }

    private:
        const RecordsOfType& all_;
        int32_t i_;
    };
    Iterator begin() const { return Iterator(*this, first_); }
    Iterator end() const { return Iterator(*this, end_); }

private:
    // The first record of the type at or after `i`, or the end.
    int32_t Next(int32_t i) const {
        while (i < end_ && records_[static_cast<size_t>(i)].type != type_) ++i;
        return i;
    }

    const std::vector<Record>& records_;
    Type type_;
    int32_t first_ = 0;
    int32_t end_ = 0;
};

inline RecordsOfType<Equilibrium, EquilibriumType> EquilibriaOfType(const Database& db, EquilibriumType type) {
    return {db.equilibria, db.equilibriumRange[type], type};
}

inline RecordsOfType<Component, ComponentType> ComponentsOfType(const Database& db, ComponentType type) {
    return {db.components, db.componentRange[type], type};
}

}  // namespace tormel
