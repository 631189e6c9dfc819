#include "core/messages.h"

#include "core/language.h"

namespace tormel {

MessageBoxAnswer ShowMessageBox(const UiServices& ui, const MessageBoxRequest& request) {
    if (!ui.showMessageBox) return {};
    return ui.showMessageBox(request);
}

void ShowMessage(const UiServices& ui, const Language& language, std::string_view text, std::string_view caption,
                 int32_t icon) {
    MessageBoxRequest request;
    request.caption = caption.empty() ? LanguageText(language, "TOOLS", "MsgHead") : std::string(caption);
    request.icon = icon;
    request.lines.emplace_back(text);
    request.buttons.push_back(LanguageText(language, "TOOLS", "BtnOK"));
    ShowMessageBox(ui, request);
}

bool AskOverwrite(const UiServices& ui, const Language& language, std::string_view path) {
    MessageBoxRequest request;
    request.caption = LanguageText(language, "TOOLS", "OverWriteCaption");
    request.icon = IconQuestion;
    request.lines.push_back(LanguageText(language, "TOOLS", "OverWriteT1") + " " + std::string(path));
    request.lines.push_back(LanguageText(language, "TOOLS", "OverWriteT2"));
    request.buttons.push_back(LanguageText(language, "TOOLS", "OverWriteB1"));
    request.buttons.push_back(LanguageText(language, "TOOLS", "OverWriteB2"));
    request.buttons.push_back(LanguageText(language, "TOOLS", "OverWriteB3"));
    request.enterResult = 2;
    request.escapeResult = 3;
    return ShowMessageBox(ui, request).result == 1;
}

}  // namespace tormel
