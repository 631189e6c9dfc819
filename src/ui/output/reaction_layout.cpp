#include "ui/output/reaction_layout.h"

#include <algorithm>

#include <QFontMetricsF>
#include <QStringList>

#include "output/charge_suffix.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"

namespace tormel {

ReactionFonts DefaultReactionFonts() {
    return {UiFont(), UiFontAt(7), UiFontAt(10, true), DpiScale()};
}

namespace {

bool IsSubscript(QChar c) { return c.isDigit() || c == QLatin1Char('.') || c == QLatin1Char(','); }

// Writes pieces from left to right on one line; `measure` only advances.
class Pen {
public:
    Pen(ReactionLayout& layout, const ReactionFonts& fonts, bool measure)
        : layout_(layout), fonts_(fonts), measure_(measure) {}

    double x = 0;
    double y = 0;

    void Text(const QString& text, ReactionFont font = ReactionFont::Normal, double dy = 0) {
        if (text.isEmpty()) return;
        if (!measure_) layout_.pieces.push_back({text, font, QPointF(x, y + dy * fonts_.scale)});
        x += QFontMetricsF(Font(font)).horizontalAdvance(text);
        layout_.width = std::max(layout_.width, x);
    }
    void Blank() { Text(QStringLiteral(" ")); }
    // Digits, "." and "," as subscripts, everything else in the normal font.
    void Formula(const QString& name) {
        QString run;
        bool small = false;
        for (QChar c : name) {
            if (!run.isEmpty() && IsSubscript(c) != small) Flush(run, small);
            small = IsSubscript(c);
            run += c;
        }
        Flush(run, small);
    }
    void Superscript(const QString& text) { Text(text, ReactionFont::Small, -2); }
    // The formula with its charge as superscript, or its phase label in italics.
    void Entry(const ReactionEntry& entry) {
        Formula(Q(entry.name));
        if (entry.charge != 0)
            Superscript(Q(ChargeSuffix(entry.charge)));
        else if (!entry.phase.empty()) {
            Blank();
            Text(Q(entry.phase), ReactionFont::Italic);
        }
    }

private:
    void Flush(QString& run, bool small) {
        if (small)
            Text(run, ReactionFont::Small, 8);
        else
            Text(run);
        run.clear();
    }
    const QFont& Font(ReactionFont font) const {
        return font == ReactionFont::Small ? fonts_.small : font == ReactionFont::Italic ? fonts_.italic : fonts_.normal;
    }

    ReactionLayout& layout_;
    const ReactionFonts& fonts_;
    bool measure_;
};

using Entries = std::array<ReactionEntry, kMaxReactionEntries>;

int Used(const Entries& entries) {
    int n = 0;
    while (n < kMaxReactionEntries && entries[n].coefficient != 0) ++n;
    return n;
}

void Numerator(Pen& pen, const Entries& products, const Language& language) {
    const int n = Used(products);
    for (int i = 0; i < n; ++i) {
        const ReactionEntry& e = products[i];
        if (e.phase != "(g)") {
            pen.Text(QStringLiteral("{"));
            pen.Entry(e);
            pen.Text(QStringLiteral("}"));
            if (e.coefficient > 1) pen.Superscript(QString::number(e.coefficient));
        } else {
            pen.Text(LangQ(language, "EqDef", "IntroGas"));
            pen.Blank();
            pen.Formula(Q(e.name));
        }
        if (i + 1 < n) pen.Text(QStringLiteral(" × "));
    }
}

void Denominator(Pen& pen, const Entries& reactants) {
    const int n = Used(reactants);
    for (int i = 0; i < n; ++i) {
        pen.Text(QStringLiteral("{"));
        pen.Entry(reactants[i]);
        pen.Text(QStringLiteral("}"));
        if (reactants[i].coefficient != 1) pen.Superscript(QString::number(reactants[i].coefficient));
        if (i + 1 < n) pen.Text(QStringLiteral(" × "));
    }
}

}  // namespace

ReactionLayout LayOutReaction(const ReactionDefinition& definition, const Language& language,
                              const DecimalSeparator& separator, const ReactionFonts& fonts, double maxWidth) {
    ReactionLayout layout;
    const double f = fonts.scale;
    const double left = 5 * f;
    const double line = QFontMetricsF(fonts.normal).height();
    Pen pen(layout, fonts, false);
    auto newLine = [&](double y) {
        pen.x = left;
        pen.y = y;
    };

    newLine(6 * f);
    pen.Text(LangQ(language, "EqDef", "InfoLine1"));

    newLine(pen.y + line);
    const int reactants = Used(definition.reactants);
    for (int i = 0; i < reactants; ++i) {
        const ReactionEntry& e = definition.reactants[i];
        if (e.coefficient != 1) {
            pen.Text(QString::number(e.coefficient));
            pen.Blank();
        }
        pen.Entry(e);
        pen.Text(i + 1 < reactants ? QStringLiteral(" + ") : QStringLiteral(" ⇌ "));
    }
    const int products = Used(definition.products);
    for (int i = 0; i < products; ++i) {
        const ReactionEntry& e = definition.products[i];
        if (e.coefficient != 1) {
            pen.Text(QString::number(e.coefficient));
            pen.Blank();
        }
        pen.Entry(e);
        if (i + 1 < products) pen.Text(QStringLiteral(" + "));
    }
    layout.rules.push_back(pen.y + line + 5 * f);

    newLine(layout.rules.back() + 2 * f);
    pen.Text(LangQ(language, "EqDef", "InfoLine2"));
    const double numeratorY = pen.y + line;
    const double denominatorY = numeratorY + 2 * line;
    newLine(numeratorY + line);
    pen.Text(LangQ(language, "EqDef", "InfoLine3"));
    pen.Blank();
    const double fractionLeft = pen.x;

    // Measure both halves, then centre them on the wider one.
    ReactionLayout scratch;
    Pen measure(scratch, fonts, true);
    Numerator(measure, definition.products, language);
    const double numeratorWidth = measure.x;
    measure.x = 0;
    Denominator(measure, definition.reactants);
    const double denominatorWidth = measure.x;
    const double width = std::max(numeratorWidth, denominatorWidth);
    pen.x = fractionLeft + (width - numeratorWidth) / 2;
    pen.y = numeratorY;
    Numerator(pen, definition.products, language);
    pen.x = fractionLeft + (width - denominatorWidth) / 2;
    pen.y = denominatorY;
    Denominator(pen, definition.reactants);
    const double barY = denominatorY - line / 2;
    layout.fractionBar = QLineF(fractionLeft, barY, fractionLeft + width, barY);

    double y = denominatorY + line;
    if (!definition.note.empty()) {
        newLine(y);
        pen.Text(Q(definition.note.view()));
        y += line;
    }
    layout.rules.push_back(y + 5 * f);

    newLine(layout.rules.back() + 2 * f);
    pen.Formula(LangQ(language, "EqDef", "InfoLine4"));
    pen.Blank();
    pen.Text(Q(FormatNumber(definition.logK, "%9.3f", false, separator)));
    layout.rules.push_back(pen.y + line + 5 * f);

    newLine(layout.rules.back() + 2 * f);
    pen.Text(LangQ(language, "EqDef", "InfoLine5"));
    pen.Blank();
    // a long reference continues on further lines below its own start
    const double indent = pen.x;
    const QFontMetricsF metrics(fonts.normal);
    bool first = true;
    for (const QString& word : Q(definition.literature.view()).split(QLatin1Char(' '))) {
        const QString piece = first ? word : QLatin1Char(' ') + word;
        if (!first && maxWidth > 0 && pen.x + metrics.horizontalAdvance(piece) > maxWidth - left) {
            newLine(pen.y + line);
            pen.x = indent;
            pen.Text(word);
        } else {
            pen.Text(piece);
        }
        first = false;
    }
    layout.height = pen.y + line + 6 * f;
    layout.width += left;
    return layout;
}

}  // namespace tormel
