#include <gtest/gtest.h>

#include "core/token_reader.h"

namespace tormel {
namespace {

// Numbers are read as the C library reads them: integers with hexadecimal
// and octal prefixes, reals in the C locale up to the longest number; a
// matching failure keeps the last value.
TEST(CoreTokenReader, NumbersFollowTheCLibrary) {
    TokenReader ints(u"  12\n\t-7 0x1F 010 +3 abc");
    int32_t i = 0;
    for (const int32_t expected : {12, -7, 31, 8, 3}) {
        ASSERT_TRUE(ints.ReadInt(i)) << expected;
        EXPECT_EQ(i, expected);
        if (expected == -7) { EXPECT_EQ(ints.Line(), 2); }
    }
    EXPECT_FALSE(ints.ReadInt(i));
    EXPECT_EQ(i, 3);

    TokenReader reals(u" 1.5E-07 -2 .25x");
    double d = 0;
    for (const double expected : {1.5e-7, -2.0, 0.25}) {
        ASSERT_TRUE(reals.ReadDouble(d)) << expected;
        EXPECT_DOUBLE_EQ(d, expected);
    }
    EXPECT_FALSE(reals.ReadDouble(d));  // "x" is no number
    TokenReader comma(u"3,5");          // a decimal comma stops the number
    ASSERT_TRUE(comma.ReadDouble(d));
    EXPECT_DOUBLE_EQ(d, 3);
}

TEST(CoreTokenReader, QuotedNamesSkipTextBeforeTheQuoteAndKeepBlanks) {
    TokenReader r(u"rest of line\n junk \"Fe(OH)2 +\" 2 \"e\"");
    std::string name;
    ASSERT_TRUE(r.ReadQuotedName(name));
    EXPECT_EQ(name, "Fe(OH)2 +");
    int32_t v = 0;
    ASSERT_TRUE(r.ReadInt(v));
    EXPECT_EQ(v, 2);
    ASSERT_TRUE(r.ReadQuotedName(name));
    EXPECT_EQ(name, "e");
}

TEST(CoreTokenReader, LongNameIsCutAndTheRecordAfterItStillReads) {
    std::u16string longName(300, u'x');
    TokenReader r(u"\"" + longName + u"\" 3 -1 35.45\n\"Cl\"");
    std::string name;
    ASSERT_TRUE(r.ReadQuotedName(name));
    EXPECT_EQ(name.size(), 258u);
    int32_t type = 0, charge = 0;
    double mass = 0;
    ASSERT_TRUE(r.ReadInt(type));
    ASSERT_TRUE(r.ReadInt(charge));
    ASSERT_TRUE(r.ReadDouble(mass));
    EXPECT_EQ(type, 3);
    EXPECT_EQ(charge, -1);
    EXPECT_DOUBLE_EQ(mass, 35.45);
    ASSERT_TRUE(r.ReadQuotedName(name));
    EXPECT_EQ(name, "Cl");
}

TEST(CoreTokenReader, UnclosedOrMissingQuoteFails) {
    std::string name;
    TokenReader unclosed(u"\"Ca 2 40.08");
    EXPECT_FALSE(unclosed.ReadQuotedName(name));
    EXPECT_TRUE(unclosed.AtEnd());
    TokenReader none(u"no quotes here");
    EXPECT_FALSE(none.ReadQuotedName(name));
}

TEST(CoreTokenReader, LinesAreReadWithACharacterLimitLikeFgetws) {
    TokenReader r(u"abcdef\nxy");
    std::u16string line;
    ASSERT_TRUE(r.ReadLine(line, 4));
    EXPECT_EQ(line, u"abcd");
    ASSERT_TRUE(r.ReadLine(line, 4));
    EXPECT_EQ(line, u"ef\n");
    ASSERT_TRUE(r.ReadLine(line, 4));
    EXPECT_EQ(line, u"xy");  // last line without a line feed
    EXPECT_FALSE(r.ReadLine(line, 4));
}

}  // namespace
}  // namespace tormel
