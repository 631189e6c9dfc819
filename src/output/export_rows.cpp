#include "output/export_rows.h"

#include <array>

#include "output/amount_units.h"
#include "output/result_tables.h"

namespace tormel {

namespace {

constexpr std::array<const char*, kAmountCount> kAmountKeys = {"Dissolved", "Adsorbed", "Solid", "OrgBound", "Total"};
constexpr std::array<const char*, 4> kSiteGroupKeys = {"OrgGroupMono", "OrgGroupBi", "OrgGroupTri", "OrgGroupDDL"};

}  // namespace

std::string ProgramFileVersion() { return TORMEL_VERSION ".0"; }

bool IsExportedKind(ComponentType kind) {
    return kind == ComponentType::Cation || kind == ComponentType::Ligand || kind == ComponentType::Gas;
}

double ExportFraction(double amount, double total, bool singlePrecisionAmount) {
    const double a = singlePrecisionAmount ? static_cast<double>(static_cast<float>(amount)) : amount;
    return a / total;
}

ExportComponent ExportComponentRows(const ResultStore& store, int32_t set, int32_t i, const ExportContext& context) {
    ExportComponent out;
    const SetView view = ViewSet(store, set);
    if (i < 0 || static_cast<size_t>(i) >= view.components.size()) return out;
    const ComponentResult& component = view.components[i];
    const ResultSet& rs = store.sets[set];
    const InputSnapshot& snapshot = rs.snapshot;
    const int32_t units = context.options.units.units, order = context.options.units.order;
    const std::string unit = UnitLabel(false, false, false, units, order);
    const std::string molarUnit = UnitLabel(true, false, false, units, order);
    out.component = &component;
    out.percentagesAllowed = component.percentagesAllowed;
    out.total = component.amounts[AmountTotal];

    for (int32_t r = 0; r < kAmountCount; ++r) {
        if (!SummaryRowShown(component, i, r, snapshot)) continue;
        ExportAmountRow row;
        row.label = context.Text(kAmountKeys[r]) + " " + component.displayName;
        row.amount = component.amounts[r];
        row.converted = ConvertAmount(row.amount, component.molarMass, units, order);
        row.unit = unit;
        out.summary.push_back(std::move(row));
    }

    const double bulk = snapshot.bulkFraction;
    for (const SpeciesListEntry& entry : ParseSpeciesList(component.speciesList)) {
        if (entry.species < 1 || static_cast<size_t>(entry.species) > view.species.size()) continue;
        const SpeciesResult& p = view.species[entry.species - 1];
        ExportSpeciesRow row;
        row.name = p.name;
        row.concentration = ConvertAmount(p.concentration * bulk, component.molarMass, units, order);
        row.unit = unit;
        row.share = p.concentration * entry.coefficient * bulk;
        row.hasActivity = p.hasActivity;
        if (p.hasActivity) {
            row.activity = ConvertAmount(p.activity * bulk, 1, units, order);
            row.activityUnit = molarUnit;
        }
        row.hasConstants = p.hasConstants;
        row.intrinsicLogK = p.intrinsicLogK;
        row.conditionalLogK = p.conditionalLogK;
        row.hasLiterature = p.literatureIndex >= 0;
        if (row.hasLiterature) row.literature = p.literature;
        out.species.push_back(std::move(row));
    }

    if (snapshot.input.organicComplexation) {
        const std::string siteUnit = UnitLabel(true, false, false, 0, order);
        for (int32_t g = 0; g < 2; ++g) {
            const std::string shortNameKey = "OrgShortName" + std::to_string(g + 1);
            const std::string shortName = LanguageText(context.language, "OtherInfo", shortNameKey);
            for (int32_t site = 0; site < 4; ++site) {
                const double amount = component.siteAmounts[static_cast<size_t>(site * 2 + g)];
                if (!(amount > 0)) continue;
                ExportSiteRow row;
                row.label = shortName + LanguageText(context.language, "OtherInfo", kSiteGroupKeys[site]);
                row.amount = amount;
                row.converted = ConvertAmount(amount, 1, 0, order);
                row.unit = siteUnit;
                out.sites.push_back(std::move(row));
            }
        }
    }
    return out;
}

}  // namespace tormel
