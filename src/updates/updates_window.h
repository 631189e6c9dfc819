#pragma once
// The updates window ("FrmUpdates"): the newer or missing files of the
// program's web site, and the download of the setup program.
#include <QDialog>
#include <vector>

#include "shell/update_list.h"

class QLabel;
class QPushButton;
class QTreeWidget;

namespace tormel {

struct Workspace;

class UpdatesWindow : public QDialog {
    Q_OBJECT
public:
    UpdatesWindow(Workspace& ws, const std::vector<UpdateRow>& rows, QWidget* owner);

    QTreeWidget* List() const { return list_; }
    QLabel* Access() const { return access_; }
    QPushButton* InstallButton() const { return install_; }
    // Downloads the setup program into the temporary folder; this program
    // does not run it but says where it was saved.
    void Install();
    void TellMore();

private:
    Workspace& ws_;
    QTreeWidget* list_ = nullptr;
    QLabel* access_ = nullptr;
    QPushButton* install_ = nullptr;
};

}  // namespace tormel
