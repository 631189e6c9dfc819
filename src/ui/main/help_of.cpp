#include "ui/main/help_of.h"

#include <QWidget>

#include "ui/main/main_window.h"

namespace tormel {

std::function<void(int)> HelpOf(QWidget* widget) {
    for (QWidget* w = widget; w; w = w->parentWidget())
        if (auto* main = dynamic_cast<MainWindow*>(w)) return main->Services().openHelp;
    return {};
}

}  // namespace tormel
