#pragma once
// Messages and questions through the UI services, with their texts from the
// language file.
#include <string>
#include <string_view>

#include "core/ui_services.h"

namespace tormel {

class Language;

// Shows the box and returns the answer; without a message-box service the
// answer is 0 (as if the box was closed by its close box).
MessageBoxAnswer ShowMessageBox(const UiServices& ui, const MessageBoxRequest& request);

// A message with one OK button (TOOLS/"BtnOK"): the text as one entry, the
// caption (TOOLS/"MsgHead" when empty), the icon; neither Enter nor Escape
// has a result of its own.
void ShowMessage(const UiServices& ui, const Language& language, std::string_view text, std::string_view caption = {},
                 int32_t icon = IconInformation);

// The question asked before an existing file is replaced: caption
// TOOLS/"OverWriteCaption", the lines TOOLS/"OverWriteT1" + " " + path and
// TOOLS/"OverWriteT2", the buttons "OverWriteB1" to "OverWriteB3", Enter
// answering 2 and Escape 3. True only for the answer 1.
bool AskOverwrite(const UiServices& ui, const Language& language, std::string_view path);

}  // namespace tormel
