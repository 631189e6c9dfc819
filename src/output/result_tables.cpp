#include "output/result_tables.h"

#include <cmath>
#include <optional>

#include "core/c_number.h"
#include "output/amount_units.h"
#include "output/number_text.h"

namespace tormel {

namespace {

constexpr std::array<const char*, kAmountCount> kAmountKeys = {"Dissolved", "Adsorbed", "Solid", "OrgBound", "Total"};

// Collects the pie chart's data: "amount|\"label\"|" per entry, then the
// total and the number of entries.
class PieText {
public:
    void Add(const std::string& amount, const std::string& label) {
        text_ += amount + "|\"" + label + "\"|";
        ++entries_;
    }
    std::string Finish(const std::string& total) const { return text_ + total + "|" + std::to_string(entries_); }

private:
    std::string text_;
    int entries_ = 0;
};

std::string Plain(double value, const OutputOptions& options) {
    return FormatNumber(value, options.formats.scientific, true, DecimalSeparator{});
}

bool FreeKind(SpeciesKind kind) {
    return kind == SpeciesKind::FreeComponent || kind == SpeciesKind::FreeHydroxide ||
           kind == SpeciesKind::RedoxPartner || kind == SpeciesKind::RedoxPartnerSolid;
}

bool SpeciesShown(const SpeciesResult& p, int32_t n, double b, const ComponentResult& component,
                  const OutputOptions& options) {
    if (IsOrganicKind(p.kind)) return false;
    if (options.showAll) return p.kind != SpeciesKind::SolidSpecies || p.concentration != 0;
    if (!component.percentagesAllowed) return true;
    const double total = component.amounts[AmountTotal];
    if (std::fabs(p.concentration * n * b) > std::fabs(options.cutOff * total)) return true;
    return options.freeAlways && FreeKind(p.kind);
}

// Builds the tables of one component of a set; both read the same set,
// component, options and units, and replace the set's pie text of their table.
struct ComponentTables {
    ResultSet& set;
    const SetView view;
    const int32_t index;
    const ResultContext& context;
    const ComponentResult& component = view.components[index];
    const OutputOptions& options = context.options;
    const NumberFormats& formats = options.formats;
    const int32_t units = options.units.units;
    const int32_t order = options.units.order;
    const double total = component.amounts[AmountTotal];

    // `value` in `format` with the user's decimal separator.
    std::string Format(double value, const std::string& format) const {
        return FormatNumber(value, format, false, context.separator);
    }

    std::vector<SummaryRow> Summary() {
        std::vector<SummaryRow> rows;
        PieText pie;
        for (int32_t r = 0; r < kAmountCount; ++r) {
            if (!SummaryRowShown(component, index, r, set.snapshot)) continue;
            const double amount = component.amounts[r];
            const double converted = ConvertAmount(amount, component.molarMass, units, order);
            SummaryRow row;
            row.texts[0] = LanguageText(context.language, "Output", kAmountKeys[r]) + " " + component.displayName;
            row.texts[1] = Format(converted, formats.scientific);
            row.texts[2] = UnitLabel(false, false, false, units, order);
            if (component.percentagesAllowed) row.texts[3] = Format(amount * 100 / total, formats.percentage);
            row.rowClass = r + 1;
            if (r != AmountTotal) pie.Add(Plain(converted, options), row.texts[0]);
            rows.push_back(std::move(row));
        }
        set.summaryPieText = pie.Finish(Plain(total, options));
        return rows;
    }

    std::vector<DetailsRow> Details() {
        std::vector<DetailsRow> rows;
        const double b = set.snapshot.bulkFraction;
        const std::string unit = UnitLabel(false, false, false, units, order);
        PieText pie;

        for (const SpeciesListEntry& entry : ParseSpeciesList(component.speciesList)) {
            if (entry.species < 1 || static_cast<size_t>(entry.species) > view.species.size()) continue;
            const SpeciesResult& p = view.species[entry.species - 1];
            const int32_t n = entry.coefficient;
            if (!SpeciesShown(p, n, b, component, options)) continue;
            DetailsRow row;
            row.texts[0] = p.name;
            const double concentration = ConvertAmount(p.concentration * b, component.molarMass, units, order);
            row.texts[1] = Format(concentration, formats.scientific);
            row.texts[2] = unit;
            if (component.percentagesAllowed)
                row.texts[3] = Format(p.concentration * 100 * n * b / total, formats.percentage);
            if (p.hasActivity) {
                row.texts[4] = Format(ConvertAmount(p.activity * b, 1, units, order), formats.scientific);
                row.texts[5] = UnitLabel(true, false, false, units, order);
            }
            if (p.hasConstants) {
                row.texts[6] = Format(p.intrinsicLogK, formats.logarithm);
                row.texts[7] = Format(p.conditionalLogK, formats.logarithm);
            }
            row.texts[8] = p.literature;
            row.rowClass = p.reactionDefinition * 10 + p.category + 10;
            row.constantsKey = p.hasConstants ? 0 : -1;

            const double share = ConvertAmount(n * p.concentration * b, component.molarMass, units, order);
            pie.Add(n == -1 ? "-" + Plain(std::fabs(share), options) : Plain(share, options), p.name);
            rows.push_back(std::move(row));
        }

        if (set.snapshot.input.organicComplexation) {
            static constexpr std::array<const char*, 4> kGroupKeys = {"OrgGroupMono", "OrgGroupBi", "OrgGroupTri",
                                                                      "OrgGroupDDL"};
            for (int32_t g = 1; g <= 2; ++g) {
                for (int32_t site = 0; site < 4; ++site) {
                    const double amount = component.siteAmounts[site * 2 + (g - 1)];
                    if (!(amount > 0)) continue;
                    const bool shown =
                        amount > std::fabs(options.cutOff * total) || !component.percentagesAllowed || options.showAll;
                    if (!shown) continue;
                    DetailsRow row;
                    const std::string shortNameKey = "OrgShortName" + std::to_string(g);
                    row.texts[0] = LanguageText(context.language, "OtherInfo", shortNameKey) +
                                   LanguageText(context.language, "OtherInfo", kGroupKeys[site]);
                    const double converted = ConvertAmount(amount, 1, 0, order);
                    row.texts[1] = Format(converted, formats.scientific);
                    row.texts[2] = UnitLabel(true, false, false, units, order);
                    if (component.percentagesAllowed) row.texts[3] = Format(amount * 100 / total, formats.percentage);
                    row.texts[8] = set.header.organicReference;
                    row.rowClass = 4;
                    row.constantsKey = -1;
                    pie.Add(Plain(converted, options), row.texts[0]);
                    rows.push_back(std::move(row));
                }
            }
        }
        set.detailsPieText = pie.Finish(Plain(ConvertAmount(total, component.molarMass, units, order), options));
        return rows;
    }
};

// The tables of component i of `set`; nothing when the set has no component i.
std::optional<ComponentTables> TablesOf(ResultStore& store, int32_t set, int32_t i, const ResultContext& context) {
    const SetView view = ViewSet(store, set);
    if (i < 0 || static_cast<size_t>(i) >= view.components.size()) return std::nullopt;
    return ComponentTables{store.sets[set], view, i, context};
}

}  // namespace

bool SummaryRowShown(const ComponentResult& component, int32_t i, int32_t r, const InputSnapshot& snapshot) {
    const double amount = component.amounts[r];
    if (i != 0) return amount > 0;
    const InputProblem& in = snapshot.input;
    switch (r) {
        case AmountDissolved: return true;
        case AmountAdsorbed: return in.adsorption;
        case AmountSolid: return in.precipitation || (in.redox && amount != 0);
        case AmountOrganic: return in.organicComplexation;
        default: return snapshot.protonBalance || (in.redox && amount != 0);
    }
}

std::vector<SpeciesListEntry> ParseSpeciesList(std::string_view list) {
    std::vector<SpeciesListEntry> entries;
    size_t start = 0;
    while (start < list.size()) {
        size_t end = list.find(';', start);
        if (end == std::string_view::npos) end = list.size();
        const std::string_view entry = list.substr(start, end - start);
        const size_t equals = entry.find('=');
        if (equals != std::string_view::npos && equals > 0)
            entries.push_back({StrToIntPlatform(entry.substr(0, equals)), StrToIntPlatform(entry.substr(equals + 1))});
        start = end + 1;
    }
    return entries;
}

std::vector<SummaryRow> SummaryTable(ResultStore& store, int32_t set, int32_t i, const ResultContext& context) {
    std::optional<ComponentTables> tables = TablesOf(store, set, i, context);
    return tables ? tables->Summary() : std::vector<SummaryRow>{};
}

std::vector<DetailsRow> DetailsTable(ResultStore& store, int32_t set, int32_t i, const ResultContext& context) {
    std::optional<ComponentTables> tables = TablesOf(store, set, i, context);
    return tables ? tables->Details() : std::vector<DetailsRow>{};
}

}  // namespace tormel
