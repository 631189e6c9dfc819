#pragma once
// What the output viewer's lists show beyond the table texts: the row
// background by row class, the logarithm tool tips and which reaction a row
// stands for.
#include <cstdint>
#include <optional>
#include <string>

#include <QColor>

#include "output/number_text.h"
#include "output/result_store.h"

namespace tormel {

// The background of a row class (1 dissolved .. 5 total; classes above 5
// count modulo 10); none for a class that keeps the list's background.
std::optional<QColor> RowClassColour(int32_t rowClass);

// The reaction definition a details row opens: (class / 10) - 1 for a class
// above 5, else -1.
int32_t DetailsRowReaction(int32_t rowClass);

// The tool tip of column 1 (concentration) or 4 (activity) of a details row
// of component `component` of `set`: "log10(" cell ") = " and the logarithm
// of the stored value in mol/L. Empty for other columns and rows whose value
// cannot be found or is not positive.
std::string LogarithmTip(const ResultStore& store, int32_t set, int32_t component, int column,
                         const std::string& firstText, const std::string& cellText,
                         const DecimalSeparator& separator);

}  // namespace tormel
