#include "ui/output/other_info_window.h"

#include <algorithm>

#include <QHeaderView>
#include <QLabel>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "shell/workspace.h"
#include "ui/main/image_resources.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"
#include "ui/output/reaction_definition_window.h"
#include "ui/output/viewer_rows.h"

namespace tormel {

namespace {

constexpr int32_t kSolidsBlock = 3;
constexpr int32_t kGasesBlock = 4;

QTreeWidget* BlockList(const InfoBlock& block) {
    auto* list = new QTreeWidget;
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setIconSize(QSize(Scaled(24), Scaled(16)));
    const int columns = std::max(1, block.columnCount);
    list->setColumnCount(columns);
    const QStringList header = Q(block.gridHeader).split(QLatin1Char(','));
    QStringList titles;
    for (int c = 0; c < columns; ++c) titles << (block.gridHeader.empty() ? QString() : header.value(c));
    list->setHeaderLabels(titles);
    for (int c = 0; c < columns; ++c) {
        list->setColumnWidth(c, Scaled(100));
        list->headerItem()->setTextAlignment(c, (c == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    }
    return list;
}

}  // namespace

std::vector<int32_t> OtherInfoTabs(const ResultSet& set) {
    const InputProblem& input = set.snapshot.input;
    std::vector<int32_t> tabs{0};
    if (input.ionicStrengthModel != kDaviesModel) tabs.push_back(1);
    if (input.organicComplexation) tabs.push_back(2);
    for (int32_t b : {kSolidsBlock, kGasesBlock})
        if (!set.otherInfo[static_cast<size_t>(b)].longText.empty()) tabs.push_back(b);
    if (input.adsorption) tabs.push_back(5);
    tabs.push_back(6);
    return tabs;
}

OtherInfoWindow::OtherInfoWindow(Workspace& ws, int32_t set, QWidget* viewer)
    : QWidget(viewer, Qt::Window), ws_(ws), set_(set), owner_(viewer) {
    setObjectName(QStringLiteral("FrmOtherInfo"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(LangQ(ws.language, "OtherInfo", "Caption"));
    setWindowIcon(ResourceIcon(QStringLiteral("IMG_ICONOUTPUT")));
    resize(Scaled(770), Scaled(438));
    setMinimumSize(Scaled(600), Scaled(300));
    tabs_ = new QTabWidget(this);
    const ResultSet& result = ws.results.sets[static_cast<size_t>(set)];
    blocks_ = OtherInfoTabs(result);
    const QIcon arrows = ResourceIcon(QStringLiteral("IMG_ICONEQARROWS"));
    for (int32_t b : blocks_) {
        const InfoBlock& block = result.otherInfo[static_cast<size_t>(b)];
        auto* page = new QWidget;
        auto* layout = new QVBoxLayout(page);
        layout->setContentsMargins(Scaled(16), Scaled(16), Scaled(16), Scaled(16));
        layout->setSpacing(Scaled(16));
        if (b != 0) {
            auto* caption = new QLabel(Q(block.longText));
            caption->setWordWrap(false);
            layout->addWidget(caption);
        }
        QTreeWidget* list = BlockList(block);
        for (int32_t r = 0; r < block.rowCount; ++r) {
            auto* item = new QTreeWidgetItem(list);
            const int64_t key = r < static_cast<int32_t>(block.rowKeys.size()) ? block.rowKeys[static_cast<size_t>(r)] : 0;
            for (int32_t c = 0; c < std::max(1, block.columnCount); ++c) {
                if (const InfoCell* cell = block.FindCell(c, r)) item->setText(c, Q(block.Shown(*cell)));
                item->setTextAlignment(c, (c == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
            }
            item->setData(0, Qt::UserRole, static_cast<qlonglong>(key));
            if (key >= 10) item->setIcon(0, arrows);
            if (b == kSolidsBlock)
                if (const std::optional<QColor> colour = RowClassColour(static_cast<int32_t>(key)))
                    for (int c = 0; c < list->columnCount(); ++c) item->setBackground(c, *colour);
        }
        for (int c = 0; c < list->columnCount(); ++c) {  // at least 100 wide, wider for longer texts
            list->resizeColumnToContents(c);
            list->setColumnWidth(c, std::clamp(list->columnWidth(c), Scaled(100), Scaled(400)));
        }
        const int tab = static_cast<int>(lists_.size());
        connect(list, &QTreeWidget::itemClicked, this, [this, tab, list](QTreeWidgetItem* item, int column) {
            if (column == 0) RowClicked(tab, list->indexOfTopLevelItem(item));
        });
        layout->addWidget(list);
        lists_.push_back(list);
        tabs_->addTab(page, LangQ(ws.language, "OtherInfo", "InpTabName" + std::to_string(b + 1)));
    }
}

void OtherInfoWindow::RowClicked(int tab, int row) {
    const int32_t block = blocks_[static_cast<size_t>(tab)];
    if (block != kSolidsBlock && block != kGasesBlock) return;
    QTreeWidgetItem* item = lists_[static_cast<size_t>(tab)]->topLevelItem(row);
    if (!item) return;
    const qlonglong key = item->data(0, Qt::UserRole).toLongLong();
    const SetView view = ViewSet(ws_.results, set_);
    if (key >= 6 && key / 10 < static_cast<qlonglong>(view.reactions.size()))
        ShowReactionDefinition(ws_, view.reactions[static_cast<size_t>(key / 10)], this);
}

void OtherInfoWindow::resizeEvent(QResizeEvent*) {
    tabs_->setGeometry(Scaled(16), Scaled(16), width() - Scaled(30), height() - Scaled(31));
}

OtherInfoWindow* OpenOtherInfoWindow(Workspace& ws, int32_t set, QWidget* viewer) {
    auto* window = new OtherInfoWindow(ws, set, viewer);
    window->show();
    return window;
}

}  // namespace tormel
