#include "result_columns.h"

#include <cmath>
#include <limits>

#include "output/export_rows.h"

namespace tormel::python {

namespace py = pybind11;

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

// A table under construction: named columns appended row by row.
class Columns {
public:
    Columns(std::initializer_list<const char*> names) : names_(names), lists_(names.size()) {}
    template <typename... Values>
    void Row(const Values&... values) {
        size_t i = 0;
        (lists_[i++].append(values), ...);
    }
    py::dict Dict() const {
        py::dict columns;
        for (size_t i = 0; i < names_.size(); ++i) columns[names_[i]] = lists_[i];
        return columns;
    }

private:
    std::vector<const char*> names_;
    std::vector<py::list> lists_;
};

py::dict ComponentTable(const ResultStore& store) {
    Columns t{"component", "type", "dissolved", "adsorbed", "solid", "organic", "total"};
    for (const ComponentResult& c : ViewSet(store, 0).components)
        if (c.Reported())
            t.Row(c.displayName, CodeOf(c.kind), c.amounts[AmountDissolved], c.amounts[AmountAdsorbed],
                  c.amounts[AmountSolid], c.amounts[AmountOrganic], c.amounts[AmountTotal]);
    return t.Dict();
}

// The rows of the details tables (as the exports write them, no cut-off).
py::dict SpeciesTable(const Workspace& ws) {
    OutputOptions molar = ws.outputOptions;
    molar.units.units = 0;
    molar.units.order = 0;
    const ExportContext context{ws.language, molar};
    Columns t{"component", "species", "concentration", "share", "activity", "log_k", "conditional_log_k", "literature"};
    const auto count = static_cast<int32_t>(ViewSet(ws.results, 0).components.size());
    for (int32_t i = 0; i < count; ++i) {
        const ExportComponent rows = ExportComponentRows(ws.results, 0, i, context);
        if (!rows.component || !rows.component->Reported()) continue;
        for (const ExportSpeciesRow& r : rows.species)
            t.Row(rows.component->displayName, r.name, r.concentration,
                  rows.total != 0 ? ExportFraction(r.share, rows.total, false) : kNone,
                  r.hasActivity ? r.activity : kNone, r.hasConstants ? r.intrinsicLogK : kNone,
                  r.hasConstants ? r.conditionalLogK : kNone, r.literature.str());
    }
    return t.Dict();
}

py::dict SolidTable(const ResultStore& store) {
    Columns t{"solid", "saturation_index", "precipitated", "log_k", "conditional_log_k", "literature"};
    const SetView view = ViewSet(store, 0);
    for (const SolidSaturation& s : view.solidChecks)
        t.Row(s.name, s.saturationIndex, 0.0, s.logK, s.conditionalLogK, s.literature.str());
    const ResultHeader& header = store.sets[0].header;
    for (int32_t s = std::max(0, header.firstPrecipitatedSolid); s <= header.lastPrecipitatedSolid; ++s) {
        if (static_cast<size_t>(s) >= view.species.size()) break;
        const SpeciesResult& p = view.species[s];
        t.Row(p.name, p.saturationValue, p.concentration, p.intrinsicLogK, p.conditionalLogK, p.literature.str());
    }
    return t.Dict();
}

py::dict GasTable(const ResultStore& store) {
    Columns t{"gas", "partial_pressure", "ligand_concentration", "log_k", "conditional_log_k", "literature"};
    for (const GasResult& g : ViewSet(store, 0).gases)
        t.Row(g.name, g.partialPressure, g.ligandConcentration, g.logK, g.conditionalLogK, g.literature.str());
    return t.Dict();
}

// Every filled cell of the "Other info" blocks, with its number when it has one.
py::dict OtherInfoTable(const ResultStore& store) {
    Columns t{"block", "row", "column", "text", "value"};
    for (const InfoBlock& block : store.sets[0].otherInfo) {
        if (block.title.empty()) continue;
        for (int32_t r = 0; r < block.rowCount; ++r)
            for (int32_t c = 0; c < kInfoColumns; ++c) {
                const InfoCell* cell = block.FindCell(c, r);
                if (!cell) continue;
                const std::string text = block.Shown(*cell);
                if (!text.empty()) t.Row(block.title, r, c, text, cell->Numeric() ? cell->number : kNone);
            }
    }
    return t.Dict();
}

}  // namespace

py::dict ResultColumns(const Workspace& ws) {
    py::dict tables;
    tables["components"] = ComponentTable(ws.results);
    tables["species"] = SpeciesTable(ws);
    tables["solids"] = SolidTable(ws.results);
    tables["gases"] = GasTable(ws.results);
    tables["other_info"] = OtherInfoTable(ws.results);
    return tables;
}

}  // namespace tormel::python
