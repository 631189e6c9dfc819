#include "ui/output/viewer_rows.h"

#include <cmath>

namespace tormel {

std::optional<QColor> RowClassColour(int32_t rowClass) {
    if (rowClass > 5) rowClass %= 10;
    switch (rowClass) {
        case 1: return QColor(255, 255, 192);
        case 2: return QColor(223, 255, 255);
        case 3: return QColor(255, 239, 239);
        case 4: return QColor(223, 255, 223);
        case 5: return QColor(224, 224, 224);
        default: return std::nullopt;
    }
}

int32_t DetailsRowReaction(int32_t rowClass) { return rowClass > 5 ? rowClass / 10 - 1 : -1; }

namespace {

// The site amount an organic site row names: humic for texts beginning with
// "HA", the site type by "mono", "bi" or "tri", else the diffuse layer.
double SiteAmountOf(const ComponentResult& component, const std::string& text) {
    const bool humic = text.rfind("HA", 0) == 0;
    int type = 3;
    if (text.find("mono") != std::string::npos)
        type = 0;
    else if (text.find("bi") != std::string::npos)
        type = 1;
    else if (text.find("tri") != std::string::npos)
        type = 2;
    return component.siteAmounts[static_cast<size_t>(2 * type + (humic ? 1 : 0))];
}

}  // namespace

std::string LogarithmTip(const ResultStore& store, int32_t set, int32_t component, int column,
                         const std::string& firstText, const std::string& cellText,
                         const DecimalSeparator& separator) {
    if (column != 1 && column != 4) return {};
    const SetView view = ViewSet(store, set);
    std::optional<double> value;
    for (const SpeciesResult& s : view.species)
        if (s.name == firstText) {
            value = column == 1 ? s.concentration : s.activity;
            if (column == 4 && !s.hasActivity) value.reset();
            break;
        }
    if (!value && column == 1 && component >= 0 && component < static_cast<int32_t>(view.components.size()))
        value = SiteAmountOf(view.components[static_cast<size_t>(component)], firstText);
    if (!value || !(*value > 0) || !std::isfinite(*value)) return {};
    return "log10(" + cellText + ") = " + FormatNumber(std::log10(*value), "%.3f", false, separator);
}

}  // namespace tormel
