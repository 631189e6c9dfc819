#pragma once
// The XML spreadsheet export of a result set (".xml", XML Spreadsheet 2003):
// a contents sheet, one sheet each for the cations, the ligands and (when
// there are any) the gas-controlled ligands, and a sheet with the "Other
// info" report. Each sheet's table starts with a width for every column
// that a row of two or more cells uses, wide enough for the widest text or
// shown number in it (at most 60 characters, for the literature), so that
// no header is cut when the workbook opens. Never read back.
#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

#include "core/text_file.h"
#include "output/export_rows.h"
#include "output/result_store.h"

namespace tormel {

// The author the document properties name.
inline constexpr std::string_view kXmlAuthor = "TORMEL Next";
inline constexpr std::string_view kXmlCompany = "TORMEL Next (64 bits)";

// The date of the document properties: "%m-%e-%Y" (day padded with a blank),
// "T", "%H:%M:%S", "Z", e.g. "06- 5-2024T14:03:07Z".
std::string XmlDocumentDate(const std::tm& localTime);

// The text of the export (line feeds as "\n") with `localTime` as the time of
// the export.
std::string FormatXmlExport(const ResultStore& store, int32_t set, const ExportContext& context,
                            const std::tm& localTime);

// Writes the export with the current local time to `path` (UTF-16LE, through
// a temporary file and a rename). False, with `error` filled, when the file
// cannot be written; the target is then left as it was.
bool ExportXml(const std::string& path, const ResultStore& store, int32_t set, const ExportContext& context,
               FileError* error = nullptr);

}  // namespace tormel
