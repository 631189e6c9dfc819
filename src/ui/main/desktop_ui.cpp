#include "ui/main/desktop_ui.h"

#include <QApplication>
#include <QDesktopServices>
#include <QUrl>

#include "shell/workspace.h"
#include "ui/main/message_box.h"
#include "ui/main/neutralise_window.h"
#include "ui/main/progress_window.h"
#include "ui/main/ui_text.h"
#include "ui/main/wait_window.h"

namespace tormel {

DesktopUi::DesktopUi(Workspace& ws, QWidget* owner) : ws_(ws), owner_(owner) {
    services_.showMessageBox = [this](const MessageBoxRequest& request) {
        return ShowMessageBoxWindow(request, owner_, &ws_.uiReady);
    };
    services_.showWait = [this](std::string_view text) { ShowWait(text); };
    services_.setWaitText = [this](std::string_view text) {
        if (!wait_) return ShowWait(text);
        wait_->SetText(Q(text));
        QApplication::processEvents();
    };
    services_.closeWait = [this] {
        if (wait_) wait_->deleteLater();
        wait_ = nullptr;
        ws_.uiReady = true;
    };
    services_.progress = [this](const SolverProgress& progress) { return ReportProgress(progress); };
    services_.showNeutralise = [this](const NeutraliseWindowText& text) {
        if (!neutralise_) neutralise_ = new NeutraliseWindow(owner_);
        neutralise_->Show(text);
        QApplication::processEvents();
    };
    services_.closeNeutralise = [this] {
        if (neutralise_) neutralise_->deleteLater();
        neutralise_ = nullptr;
    };
    services_.openExternal = [](std::string_view url) { return QDesktopServices::openUrl(QUrl(Q(url))); };
}

DesktopUi::~DesktopUi() {
    delete wait_;
    delete progress_;
    delete neutralise_;
}

void DesktopUi::ShowWait(std::string_view text) {
    ws_.uiReady = false;
    if (!wait_) {
        wait_ = new WaitWindow(LangQOr(ws_.language, "TOOLS", "WaitHead", "Please wait"), owner_);
        wait_->show();
    }
    wait_->SetText(Q(text));
    QApplication::processEvents();
}

bool DesktopUi::ReportProgress(const SolverProgress& progress) {
    if (!progress_) {
        progress_ = new ProgressWindow(ws_.language, ws_.input.convergenceCriterion, ws_.input.precipitation,
                                       ws_.decimalSeparator, owner_);
        progress_->show();
    }
    const bool cancel = progress_->Update(progress);
    // let the Cancel button be pressed between iterations
    QApplication::processEvents();
    return cancel || progress_->CancelRequested();
}

void DesktopUi::CloseProgress() {
    delete progress_;
    progress_ = nullptr;
}

}  // namespace tormel
