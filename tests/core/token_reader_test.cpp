#include <gtest/gtest.h>

#include "core/token_reader.h"

namespace tormel {
namespace {

TEST(CoreTokenReader, IntegersFollowTheCLibrary) {
    TokenReader r(u"  12\n\t-7 0x1F 010 +3 abc");
    int32_t v = 0;
    ASSERT_TRUE(r.ReadInt(v));
    EXPECT_EQ(v, 12);
    ASSERT_TRUE(r.ReadInt(v));
    EXPECT_EQ(v, -7);
    EXPECT_EQ(r.Line(), 2);
    ASSERT_TRUE(r.ReadInt(v));
    EXPECT_EQ(v, 31);  // hexadecimal prefix
    ASSERT_TRUE(r.ReadInt(v));
    EXPECT_EQ(v, 8);  // leading zero reads octal
    ASSERT_TRUE(r.ReadInt(v));
    EXPECT_EQ(v, 3);
    EXPECT_FALSE(r.ReadInt(v));  // matching failure
    EXPECT_EQ(v, 3);
}

TEST(CoreTokenReader, RealsTakeTheLongestNumberInCLocale) {
    TokenReader r(u" 1.5E-07 -2 .25x");
    double v = 0;
    ASSERT_TRUE(r.ReadDouble(v));
    EXPECT_DOUBLE_EQ(v, 1.5e-7);
    ASSERT_TRUE(r.ReadDouble(v));
    EXPECT_DOUBLE_EQ(v, -2);
    ASSERT_TRUE(r.ReadDouble(v));
    EXPECT_DOUBLE_EQ(v, 0.25);
    EXPECT_FALSE(r.ReadDouble(v));  // "x" is no number
    TokenReader comma(u"3,5");      // a decimal comma stops the number
    ASSERT_TRUE(comma.ReadDouble(v));
    EXPECT_DOUBLE_EQ(v, 3);
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
