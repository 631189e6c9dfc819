#pragma once
// The UI services of the command line: no windows, no questions.
#include <cstdio>

#include "core/ui_services.h"

namespace tormel {

struct HeadlessUiOptions {
    std::FILE* stream = stderr;    // where messages (and wait texts) go
    bool showWaitTexts = false;    // also print the texts of the wait window
};

// Message boxes are printed to the stream ("[caption] " for a caption, one
// line per text line, then the buttons in brackets with the chosen one
// marked) and answered without asking:
//   - the default button (enterResult) when there is one;
//   - otherwise button 1 when the box has a single button (the OK of a plain
//     message);
//   - otherwise 0, as if the box was closed by its close box: a question
//     without a default is never answered "yes" on the user's behalf.
// The check box stays unticked. The wait window prints its texts only when
// asked to, progress never cancels, and links cannot be opened (false).
UiServices MakeHeadlessUi(const HeadlessUiOptions& options = {});

// The answer MakeHeadlessUi gives to a request.
int32_t HeadlessAnswer(const MessageBoxRequest& request);

}  // namespace tormel
