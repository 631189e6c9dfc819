#pragma once
// The result tables of a set as plain text for a terminal: for every listed
// component (cations, ligands, gases) its summary and details tables in
// aligned columns. Narrow (the default) keeps each line within a terminal's
// width: the literature column holds a short key ("[3]") and the references
// follow once, numbered and wrapped, below the component's tables. Wide puts
// every reference in full on its species' line.
#include <cstdint>
#include <string>

#include "output/result_context.h"
#include "output/result_store.h"

namespace tormel {

// The width the narrow layout keeps within.
inline constexpr size_t kPrintedTableWidth = 120;

std::string PrintedResultTables(ResultStore& store, int32_t set, const ResultContext& context, bool wide);

}  // namespace tormel
