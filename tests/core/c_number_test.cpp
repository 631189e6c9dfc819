#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cstdint>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <vector>
#include <string>

#include "core/c_number.h"
#include "core/fast_format.h"
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

// Every format the program writes, and some it might, against the C
// library's printf in the C locale: the same characters for values at
// rounding edges, extremes, zeros of both signs, infinities and NaN, and
// random values of every magnitude.
TEST(CoreCNumber, FormatsExactlyAsTheCLibrary) {
    const char* const formats[] = {"%.16G", "%.3E", "%9.3f", "%.2f%%", "%9.9E", "%.5E", "%G", "%e", "%f",
                                   "%.0f", "%10.4G", "%-9.3f|", "%.0E", "%.12E", "%.17G", "%.16E", "%.15g", "%.0G", "%g", "%F", "x %.16G y"};
    std::vector<double> values = {0.0, -0.0, 1e-7, 1, -1, 0.1, 2.5, 0.125, 9.9995, 0.00049999, 0.0005,
                                  99999.5, 1e15, 1e16, 9.999999999999999e15, 123456789012345678.0, 1e300,
                                  -1e-300, 5e-324, 2.2250738585072014e-308, 1.7976931348623157e308,
                                  std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                                  std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::quiet_NaN()};
    std::mt19937_64 rng(11);
    std::uniform_real_distribution<double> exponent(-320, 308), unit(0, 1);
    for (int i = 0; i < 2000; ++i) values.push_back((unit(rng) < 0.5 ? -1 : 1) * std::pow(10.0, exponent(rng)));
    // the magnitudes of logarithms and percentages, and decimal halves of them
    std::uniform_real_distribution<double> small(-6, 9);
    for (int i = 0; i < 2000; ++i) {
        const double v = (unit(rng) < 0.5 ? -1 : 1) * std::pow(10.0, small(rng));
        values.push_back(v);
        values.push_back(std::round(v * 1000) / 1000 + 0.0005);
    }
    // decimal halves and powers of ten in scientific notation: m.mmm5E+e
    for (int i = 0; i < 2000; ++i) {
        const double e = std::floor(exponent(rng));
        const double m = std::round(unit(rng) * 9000 + 1000) + 0.5;  // 1000.5 .. 10000.5
        values.push_back(m * std::pow(10.0, e - 3));
        values.push_back(std::pow(10.0, e) * (1 - 1e-12 * unit(rng)));
        const double m9 = std::round(unit(rng) * 9e9 + 1e9) + 0.5;  // ten digits and a half
        values.push_back(m9 * std::pow(10.0, e - 9));
        // sixteen digits and a half: exact below 2^52, the ties printf breaks to even
        const double m15 = std::round(unit(rng) * 3e15 + 1e15) + 0.5;
        values.push_back(m15);
        values.push_back(m15 * std::pow(10.0, e - 15));
        values.push_back(std::nextafter(m15, 0.0));
    }
    char expected[512];
    std::string parsedOnce;
    for (const char* format : formats)
        for (double v : values) {
            std::snprintf(expected, sizeof expected, format, v);
            ASSERT_EQ(FormatC(format, v), expected) << format << " of " << std::hexfloat << v;
            DoubleFormat(format).Format(v, parsedOnce);
            ASSERT_EQ(parsedOnce, expected) << format << " parsed once, of " << std::hexfloat << v;
        }
    for (int v : {0, -1, 7, 42, -2147483647 - 1, 2147483647}) {
        std::snprintf(expected, sizeof expected, "%i %6d|%-6d|%d%%", v, v, v, v);
        EXPECT_EQ(FormatC("%i %6d|%-6d|%d%%", v, v, v, v), expected);
    }
    std::snprintf(expected, sizeof expected, "  %-12s %6d\n", "Ca", 12);
    EXPECT_EQ(FormatC("  %-12s %6d\n", "Ca", 12), expected);
    // what the fast path leaves to the C library
    EXPECT_EQ(FormatC("%+.2f %05d %#x %.3s %lu", 2.5, 42, 255, "abcdef", 7ul), "+2.50 00042 0xff abc 7");
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
}

// The same value and length as strtod for the forms it reads itself and
// those it leaves to the C library, and for random numbers in every notation.
TEST(CoreCNumber, ReadsNumbersAsStrtod) {
    std::vector<std::string> texts = {"0.001771", "5.382697825162881E-07", "-.5", ".5x", "1e", "1e+", "-0", "00x1",
                                      "0x1p3", " 2.5", "+2.5", "inf", "-nan", "1e400", "-1e-400", "4.9e-324",
                                      "2.2250738585072011e-308", "123456789012345678901234567890", "9007199254740993",
                                      "1.", ".", "-", "", "1,5", "-x", std::string(80, '7') + "e-70"};
    std::mt19937_64 rng(5);
    std::uniform_real_distribution<double> exponent(-320, 308);
    char text[64];
    for (int i = 0; i < 3000; ++i) {
        std::snprintf(text, sizeof text, i % 3 == 0 ? "%.17g" : i % 3 == 1 ? "%.6e" : "%.20f",
                      std::pow(10.0, exponent(rng)));
        texts.push_back(text);
    }
    for (const std::string& t : texts) {
        char* end = nullptr;
        const double expected = std::strtod(t.c_str(), &end);
        size_t used = 99;
        const double v = StrToDoubleC(t, &used);
        EXPECT_EQ(used, static_cast<size_t>(end - t.c_str())) << t;
        EXPECT_TRUE(std::bit_cast<uint64_t>(v) == std::bit_cast<uint64_t>(expected) ||
                    (std::isnan(v) && std::isnan(expected)))
            << t;
    }
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
