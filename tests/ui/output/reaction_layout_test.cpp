// The drawn reaction: subscripts, superscripts, phase labels, the arrow and
// the fraction of the constant's expression.
#include "ui/output/reaction_layout.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QStringList>

namespace tormel {
namespace {

const ReactionPiece* Find(const ReactionLayout& layout, const QString& text, int nth = 0) {
    for (const ReactionPiece& p : layout.pieces)
        if (p.text == text && nth-- == 0) return &p;
    return nullptr;
}

TEST(ReactionLayout, CalciumCarbonateComplex) {
    Language language;
    ReactionDefinition d;
    d.reactants[0] = {1, "Ca", 2, ""};
    d.reactants[1] = {1, "CO3", -2, ""};
    d.products[0] = {1, "CaCO3", 0, "(aq)"};
    d.logK = 3.224;
    d.literature = "NIST46.4";
    const ReactionLayout layout = LayOutReaction(d, language, DecimalSeparator{}, DefaultReactionFonts());

    const ReactionPiece* caco = Find(layout, QStringLiteral("CaCO"));
    const ReactionPiece* three = Find(layout, QStringLiteral("3"), 1);  // after CO3 of the reaction line
    const ReactionPiece* charge = Find(layout, QStringLiteral(" 2-"));
    const ReactionPiece* phase = Find(layout, QStringLiteral("(aq)"));
    ASSERT_TRUE(caco && three && charge && phase);
    EXPECT_EQ(three->font, ReactionFont::Small);
    EXPECT_GT(three->topLeft.y(), caco->topLeft.y()) << "subscript lower";
    EXPECT_EQ(charge->font, ReactionFont::Small);
    EXPECT_LT(charge->topLeft.y(), caco->topLeft.y()) << "superscript higher";
    EXPECT_EQ(phase->font, ReactionFont::Italic);
    ASSERT_NE(Find(layout, QStringLiteral(" ⇌ ")), nullptr);
    EXPECT_NE(Find(layout, QStringLiteral("3.224")), nullptr);
    // the fraction bar spans the wider denominator, below the numerator
    const ReactionPiece* braceUp = Find(layout, QStringLiteral("{"), 0);
    const ReactionPiece* braceDown = Find(layout, QStringLiteral("{"), 1);
    ASSERT_TRUE(braceUp && braceDown);
    EXPECT_GT(braceUp->topLeft.x(), braceDown->topLeft.x()) << "the narrower numerator is centred";
    EXPECT_DOUBLE_EQ(layout.fractionBar.x1(), braceDown->topLeft.x());
    EXPECT_GT(layout.fractionBar.y1(), braceUp->topLeft.y());
    EXPECT_LT(layout.fractionBar.y1(), braceDown->topLeft.y());
    EXPECT_EQ(layout.rules.size(), 3u);
}

TEST(ReactionLayout, FourReactantsThenTheArrowAndANote) {
    Language language;
    ReactionDefinition d;
    for (int i = 0; i < 4; ++i) d.reactants[static_cast<size_t>(i)] = {i + 1, "A" + std::to_string(i), 0, ""};
    d.products[0] = {1, "Solid", 0, "(s)"};
    d.note = "The activity of a solid is 1.";
    const ReactionLayout layout = LayOutReaction(d, language, DecimalSeparator{}, DefaultReactionFonts());
    int pluses = 0;
    for (const ReactionPiece& p : layout.pieces) pluses += p.text == QStringLiteral(" + ");
    EXPECT_EQ(pluses, 3);
    EXPECT_NE(Find(layout, QStringLiteral(" ⇌ ")), nullptr);
    EXPECT_NE(Find(layout, QString::fromStdString(d.note)), nullptr);
    EXPECT_NE(Find(layout, QStringLiteral("4")), nullptr) << "coefficient 4 is written";
}

TEST(ReactionLayout, LongLiteratureWrapsWithinTheWidth) {
    Language language;
    ReactionDefinition d;
    d.reactants[0] = {1, "Ca", 2, ""};
    d.products[0] = {1, "Ca", 2, ""};
    QStringList words;
    for (int i = 0; i < 60; ++i) words << QStringLiteral("Ref%1").arg(i);
    d.literature = words.join(QLatin1Char(' ')).toStdString();
    const ReactionFonts fonts = DefaultReactionFonts();
    const ReactionLayout oneLine = LayOutReaction(d, language, DecimalSeparator{}, fonts);
    const ReactionLayout layout = LayOutReaction(d, language, DecimalSeparator{}, fonts, 400);
    EXPECT_LE(layout.width, 400);
    EXPECT_GT(layout.height, oneLine.height + 2 * QFontMetricsF(fonts.normal).height());
    QStringList written;
    for (const ReactionPiece& p : layout.pieces)
        if (p.text.trimmed().startsWith(QStringLiteral("Ref"))) written << p.text.trimmed();
    EXPECT_EQ(written, words) << "every word once, in order";
}

}  // namespace
}  // namespace tormel
