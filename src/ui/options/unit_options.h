#pragma once
// The unit options dialog: decimals, concentration unit and, when opened from
// an output display, which species the result tables show.
class QWidget;

namespace tormel {

struct Workspace;

// Modal; answers true only when OK was pressed during this opening. Changes
// the unit and output settings in memory only; the caller stores them.
bool OpenUnitOptions(Workspace& ws, bool withOutputPart, QWidget* owner);

}  // namespace tormel
