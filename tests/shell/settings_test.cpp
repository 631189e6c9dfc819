#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "core/c_number.h"
#include "shell/settings.h"
#include "shell/unit_settings.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

// A settings file in a folder of its own, and the same file read raw.
struct ShellSettings : ::testing::Test {
    test::TempFolder tmp;
    Settings settings{tmp.File("TORMEL64.INI")};
    IniFile raw{settings.Path()};
};

TEST_F(ShellSettings, BooleansAndIntegersAreTextReadAsTheLeadingInteger) {

    ASSERT_TRUE(settings.WriteSettingBool("Options", "Check_Updates", false));
    EXPECT_EQ(raw.ReadString("Options", "Check_Updates", ""), "0");
    EXPECT_FALSE(settings.ReadSettingBool("Options", "Check_Updates", true));
    ASSERT_TRUE(settings.WriteSettingBool("Options", "Check_Updates", true));
    EXPECT_EQ(raw.ReadString("Options", "Check_Updates", ""), "1");

    ASSERT_TRUE(settings.WriteSettingInt("Options", "MainWindow_Left", -7));
    EXPECT_EQ(raw.ReadString("Options", "MainWindow_Left", ""), "-7");
    EXPECT_EQ(settings.ReadSettingInt("Options", "MainWindow_Left", 0), -7);

    // Hand-edited values: any non-zero leading number is true, text is 0.
    raw.WriteString("Options", "OfferGetStarted", "2");
    raw.WriteString("Options", "Remember-Folders", "yes");
    raw.WriteString("Options", "VertBarLeft", "  180px");
    EXPECT_TRUE(settings.ReadSettingBool("Options", "OfferGetStarted", false));
    EXPECT_FALSE(settings.ReadSettingBool("Options", "Remember-Folders", true));
    EXPECT_EQ(settings.ReadSettingInt("Options", "VertBarLeft", 175), 180);

    // A missing key gives the caller's default (the table's are checked below).
    EXPECT_EQ(settings.ReadSettingInt("Options", "MainWindow_Top", 42), 42);
}

TEST_F(ShellSettings, DoublesUseTheExponentFormat) {

    // A missing key returns the default as it would have been stored.
    EXPECT_EQ(settings.ReadSettingDouble("Output", "OutpCutOff"), 0.0001);
    EXPECT_EQ(settings.ReadSettingDouble("Output", "Missing", 1.0 / 3.0), 0.3333333333);

    ASSERT_TRUE(settings.WriteSettingDouble("Output", "OutpCutOff", 2.5e-5));
    EXPECT_EQ(raw.ReadString("Output", "OutpCutOff", ""), "2.500000000E-05");
    EXPECT_EQ(settings.ReadSettingDouble("Output", "OutpCutOff", 1.0), 2.5e-5);
    // (the point under a decimal-comma locale: CoreCNumber.FormatsWithAPointWhateverTheProcessLocale)
}

TEST_F(ShellSettings, StringsAreReadUpTo8192Characters) {
    const std::string longText(9000, 'x');
    ASSERT_TRUE(settings.WriteSettingString("Output", "Printer", longText));
    EXPECT_EQ(settings.ReadSettingString("Output", "Printer", ""), std::string(8192, 'x'));
    EXPECT_EQ(settings.ReadSettingString("Output", "Missing", "HP LaserJet"), "HP LaserJet");
}

TEST_F(ShellSettings, ResettingTheOptionsMakesEveryOptionsKeyReadItsDefault) {
    int optionKeys = 0;
    for (const SettingKey& row : SettingsKeyTable()) {
        if (row.section != "Options") continue;
        ++optionKeys;
        const bool isTrueBool = row.type == SettingType::Bool && row.defaultText == "1";
        ASSERT_TRUE(settings.WriteSettingString(row.section, row.key, isTrueBool ? "0" : "12345"));
    }
    ASSERT_GT(optionKeys, 30);
    ASSERT_TRUE(settings.WriteSettingInt("Units", "NumDec", 6));

    ASSERT_TRUE(settings.DeleteSettingsSection("Options"));
    for (const SettingKey& row : SettingsKeyTable()) {
        if (row.section != "Options") continue;
        SCOPED_TRACE(std::string(row.key));
        EXPECT_EQ(settings.ReadSettingString(row.section, row.key, "<missing>"), "<missing>");
        if (row.callerDefault) continue;
        switch (row.type) {
            case SettingType::Bool:
                EXPECT_EQ(settings.ReadSettingBool(row.section, row.key), row.defaultText == "1");
                break;
            case SettingType::Int:
                EXPECT_EQ(FormatC("%d", settings.ReadSettingInt(row.section, row.key)), row.defaultText);
                break;
            case SettingType::Double:
            case SettingType::String:
                EXPECT_EQ(settings.ReadSettingString(row.section, row.key), row.defaultText);
                break;
        }
    }
    EXPECT_EQ(settings.ReadSettingInt("Units", "NumDec"), 6);
}

TEST_F(ShellSettings, WithoutAFileEveryReadGivesItsDefaultAndWritesFail) {
    Settings none;
    EXPECT_TRUE(none.ReadSettingBool("Options", "Remember-Units"));
    EXPECT_EQ(none.ReadSettingInt("Output", "PrintMargin3"), 1000);
    EXPECT_FALSE(none.WriteSettingInt("Output", "PrintMargin3", 5));
}

TEST_F(ShellSettings, UnitValuesOutsideTheirRangeGiveTheDefault) {
    settings.WriteSettingInt("Units", "NumDec", 12);
    settings.WriteSettingInt("Units", "Units", 2);
    settings.WriteSettingInt("Units", "Order", -1);
    UnitSettings units;
    LoadUnitSettings(units, settings);
    EXPECT_EQ(units.numDec, 3);
    EXPECT_EQ(units.units, 0);
    EXPECT_EQ(units.order, 0);
}

}  // namespace
}  // namespace tormel
