#include "updates/updates_window.h"

#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

#include "core/messages.h"
#include "shell/workspace.h"
#include "ui/main/help_pages.h"
#include "ui/main/image_resources.h"
#include "ui/main/message_box.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"
#include "updates/web_access.h"

namespace tormel {

UpdatesWindow::UpdatesWindow(Workspace& ws, const std::vector<UpdateRow>& rows, QWidget* owner)
    : QDialog(owner), ws_(ws) {
    setObjectName(QStringLiteral("FrmUpdates"));
    setWindowIcon(ResourceIcon(QStringLiteral("IMAGE_TORMEL")));
    setWindowTitle(LangQ(ws.language, "Updates", "WindowCaption"));
    setFont(UiFont());
    setFixedSize(Scaled(819), Scaled(317));  // 835 by 356 with its frame

    list_ = new QTreeWidget(this);
    list_->setObjectName(QStringLiteral("updateList"));
    list_->setRootIsDecorated(false);
    list_->setGeometry(Scaled(16), Scaled(17), Scaled(787), Scaled(226));
    const char* headings[] = {"Filename", "Filetype", "Currently", "Available"};
    const int widths[] = {200, 140, 140, 160};
    QStringList labels;
    for (const char* key : headings) labels << LangQ(ws.language, "Updates", key);
    list_->setHeaderLabels(labels);
    for (const UpdateRow& row : rows)
        new QTreeWidgetItem(list_, {Q(row.fileName), Q(row.fileType), Q(row.current), Q(row.available)});
    // Each column as wide as its heading or widest cell, plus 24, at least its design width.
    for (int column = 0; column < 4; ++column) {
        int width = list_->header()->fontMetrics().horizontalAdvance(labels[column]);
        for (int r = 0; r < list_->topLevelItemCount(); ++r)
            width = std::max(width, list_->fontMetrics().horizontalAdvance(list_->topLevelItem(r)->text(column)));
        list_->setColumnWidth(column, std::max(width + Scaled(24), Scaled(widths[column])));
    }

    install_ = new QPushButton(LangQ(ws.language, "Updates", "Install"), this);
    install_->setObjectName(QStringLiteral("installButton"));
    install_->setGeometry(Scaled(15), Scaled(258), Scaled(120), Scaled(28));
    install_->setDefault(true);
    connect(install_, &QPushButton::clicked, this, [this] { Install(); });
    auto* more = new QPushButton(LangQ(ws.language, "Updates", "TellMore"), this);
    more->setObjectName(QStringLiteral("tellMoreButton"));
    more->setGeometry(Scaled(266), Scaled(258), Scaled(120), Scaled(28));
    connect(more, &QPushButton::clicked, this, [this] { TellMore(); });
    auto* cancel = new QPushButton(LangQ(ws.language, "Updates", "Cancel"), this);
    cancel->setObjectName(QStringLiteral("cancelButton"));
    cancel->setGeometry(Scaled(517), Scaled(258), Scaled(120), Scaled(28));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* help = new QPushButton(this);
    help->setObjectName(QStringLiteral("helpButton"));
    help->setIcon(ResourceIcon(QStringLiteral("IMG_ICONHELP")));
    help->setGeometry(Scaled(777), Scaled(258), Scaled(28), Scaled(28));
    connect(help, &QPushButton::clicked, this, [this] { OpenHelpTopic(ws_.folders, 2009); });
    access_ = new QLabel(LangQ(ws.language, "Updates", "Access"), this);
    access_->setObjectName(QStringLiteral("access"));
    access_->setGeometry(Scaled(265), Scaled(292), Scaled(538), Scaled(20));
    install_->setFocus();
    CentreOnOwner(this, owner);
}

void UpdatesWindow::Install() {
    const UiServices& ui = ws_.Ui();
    if (ui.showWait) ui.showWait("\n" + LanguageText(ws_.language, "Updates", "InfoDownLoad"));
    const std::string target = QDir::tempPath().toStdString() + "/setup64.exe";
    const bool ok = DownloadFile(UpdateSiteAddress(ws_.settings) + "setup64.exe", target);
    if (ui.closeWait) ui.closeWait();
    if (!ok) {
        ShowMessage(ui, ws_.language, LanguageText(ws_.language, "Updates", "ErrorDownLoad"), {}, IconWarning);
        reject();
        return;
    }
    access_->setText(LangQ(ws_.language, "Updates", "SetupSaved") + QLatin1Char(' ') + Q(target));
    access_->setGeometry(Scaled(15), Scaled(292), Scaled(790), Scaled(20));
    install_->setEnabled(false);
}

void UpdatesWindow::TellMore() {
    const UiServices& ui = ws_.Ui();
    const std::string page = UpdateSiteAddress(ws_.settings) + "history.html";
    if (!ui.openExternal || !ui.openExternal(page))
        ShowMessage(ui, ws_.language, LanguageText(ws_.language, "Updates", "NoBrowser"), {}, IconWarning);
}

}  // namespace tormel
