#include "ui/input/open_input_editor.h"

#include <QScreen>

#include "shell/workspace.h"
#include "ui/input/input_editor.h"

namespace tormel {

void OpenInputEditor(Workspace& ws, QWidget* owner) {
    ws.uiReady = false;
    InputEditor editor(ws, owner);
    const QScreen* screen = owner && owner->screen() ? owner->screen() : editor.screen();
    if (screen) editor.setGeometry(screen->availableGeometry());
    editor.exec();
    ws.uiReady = true;
}

}  // namespace tormel
