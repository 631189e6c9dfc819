#pragma once
// The tab-separated export of a result set (".csv"): every cation, ligand and
// gas-controlled ligand with its summary and details, then the "Other info"
// report. Texts are quoted but not escaped; numbers are written with "%.16G".
// Never read back.
#include <cstdint>
#include <string>
#include <string_view>

#include "core/text_file.h"
#include "output/export_rows.h"
#include "output/result_store.h"

namespace tormel {

// The text of the export (lines ended by "\n").
std::string FormatCsvExport(const ResultStore& store, int32_t set, std::string_view separator,
                            const ExportContext& context);

// Writes the export to `path` (UTF-16LE, through a temporary file and a
// rename). False, with `error` filled, when the file cannot be written; the
// target is then left as it was.
bool ExportCsv(const std::string& path, std::string_view separator, const ResultStore& store, int32_t set,
               const ExportContext& context, FileError* error = nullptr);

}  // namespace tormel
