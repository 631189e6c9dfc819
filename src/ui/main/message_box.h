#pragma once
// The program's own message box ("FrmMesgBoxChk"): the lines of the
// message beside an icon, one to several buttons with Enter and Escape
// answers, and an optional check box.
#include <QDialog>
#include <vector>

#include "core/ui_services.h"

class QCheckBox;
class QPushButton;

namespace tormel {

class MessageBoxWindow : public QDialog {
    Q_OBJECT
public:
    MessageBoxWindow(const MessageBoxRequest& request, QWidget* owner);

    MessageBoxAnswer Answer() const;
    const std::vector<QPushButton*>& Buttons() const { return buttons_; }
    int ExtraHeight() const { return extraHeight_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Finish(int result);

    MessageBoxRequest request_;
    std::vector<QPushButton*> buttons_;
    QCheckBox* checkBox_ = nullptr;
    int extraHeight_ = 0;
    int result_ = 0;
    bool checked_ = false;
};

// Shows the box modally, centred on `owner`; `uiReady` (may be null) is
// cleared while it is shown and set again when it closes.
MessageBoxAnswer ShowMessageBoxWindow(const MessageBoxRequest& request, QWidget* owner, bool* uiReady);

// Places a window of the given size centred on its owner.
void CentreOnOwner(QWidget* window, const QWidget* owner);

}  // namespace tormel
