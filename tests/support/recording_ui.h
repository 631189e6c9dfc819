#pragma once
// UI services for tests: keeps every message box request and answers with a
// chosen button.
#include <vector>

#include "core/ui_services.h"

namespace tormel::test {

struct RecordingUi {
    std::vector<MessageBoxRequest> messages;
    MessageBoxAnswer answer{1, false};
    UiServices services;

    RecordingUi() {
        services.showMessageBox = [this](const MessageBoxRequest& request) {
            messages.push_back(request);
            return answer;
        };
        services.showWait = [](std::string_view) {};
        services.setWaitText = [](std::string_view) {};
        services.closeWait = [] {};
        services.progress = [](const SolverProgress&) { return false; };
        services.openExternal = [](std::string_view) { return true; };
    }
    RecordingUi(const RecordingUi&) = delete;
    RecordingUi& operator=(const RecordingUi&) = delete;
};

}  // namespace tormel::test
