#include "ui/database/database_viewer.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

#include "core/messages.h"
#include "shell/database_view.h"
#include "shell/workspace.h"
#include "ui/main/image_resources.h"
#include "ui/main/message_box.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"
#include "ui/output/reaction_definition_window.h"

namespace tormel {

namespace {

constexpr int kLowerBottom = 655;  // design value: the lower list ends here whatever the upper list's height

int ButtonWidth(const QPushButton* button) {
    return std::max(button->fontMetrics().horizontalAdvance(button->text()) + Scaled(16), Scaled(81));
}

}  // namespace

DatabaseViewer::DatabaseViewer(Workspace& ws, QWidget* owner) : QDialog(owner), ws_(ws) {
    setObjectName(QStringLiteral("FrmDB_View"));
    setWindowIcon(ResourceIcon(QStringLiteral("IMG_ICONDB")));
    setWindowTitle(LangQ(ws.language, "DB_VIEW", "WindowCaption"));
    setFont(UiFont());
    setFixedSize(Scaled(977), Scaled(661));  // 993 by 700 with its frame

    auto* frame = new QGroupBox(LangQ(ws.language, "DB_VIEW", "FrameCaption"), this);
    frame->setGeometry(Scaled(16), Scaled(16), Scaled(370), Scaled(118));
    const char* keys[] = {"ViewOpt1", "ViewOpt2", "ViewOpt3"};
    for (int m = 0; m < 3; ++m) {
        modes_[m] = new QRadioButton(LangQ(ws.language, "DB_VIEW", keys[m]), this);
        modes_[m]->setObjectName(QStringLiteral("viewMode%1").arg(m + 1));
        modes_[m]->setGeometry(Scaled(32), Scaled(40 + 29 * m), Scaled(340), Scaled(25));
        connect(modes_[m], &QRadioButton::clicked, this, [this, m] { SetMode(m + 1); });
    }
    tree_ = new QTreeWidget(this);
    tree_->setObjectName(QStringLiteral("databaseTree"));
    tree_->setHeaderHidden(true);
    tree_->setGeometry(Scaled(16), Scaled(150), Scaled(370), Scaled(505));
    connect(tree_, &QTreeWidget::currentItemChanged, this, [this] { SelectTreeItem(); });

    auto* explanation = new QLabel(LangQ(ws.language, "DB_VIEW", "Explanation"), this);
    explanation->setWordWrap(true);
    explanation->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    explanation->setGeometry(Scaled(402), Scaled(16), Scaled(570), Scaled(42));

    showButton_ = new QPushButton(LangQ(ws.language, "DB_VIEW", "CmdEqDef"), this);
    showButton_->setObjectName(QStringLiteral("showReaction"));
    showButton_->setEnabled(false);
    showButton_->setGeometry(Scaled(402), Scaled(60), ButtonWidth(showButton_), Scaled(24));
    connect(showButton_, &QPushButton::clicked, this, [this] { ShowEquilibrium(); });
    changeButton_ = new QPushButton(LangQ(ws.language, "DB_VIEW", "CmdChange"), this);
    changeButton_->setObjectName(QStringLiteral("change"));
    changeButton_->setEnabled(false);
    const int changeWidth = ButtonWidth(changeButton_);
    changeButton_->setGeometry(Scaled(973) - changeWidth, Scaled(60), changeWidth, Scaled(24));

    upper_ = new QListWidget(this);
    upper_->setObjectName(QStringLiteral("summaryList"));
    upper_->setSelectionMode(QAbstractItemView::NoSelection);
    upper_->setGeometry(Scaled(402), Scaled(99), Scaled(570), Scaled(79));
    lower_ = new QListWidget(this);
    lower_->setObjectName(QStringLiteral("equilibriumList"));
    lower_->setGeometry(Scaled(402), Scaled(187), Scaled(570), Scaled(kLowerBottom - 187));
    connect(lower_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0) showButton_->setEnabled(true);
    });
    connect(lower_, &QListWidget::itemDoubleClicked, this, [this] { ShowEquilibrium(); });

    CentreOnOwner(this, owner);
    SetMode(ViewByComponent);
}

void DatabaseViewer::SetMode(int mode) {
    mode_ = mode;
    modes_[mode - 1]->setChecked(true);
    FillTree();
}

void DatabaseViewer::FillTree() {
    const DatabaseTree content = BuildDatabaseTree(ws_.chem.db(), ws_.language, mode_);
    tree_->blockSignals(true);
    tree_->clear();
    upper_->clear();
    lower_->clear();
    tree_->setRootIsDecorated(content.connectingLines);
    std::vector<QTreeWidgetItem*> items;
    for (const DatabaseTreeItem& entry : content.items) {
        auto* item = entry.parent < 0 ? new QTreeWidgetItem(tree_) : new QTreeWidgetItem(items[entry.parent]);
        item->setText(0, Q(entry.text));
        item->setData(0, Qt::UserRole, entry.number);
        items.push_back(item);
    }
    if (content.expanded >= 0) items[content.expanded]->setExpanded(true);
    tree_->blockSignals(false);
    if (content.selected >= 0) tree_->setCurrentItem(items[content.selected]);
    showButton_->setEnabled(false);
    changeButton_->setEnabled(false);
    FitSummary();
}

void DatabaseViewer::SelectTreeItem() {
    const QTreeWidgetItem* item = tree_->currentItem();
    const int number = item ? item->data(0, Qt::UserRole).toInt() : 0;
    if (number == 0) return;
    const DatabaseSelection selection =
        SelectDatabaseItem(ws_.chem.db(), ws_.language, mode_, number, ws_.decimalSeparator);
    upper_->clear();
    lower_->clear();
    for (const std::string& line : selection.summary) upper_->addItem(Q(line));
    for (const EquilibriumLine& line : selection.lines) {
        auto* row = new QListWidgetItem(Q(line.text), lower_);
        row->setData(Qt::UserRole, line.equilibrium);
    }
    FitSummary();
}

// The upper list shows exactly its lines; the lower list takes the rest.
void DatabaseViewer::FitSummary() {
    const int count = upper_->count();
    if (count == fittedCount_) return;
    fittedCount_ = count;
    upper_->ensurePolished();
    const int rowHeight = upper_->sizeHintForRow(0) > 0 ? upper_->sizeHintForRow(0) : upper_->fontMetrics().height();
    const int height = std::max(count, 1) * rowHeight + 2 * upper_->frameWidth();
    upper_->resize(upper_->width(), height);
    const int lowerTop = upper_->geometry().bottom() + 1 + Scaled(9);
    lower_->setGeometry(lower_->x(), lowerTop, lower_->width(), Scaled(kLowerBottom) - lowerTop);
}

void DatabaseViewer::ShowEquilibrium() {
    const QListWidgetItem* row = lower_->currentItem();
    if (!row) return;
    const int e = row->data(Qt::UserRole).toInt();
    if (e < 0) {
        ShowMessage(ws_.Ui(), ws_.language, LanguageText(ws_.language, "DB_VIEW", "Org_Text"),
                    LanguageText(ws_.language, "DB_VIEW", "Org_Caption"), IconInformation);
        return;
    }
    definition_ = DatabaseReactionDefinition(ws_.chem.db(), ws_.language, e);
    ShowReactionDefinition(ws_, definition_, this);
}

}  // namespace tormel
