#pragma once
// The seam between the program's logic and its windows. The desktop program
// fills it with dialogs, the command line with a headless implementation, and
// tests with a recorder.
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tormel {

enum MessageIcon : int32_t {
    IconError = 32513,
    IconQuestion = 32514,
    IconWarning = 32515,
    IconInformation = 32516,
};

struct MessageBoxRequest {
    std::string caption;
    int32_t icon = IconInformation;
    std::vector<std::string> lines;
    std::vector<std::string> buttons;
    int32_t enterResult = 0;
    int32_t escapeResult = 0;
    bool showCheckBox = false;
    std::string checkBoxText;
};

struct MessageBoxAnswer {
    int32_t result = 0;  // button number, 0 when closed by the close box
    bool checkBoxChecked = false;
};

// What the solver reports between iterations.
struct SolverProgress {
    int32_t iteration = 0;
    double worstRatio = 0;
    std::string worstComponent;
    double ionicStrength = 0;
    int32_t barPosition = 0;  // 0..100
    // with precipitation: the solids bar, the number of solids present and
    // one line per solid that entered ("Iteration 12: Calcite")
    int32_t solidBarPosition = 0;  // 0..100
    int32_t solidCount = 0;
    std::vector<std::string> solidLines;
};

// The small window of the neutral-solution calculation: a caption and two lines.
struct NeutraliseWindowText {
    std::string caption;
    std::string line1;
    std::string line2;
};

struct UiServices {
    std::function<MessageBoxAnswer(const MessageBoxRequest&)> showMessageBox;
    std::function<void(std::string_view)> showWait;
    std::function<void(std::string_view)> setWaitText;
    std::function<void()> closeWait;
    std::function<bool(const SolverProgress&)> progress;  // true to cancel
    std::function<void(const NeutraliseWindowText&)> showNeutralise;  // opens or updates the window
    std::function<void()> closeNeutralise;
    std::function<bool(std::string_view url)> openExternal;
};

// Shows a plain message box with one OK button through `ui` (no language file
// involved; used by the loader's own warnings).
MessageBoxAnswer ShowPlainMessage(const UiServices& ui, std::string_view text, std::string_view caption, int32_t icon);

}  // namespace tormel
