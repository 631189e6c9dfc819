#pragma once
// The UI services of the desktop program: the message box, the wait window,
// the progress window and the neutralisation window, all owned by the main
// window.
#include <QPointer>
#include <functional>

#include "core/ui_services.h"
#include "ui/main/neutralise_window.h"
#include "ui/main/progress_window.h"
#include "ui/main/wait_window.h"

namespace tormel {

struct Workspace;

class DesktopUi {
public:
    DesktopUi(Workspace& ws, QWidget* owner);
    ~DesktopUi();

    // The services; the workspace points at them while the program runs.
    const UiServices& Services() const { return services_; }

    // Closes the progress window of the last calculation (if any).
    void CloseProgress();

    WaitWindow* Wait() const { return wait_; }
    ProgressWindow* Progress() const { return progress_; }
    NeutraliseWindow* Neutralise() const { return neutralise_; }

private:
    void ShowWait(std::string_view text);
    bool ReportProgress(const SolverProgress& progress);

    Workspace& ws_;
    QWidget* owner_;
    UiServices services_;
    QPointer<WaitWindow> wait_;
    QPointer<ProgressWindow> progress_;
    QPointer<NeutraliseWindow> neutralise_;
};

}  // namespace tormel
