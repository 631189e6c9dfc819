#pragma once
// Where every piece of a drawn reaction goes: the reaction with its arrow,
// the fraction of braced activities that is its equilibrium constant, log K,
// note and literature. Computed apart from the window so that it can be
// checked without one.
#include <vector>

#include <QFont>
#include <QLineF>
#include <QPointF>
#include <QString>

#include "core/language.h"
#include "output/number_text.h"
#include "output/result_records.h"

namespace tormel {

enum class ReactionFont { Normal, Small, Italic };

struct ReactionFonts {
    QFont normal;  // the program's font
    QFont small;   // subscripts and superscripts
    QFont italic;  // phase labels
    double scale = 1;  // the display scale
};

// The program's fonts for the window at the current display scale.
ReactionFonts DefaultReactionFonts();

struct ReactionPiece {
    QString text;
    ReactionFont font = ReactionFont::Normal;
    QPointF topLeft;
};

struct ReactionLayout {
    std::vector<ReactionPiece> pieces;
    std::vector<double> rules;  // heights of the light rules across the window
    QLineF fractionBar;
    double width = 0;   // right edge of the widest line
    double height = 0;  // bottom of the last line
};

// `maxWidth` (0: none): the literature reference wraps at word boundaries to
// stay within it.
ReactionLayout LayOutReaction(const ReactionDefinition& definition, const Language& language,
                              const DecimalSeparator& separator, const ReactionFonts& fonts, double maxWidth = 0);

}  // namespace tormel
