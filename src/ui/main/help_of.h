#pragma once
// Finds the help opener of the main window a window belongs to.
#include <functional>

class QWidget;

namespace tormel {

// The help opener of the main window that `widget` belongs to (empty when none).
std::function<void(int)> HelpOf(QWidget* widget);

}  // namespace tormel
