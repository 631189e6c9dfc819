#include "message_log.h"

#include "shell/headless_ui.h"

namespace tormel::python {

std::string WithoutLeadingLineFeeds(std::string text) {
    while (!text.empty() && text.front() == '\n') text.erase(0, 1);
    return text;
}

MessageLog::MessageLog() {
    services_.showMessageBox = [this](const MessageBoxRequest& request) {
        messages_.push_back(request);
        return MessageBoxAnswer{HeadlessAnswer(request), false};
    };
    services_.progress = [](const SolverProgress&) { return false; };
}

std::string MessageLog::Text() const {
    std::string text;
    for (const MessageBoxRequest& request : messages_)
        for (const std::string& line : request.lines) {
            if (!text.empty()) text += "\n";
            text += line;
        }
    return WithoutLeadingLineFeeds(std::move(text));
}

}  // namespace tormel::python
