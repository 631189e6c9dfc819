// Display numbers, units and the output options.
#include <gtest/gtest.h>

#include "output/amount_units.h"
#include "output/number_text.h"
#include "shell/output_settings.h"
#include "support/comma_locale.h"
#include "support/temp_folder.h"

namespace tormel::test {
namespace {

const DecimalSeparator kPoint{"."};
const DecimalSeparator kComma{","};

TEST(NumberText, DigitsSeparatorAndZeroFollowTheUserSettings) {
    EXPECT_EQ(FormatNumber(1.234567e-3, ScientificFormat(5), false, kPoint), "1.23457E-03");
    EXPECT_EQ(FormatNumber(-0.0, "%.5E", false, kPoint), "0.00000E+00");
    EXPECT_EQ(FormatNumber(-0.0, "%.2f%%", false, kPoint), "0.00%");
    EXPECT_EQ(FormatNumber(-1e-9, "%.2f%%", false, kPoint), "-0.00%") << "only an exact zero loses its sign";
    EXPECT_EQ(FormatNumber(-2.5, "%9.3f", false, kPoint), "-2.500") << "the padding blanks go";
    EXPECT_EQ(FormatNumber(1.234e-3, "%.3E", false, kComma), "1,234E-03");
    EXPECT_EQ(FormatNumber(1.234e-3, "%.3E", true, kComma), "1.234E-03") << "plain keeps the point";
    EXPECT_EQ(FormatNumber(-1.234567891e-100, "%.9E", false, kPoint), "-1.234567891E-10")
        << "display texts hold at most 16 characters";
}

TEST(NumberText, ParsingTakesTheUsersSeparatorAndIgnoresTheProcessLocale) {
    CommaLocale locale;
    EXPECT_DOUBLE_EQ(ParseNumber("1,5E-03", kComma), 1.5e-3);
    EXPECT_DOUBLE_EQ(ParseNumber("  2,25 mg", kComma), 2.25);
    EXPECT_DOUBLE_EQ(ParseNumber("1.5", kPoint), 1.5);
    EXPECT_DOUBLE_EQ(ParseNumber("abc", kPoint), 0);
    // formatting stays in the C locale whatever the process uses
    EXPECT_EQ(FormatNumber(0.5, "%.3E", true, kComma), "5.000E-01");
}

TEST(AmountUnits, MassUnitsUseTheMolarMassAndGasesTheirPressureUnit) {
    EXPECT_DOUBLE_EQ(ConvertAmount(1e-3, 40.078, 1, 1), 40.078);
    EXPECT_DOUBLE_EQ(ConvertAmount(1e-3, 40.078, 0, 2), 1000);
    EXPECT_DOUBLE_EQ(ConvertAmount(2e-9, 10, 0, 3), 2);
    EXPECT_EQ(UnitLabel(false, false, false, 1, 1), "mg/L");
    EXPECT_EQ(UnitLabel(true, false, false, 1, 1), "mM") << "molar only: activities stay molar";
    EXPECT_EQ(UnitLabel(true, false, true, 0, 0), "g/L");
    EXPECT_EQ(UnitLabel(false, true, false, 1, 0), "atm");
    EXPECT_EQ(UnitLabel(false, true, false, 0, 2), "\u00B5-atm");
    EXPECT_EQ(UnitLabel(false, false, false, 0, 3), "nM");
}

TEST(OutputOptions, AreReadOnceAndOnlyWhileUnitsAreRemembered) {
    TempFolder folder;
    Settings settings(folder.File("TORMEL64.INI"));
    settings.WriteSettingInt("Units", "NumDec", 5);
    settings.WriteSettingInt("Units", "Units", 1);
    settings.WriteSettingInt("Units", "Order", 2);
    settings.WriteSettingBool("Output", "OutpShowAll", true);
    settings.WriteSettingString("Output", "OutpCutOff", "1E-2");

    OutputOptions options;
    LoadOutputOptions(options, settings);
    EXPECT_EQ(options.formats.scientific, "%.5E");
    EXPECT_EQ(options.units.units, 1);
    EXPECT_EQ(options.units.order, 2);
    EXPECT_TRUE(options.showAll);
    EXPECT_DOUBLE_EQ(options.cutOff, 0.01);
    settings.WriteSettingBool("Output", "OutpShowAll", false);
    settings.WriteSettingInt("Units", "NumDec", 7);
    LoadOutputOptions(options, settings);
    EXPECT_TRUE(options.showAll) << "later requests keep the values in memory";
    EXPECT_EQ(options.formats.scientific, "%.5E");

    options.cutOff = 0.001;
    options.freeAlways = false;
    SaveOutputOptions(options, settings);
    EXPECT_EQ(settings.ReadSettingString("Output", "OutpCutOff"), "1.000000000E-03");
    EXPECT_EQ(settings.ReadSettingString("Output", "OutpFreeAlways"), "0");

    settings.WriteSettingBool("Options", "Remember-Units", false);
    OutputOptions forgetting;
    LoadOutputOptions(forgetting, settings);
    EXPECT_EQ(forgetting.formats.scientific, "%.3E");
    EXPECT_FALSE(forgetting.showAll);
    EXPECT_DOUBLE_EQ(forgetting.cutOff, 0.0001);
    EXPECT_EQ(forgetting.units.units, 0);
    forgetting.cutOff = 0.5;
    SaveOutputOptions(forgetting, settings);
    EXPECT_EQ(settings.ReadSettingString("Output", "OutpCutOff"), "1.000000000E-03");
    EXPECT_EQ(settings.ReadSettingInt("Units", "NumDec", 0), 5) << "units are not saved either";
}

}  // namespace
}  // namespace tormel::test
