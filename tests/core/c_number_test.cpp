#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "core/c_number.h"
#include "support/comma_locale.h"

namespace tormel {
namespace {

using test::CommaLocale;


TEST(CoreCNumber, FormatsWithAPointWhateverTheProcessLocale) {
    CommaLocale comma;
    EXPECT_EQ(FormatC("%.16G", 1e-7), "1E-07");
    EXPECT_EQ(FormatC("%.16G", 0.1), "0.1");
    EXPECT_EQ(FormatC("%9.9E", 0.0001), "1.000000000E-04");
    EXPECT_EQ(FormatC("%.16G", -2.5), "-2.5");
    EXPECT_EQ(ParseDoubleC(" 2.5 "), 2.5);
    if (comma.active()) {
        char buffer[32];
        std::snprintf(buffer, sizeof buffer, "%.1f", 2.5);
        EXPECT_EQ(std::string(buffer), "2,5") << "the process locale should use a comma here";
    }
}

TEST(CoreCNumber, LongOutputIsNotCut) {
    std::string s = FormatC("%300.1f", 1.0);
    EXPECT_EQ(s.size(), 300u);
    EXPECT_EQ(s.substr(297), "1.0");
}

TEST(CoreCNumber, ParsingRefusesTrailingTextAndEmptyInput) {
    EXPECT_FALSE(ParseDoubleC("1.5x"));
    EXPECT_FALSE(ParseDoubleC("   "));
    EXPECT_FALSE(ParseDoubleC("1,5"));
    size_t used = 0;
    EXPECT_DOUBLE_EQ(StrToDoubleC("1.5x", &used), 1.5);
    EXPECT_EQ(used, 3u);
}

TEST(CoreCNumber, PlatformIntegerConversionTakesLeadingDigits) {
    EXPECT_EQ(StrToIntPlatform(" 42 "), 42);
    EXPECT_EQ(StrToIntPlatform("-7abc"), -7);
    EXPECT_EQ(StrToIntPlatform("abc"), 0);
    EXPECT_EQ(StrToIntPlatform(""), 0);
    EXPECT_EQ(StrToIntPlatform("99999999999"), 2147483647);
}

}  // namespace
}  // namespace tormel
