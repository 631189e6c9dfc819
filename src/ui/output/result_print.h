#pragma once
// Printing a result set: per listed component (cations, ligands, gases) its
// summary and details tables and its two pie charts, then the "Other info"
// report, drawn page by page on a printer or a PDF writer.
#include <cstdint>

#include <QPagedPaintDevice>
#include <QString>

#include "shell/workspace.h"
#include "ui/output/print_settings.h"

namespace tormel {

// Draws every page of `set` on `device` (its page layout already set) and
// answers the number of pages. `fileName` heads every page beside the title.
int PrintResultSet(QPagedPaintDevice& device, Workspace& ws, int32_t set, const PrintSettings& settings,
                   const QString& fileName);

// The number of pages PrintResultSet would draw on `device`.
int CountResultPages(QPagedPaintDevice& device, Workspace& ws, int32_t set, const PrintSettings& settings,
                     const QString& fileName);

}  // namespace tormel
