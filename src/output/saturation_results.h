#pragma once
// Solids and gases that the calculation did not include but that the results
// report: the saturation of each solid that could form while precipitation
// is off, and the partial pressure of each gas in equilibrium with the
// solution. Both append their reaction definitions.
#include <span>
#include <string>

#include "calc/calc_context.h"
#include "output/definition_filer.h"
#include "output/result_store.h"

namespace tormel {

// The text of a literature reference, empty for none.
const SharedText& LiteratureText(const ChemicalSystem& chem, int32_t reference);

// The reaction definitions that AddSolidChecks (for `solidCount` solids) and
// AddGasResults append at most: room to reserve before the first.
size_t CheckDefinitionRoom(const ChemicalSystem& chem, size_t solidCount);

// For every solid equilibrium of `solids` (those whose components are all in
// the input, in index order): a SolidSaturation record and its reaction
// definition (note `solidNote`), filed by `definitions`.
void AddSolidChecks(const CalcContext& calc, std::span<const int32_t> solids, const SharedText& solidNote,
                    DefinitionFiler& definitions, SetRecords& records);

// For every gas equilibrium whose gas has no input value, and every ligand
// of the input in it: a GasResult record and its reaction definition, filed
// by `definitions`.
void AddGasResults(const CalcContext& calc, DefinitionFiler& definitions, SetRecords& records);

}  // namespace tormel
