// Reading typed numbers under both separators, and the display units of the
// editor's lists read back to the stored value.
#include <gtest/gtest.h>

#include "shell/input_editing.h"

namespace tormel {
namespace {

TEST(InputEditing, TypedNumbersFollowTheUserSeparatorAndRange) {
    DecimalSeparator point, comma;
    comma.symbol = ",";
    struct Case {
        const char* text;
        const DecimalSeparator& separator;
        TypedRange range;
        std::optional<double> value;
        const char* hint;
    } cases[] = {
        {" 1.5 ", point, TypedRange::Any, 1.5, ""},
        {"1,5", point, TypedRange::Any, std::nullopt, "HintNotANumber"},
        {"1,5", comma, TypedRange::Any, 1.5, ""},
        {"1.5", comma, TypedRange::Any, std::nullopt, "HintNotANumber"},
        {"2,5E-3", comma, TypedRange::NonNegative, 2.5e-3, ""},
        {"abc", point, TypedRange::Any, std::nullopt, "HintNotANumber"},
        {"", point, TypedRange::Any, std::nullopt, "HintNotANumber"},
        {"-1", point, TypedRange::NonNegative, std::nullopt, "HintNegative"},
        {"0", point, TypedRange::Positive, std::nullopt, "HintNotPositive"},
        {"1.01", point, TypedRange::Fraction, std::nullopt, "HintFraction"},
        {"1", point, TypedRange::Fraction, 1.0, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.text) + " with " + c.separator.symbol);
        const TypedNumber typed = ReadTypedNumber(c.text, c.separator, c.range);
        EXPECT_EQ(typed.value, c.value);
        EXPECT_EQ(typed.hintKey, c.hint);
    }
}

TEST(InputEditing, ShownValuesReadBackToTheStoredValue) {
    Component calcium{.type = ComponentType::Cation, .name = "Ca", .molarMass = 40.078};
    Component gas{.type = ComponentType::Gas, .name = "CO2(g)"};
    Component site{.type = ComponentType::Ads, .name = "Hfo_sOH"};
    struct Case {
        const Component& component;
        int32_t units, order;
        double shown;
        double stored;
        const char* label;
    } cases[] = {
        {calcium, 0, 1, 1, 1e-3, "mM"},
        {calcium, 1, 1, 40.078, 1e-3, "mg/L"},
        {gas, 1, 2, 350, 3.5e-4, "\u00B5-atm"},
        {site, 1, 1, 2, 2e-3, "mM"},  // no molar mass: molar units of the chosen order
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        UnitSettings units;
        units.units = c.units;
        units.order = c.order;
        EXPECT_NEAR(StoredValue(c.component, c.shown, units).value(), c.stored, c.stored * 1e-14);
        EXPECT_NEAR(ShownValue(c.component, c.stored, units), c.shown, c.shown * 1e-14);
        EXPECT_EQ(ShownUnitLabel(c.component, units), c.label);
    }
    UnitSettings mass;
    mass.units = 1;
    EXPECT_FALSE(StoredValue(Component{.type = ComponentType::Ligand, .name = "X"}, 1, mass)) << "mass units need a molar mass";
}

}  // namespace
}  // namespace tormel
