#include "shell/headless_ui.h"

#include <string>

namespace tormel {

namespace {

std::string Trimmed(std::string_view text) {
    size_t b = text.find_first_not_of(" \n\r");
    if (b == std::string_view::npos) return {};
    size_t e = text.find_last_not_of(" \n\r");
    return std::string(text.substr(b, e - b + 1));
}

void PrintRequest(std::FILE* out, const MessageBoxRequest& request, int32_t answer) {
    const char* kind = request.icon == IconError      ? "error"
                       : request.icon == IconWarning  ? "warning"
                       : request.icon == IconQuestion ? "question"
                                                      : "information";
    std::string text = std::string(kind) + ":";
    if (!request.caption.empty()) text += " [" + request.caption + "]";
    text += "\n";
    for (const std::string& entry : request.lines) {
        std::string body = Trimmed(entry);
        if (body.empty()) continue;
        size_t start = 0;
        while (start <= body.size()) {
            size_t end = body.find('\n', start);
            if (end == std::string::npos) end = body.size();
            text += "  " + body.substr(start, end - start) + "\n";
            start = end + 1;
        }
    }
    if (request.buttons.size() > 1) {
        text += " ";
        for (size_t k = 0; k < request.buttons.size(); ++k) {
            bool chosen = static_cast<int32_t>(k + 1) == answer;
            text += std::string(" ") + (chosen ? "[*" : "[") + request.buttons[k] + "]";
        }
        text += "\n";
    }
    std::fputs(text.c_str(), out);
    std::fflush(out);
}

}  // namespace

int32_t HeadlessAnswer(const MessageBoxRequest& request) {
    const auto buttonCount = static_cast<int32_t>(request.buttons.size());
    if (request.enterResult > 0 && request.enterResult <= buttonCount) return request.enterResult;
    if (buttonCount == 1) return 1;
    return 0;
}

UiServices MakeHeadlessUi(const HeadlessUiOptions& options) {
    UiServices ui;
    std::FILE* out = options.stream ? options.stream : stderr;
    ui.showMessageBox = [out](const MessageBoxRequest& request) {
        MessageBoxAnswer answer;
        answer.result = HeadlessAnswer(request);
        PrintRequest(out, request, answer.result);
        return answer;
    };
    auto printWait = [out, show = options.showWaitTexts](std::string_view text) {
        if (!show) return;
        std::string line = Trimmed(text);
        if (line.empty()) return;
        std::fputs((line + "\n").c_str(), out);
        std::fflush(out);
    };
    ui.showWait = printWait;
    ui.setWaitText = printWait;
    ui.closeWait = [] {};
    ui.progress = [](const SolverProgress&) { return false; };
    ui.openExternal = [](std::string_view) { return false; };
    return ui;
}

}  // namespace tormel
