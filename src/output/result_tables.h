#pragma once
// The two tables shown for one component of a result set: the summary (its
// dissolved, adsorbed, solid, organically bound and total amounts) and the
// details (its species). Building a table also replaces the set's pie-chart
// data text of that table.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "output/result_context.h"
#include "output/result_store.h"

namespace tormel {

struct SummaryRow {
    // label, amount, unit, percentage of the total (empty when not allowed)
    std::array<std::string, 4> texts;
    int32_t rowClass = 0;  // 1 dissolved .. 5 total
};

struct DetailsRow {
    // species, concentration, unit, percentage, activity, unit,
    // intrinsic log K, conditional log K, literature
    std::array<std::string, 9> texts;
    int32_t rowClass = 0;       // 10 x reaction definition + category + 10; 4 for organic sites
    int32_t constantsKey = -1;  // 0 when the row has constants
};

// Whether amount row r (AmountRow) of component i of a set is shown: the
// proton component (i = 0) by the switches of the calculation, every other
// component when the amount is above 0.
bool SummaryRowShown(const ComponentResult& component, int32_t i, int32_t r, const InputSnapshot& snapshot);

// The summary rows of component i of `set`. Sets the set's summary pie text.
std::vector<SummaryRow> SummaryTable(ResultStore& store, int32_t set, int32_t i, const ResultContext& context);

// The details rows of component i of `set`: its species that pass the
// cut-off, then (organic complexation) its organic sites. Sets the set's
// details pie text.
std::vector<DetailsRow> DetailsTable(ResultStore& store, int32_t set, int32_t i, const ResultContext& context);

// One entry "s=n;" of a component's species list.
struct SpeciesListEntry {
    int32_t species = 0;  // 1-based
    int32_t coefficient = 0;
};

// The entries of a species list; malformed entries are skipped.
std::vector<SpeciesListEntry> ParseSpeciesList(std::string_view list);

}  // namespace tormel
