#include "ui/output/open_comparison.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScreen>
#include <QToolButton>
#include <QTreeWidget>

#include "core/messages.h"
#include "output/build_other_info.h"
#include "shell/workspace.h"
#include "ui/main/help_of.h"
#include "ui/main/image_resources.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"
#include "ui/output/comparison_window.h"
#include "ui/output/open_output_viewer.h"
#include "ui/output/output_viewer.h"

namespace tormel {

namespace {

QPointer<ComparisonWindow> openComparison;

QRect WorkArea() {
    return QGuiApplication::primaryScreen() ? QGuiApplication::primaryScreen()->availableGeometry()
                                            : QRect(0, 0, 1280, 800);
}

}  // namespace

ComparisonWindow::ComparisonWindow(Workspace& ws, QWidget* owner) : QWidget(owner, Qt::Window), ws_(ws) {
    const Language& lang = ws.language;
    setObjectName(QStringLiteral("FrmViewSideBySide"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(LangQ(lang, "ViewCompare", "Caption"));
    setWindowIcon(ResourceIcon(QStringLiteral("IMG_ICONVIEWSBS")));
    LoadOutputOptions(ws.outputOptions, ws.settings);
    static const char* const kIcons[3] = {"IMG_ICONOK", "IMG_ICONPLUS", "IMG_ICONHELP"};
    QToolButton* buttons[3];
    for (int i = 0; i < 3; ++i) {
        buttons[i] = new QToolButton(this);
        buttons[i]->setIcon(ResourceIcon(QString::fromLatin1(kIcons[i])));
        buttons[i]->setIconSize(QSize(Scaled(28), Scaled(28)));
        buttons[i]->setToolTip(LangQ(lang, "ViewCompare", "ToolTip" + std::to_string(i + 1)));
        buttons[i]->setGeometry(Scaled(22 + 40 * i), Scaled(20), Scaled(36), Scaled(36));
    }
    connect(buttons[0], &QToolButton::clicked, this, &QWidget::close);
    connect(buttons[1], &QToolButton::clicked, this, &ComparisonWindow::AskAndAdd);
    const std::function<void(int)> help = HelpOf(owner);
    connect(buttons[2], &QToolButton::clicked, this, [help] {
        if (help) help(2010);
    });
    auto_ = new QCheckBox(LangQ(lang, "ViewCompare", "ChkBoxAuto"), this);
    auto_->setGeometry(Scaled(144), Scaled(24), Scaled(100), Scaled(28));
    auto_->setChecked(true);
    connect(auto_, &QCheckBox::toggled, this, [this](bool on) {
        if (on) ArrangeViewers();
    });
    files_ = new QTreeWidget(this);
    files_->setRootIsDecorated(false);
    files_->setHeaderLabels({QStringLiteral("#"), LangQ(lang, "ViewCompare", "LVCol2"), QStringLiteral("Description")});
    const QRect area = WorkArea();
    files_->setColumnWidth(0, Scaled(36));
    files_->setColumnWidth(1, Scaled(512));
    files_->setColumnWidth(2, std::max(Scaled(100), area.width() - Scaled(596)));
    setGeometry(area.left(), area.top(), area.width(), Scaled(232));
}

void ComparisonWindow::resizeEvent(QResizeEvent*) {
    files_->setGeometry(Scaled(16), Scaled(75), width() - Scaled(32), Scaled(112));
}

void ComparisonWindow::ShowRows() {
    files_->clear();
    for (const ComparisonRow& row : list_.rows)
        new QTreeWidgetItem(files_, {Q(row.number), Q(row.path), Q(row.description)});
}

bool ComparisonWindow::AddFile(const std::string& path) {
    const int32_t set = static_cast<int32_t>(list_.rows.size());
    if (const std::optional<OutputFileError> error =
            AddToComparison(ws_.results, list_, path, MakeResultContext(ws_), nullptr, &ws_.Ui())) {
        ShowMessage(ws_.Ui(), ws_.language, OutputFileErrorText(ws_.language, *error), {}, IconError);
        return false;
    }
    AddRecentFile(ws_.recentFiles.output, path, ws_.settings);
    ShowRows();
    auto* viewer = new OutputViewer(ws_, set, this, HelpOf(parentWidget()));
    viewer->onClose = [this](OutputViewer* v) { RemoveSet(v->Set()); };
    viewers_.emplace_back(viewer);
    viewer->show();
    if (auto_->isChecked()) ArrangeViewers();
    return true;
}

void ComparisonWindow::AskAndAdd() {
    const bool remember = ws_.settings.ReadSettingBool("Options", "Remember-Folders", true);
    std::string folder = remember ? ws_.settings.ReadSettingString("Options", "MRU-FolderOutputFiles") : "";
    if (folder.empty()) folder = ws_.folders.outputFolder;
    const QString filter = LangQ(ws_.language, "Output", "OutpFls") + QStringLiteral(";;") +
                           LangQ(ws_.language, "Input", "AllFls");
    const QString path =
        QFileDialog::getOpenFileName(this, LangQ(ws_.language, "Output", "DialogOpenTitle"), Q(folder), filter);
    if (path.isEmpty()) return;
    if (remember)
        ws_.settings.WriteSettingString("Options", "MRU-FolderOutputFiles",
                                        S(QFileInfo(path).absolutePath()) + "/");
    AddFile(S(path));
}

void ComparisonWindow::RemoveSet(int32_t set) {
    if (closing_ || set < 0 || set >= static_cast<int32_t>(viewers_.size())) return;
    RemoveFromComparison(ws_.results, list_, set);
    viewers_.erase(viewers_.begin() + set);
    for (size_t i = 0; i < viewers_.size(); ++i)
        if (viewers_[i]) viewers_[i]->SetSet(static_cast<int32_t>(i));
    ShowRows();
    if (auto_->isChecked()) ArrangeViewers();
}

void ComparisonWindow::ArrangeViewers() {
    const int n = static_cast<int>(viewers_.size());
    if (n == 0) return;
    const QRect area = WorkArea();
    const double f = DpiScale();
    const int y0 = frameGeometry().bottom() - 2;
    for (int i = 0; i < n; ++i) {
        if (!viewers_[static_cast<size_t>(i)]) continue;
        const int x = area.left() + i * area.width() / n - static_cast<int>(7 * f);
        const int w = area.width() / n + static_cast<int>(7 * (f + 1));
        const int h = area.bottom() - y0 + static_cast<int>(7 * f);
        viewers_[static_cast<size_t>(i)]->setMinimumSize(0, 0);
        viewers_[static_cast<size_t>(i)]->setGeometry(x, y0, w, h);
    }
}

void ComparisonWindow::closeEvent(QCloseEvent* event) {
    closing_ = true;
    for (QPointer<OutputViewer>& viewer : viewers_)
        if (viewer) viewer->close();
    viewers_.clear();
    CloseComparison(ws_.results, list_);
    ShowRows();
    event->accept();
}

ComparisonWindow* OpenComparisonWindow() { return openComparison.data(); }

void OpenComparison(Workspace& ws, QWidget* owner) {
    if (!openComparison) openComparison = new ComparisonWindow(ws, owner);
    openComparison->show();
    openComparison->raise();
}

}  // namespace tormel
