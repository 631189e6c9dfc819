#include "core/ui_services.h"

namespace tormel {

MessageBoxAnswer ShowPlainMessage(const UiServices& ui, std::string_view text, std::string_view caption, int32_t icon) {
    if (!ui.showMessageBox) return {};
    MessageBoxRequest request;
    request.caption = std::string(caption);
    request.icon = icon;
    request.lines.emplace_back(text);
    request.buttons.emplace_back("OK");
    return ui.showMessageBox(request);
}

}  // namespace tormel
