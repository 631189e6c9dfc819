#include "ui/output/output_viewer.h"

#include <algorithm>

#include <QCloseEvent>
#include <QComboBox>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QAbstractItemView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "core/messages.h"
#include "output/build_other_info.h"
#include "output/result_tables.h"
#include "shell/batch_job.h"
#include "shell/workspace.h"
#include "ui/main/image_resources.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"
#include "ui/options/unit_options.h"
#include "ui/output/open_print_dialog.h"
#include "ui/output/other_info_window.h"
#include "ui/output/pie_panel.h"
#include "ui/output/reaction_definition_window.h"
#include "ui/output/viewer_rows.h"

namespace tormel {

namespace {

constexpr int kRoleData = Qt::UserRole;
constexpr int kRoleKey = Qt::UserRole + 1;

QTreeWidget* MakeList(const Language& language, std::initializer_list<std::pair<const char*, int>> columns,
                      bool lastLeft) {
    auto* list = new QTreeWidget;
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setIconSize(QSize(Scaled(24), Scaled(16)));
    QStringList titles;
    for (const auto& c : columns) titles << LangQ(language, "Output", c.first);
    list->setHeaderLabels(titles);
    int i = 0;
    const int last = static_cast<int>(columns.size()) - 1;
    for (const auto& c : columns) {
        list->setColumnWidth(i, std::max(Scaled(c.second), list->header()->sectionSizeHint(i)));
        const bool left = i == 0 || (lastLeft && i == last);
        list->headerItem()->setTextAlignment(i, (left ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
        ++i;
    }
    return list;
}

QTreeWidgetItem* MakeRow(QTreeWidget* list, const auto& texts, int32_t rowClass, bool lastLeft) {
    auto* item = new QTreeWidgetItem(list);
    const int n = static_cast<int>(texts.size());
    const std::optional<QColor> colour = RowClassColour(rowClass);
    for (int c = 0; c < n; ++c) {
        item->setText(c, Q(texts[static_cast<size_t>(c)]));
        const bool left = c == 0 || (lastLeft && c == n - 1);
        item->setTextAlignment(c, (left ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
        if (colour) item->setBackground(c, *colour);
    }
    item->setData(0, kRoleData, rowClass);
    return item;
}

QWidget* Captioned(const QString& caption, QWidget* list) {
    auto* box = new QWidget;
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Scaled(2));
    layout->addWidget(new QLabel(caption));
    layout->addWidget(list);
    return box;
}

}  // namespace

OutputViewer::OutputViewer(Workspace& ws, int32_t set, QWidget* owner, std::function<void(int)> help)
    : QWidget(owner, Qt::Window), ws_(ws), set_(set), help_(std::move(help)) {
    const Language& lang = ws.language;
    setObjectName(QStringLiteral("FrmViewOutput"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(LangQ(lang, "Output", "WindowCaption"));
    setWindowIcon(ResourceIcon(QStringLiteral("IMG_ICONOUTPUT")));
    LoadOutputOptions(ws.outputOptions, ws.settings);

    static const char* const kIcons[7] = {"IMG_ICONOK",    "IMG_ICONSAVE", "IMG_ICONCSV", "IMG_ICONXML",
                                          "IMG_ICONPRINT", "IMG_ICONOPT",  "IMG_ICONHELP"};
    for (int i = 0; i < 7; ++i) {
        auto* button = new QToolButton(this);
        button->setIcon(ResourceIcon(QString::fromLatin1(kIcons[i])));
        button->setIconSize(QSize(Scaled(28), Scaled(28)));
        button->setToolTip(LangQ(lang, "Output", "ToolTip" + std::to_string(i + 1)));
        buttons_[static_cast<size_t>(i)] = button;
    }
    connect(buttons_[0], &QToolButton::clicked, this, &QWidget::close);
    for (int i = 1; i <= 3; ++i) connect(buttons_[static_cast<size_t>(i)], &QToolButton::clicked, this, [this, i] { Save(i); });
    connect(buttons_[4], &QToolButton::clicked, this, [this] { OpenPrintDialogForSet(ws_, set_, this); });
    connect(buttons_[5], &QToolButton::clicked, this, &OutputViewer::ChangeUnits);
    connect(buttons_[6], &QToolButton::clicked, this, [this] {
        if (help_) help_(2002);
    });

    placementBox_ = new QComboBox(this);
    placementBox_->setIconSize(QSize(Scaled(24), Scaled(24)));
    placementBox_->addItem(ResourceIcon(QStringLiteral("IMG_ICONCANCEL")), LangQ(lang, "Output", "Graph_No"));
    placementBox_->addItem(ResourceIcon(QStringLiteral("IMG_ICONPIESDRIGHT")), LangQ(lang, "Output", "Graph_DRight"));
    placementBox_->addItem(ResourceIcon(QStringLiteral("IMG_ICONPIESDBOTTOM")), LangQ(lang, "Output", "Graph_DBottom"));
    placementBox_->setToolTip(LangQ(lang, "Output", "ToolTip8"));
    placementBox_->view()->setMinimumWidth(Scaled(225));  // the list stays readable when the selector is narrowed

    otherInfo_ = new QPushButton(LangQ(lang, "Output", "CmdBtnOI"), this);
    otherInfo_->setToolTip(LangQ(lang, "Output", "ToolTip9"));
    connect(otherInfo_, &QPushButton::clicked, this, &OutputViewer::OpenOtherInfo);
    toolbar_ = {buttons_, placementBox_, otherInfo_, new QToolButton(this)};
    toolbar_.MakeOverflowMenu();

    tree_ = new QTreeWidget;
    tree_->setHeaderHidden(true);
    summary_ = MakeList(lang, {{"Fraction", 150}, {"Concentration", 125}, {"Unit", 50}, {"Percentage", 100}}, false);
    details_ = MakeList(lang,
                        {{"Species", 110},
                         {"Concentration", 100},
                         {"Unit", 50},
                         {"Percentage", 100},
                         {"Activity", 90},
                         {"Unit", 50},
                         {"IntrinsicK", 90},
                         {"ConditionalK", 120},
                         {"LitRef", 150}},
                        true);
    columns_ = new QSplitter(Qt::Horizontal);
    columns_->addWidget(tree_);
    columns_->addWidget(Captioned(LangQ(lang, "Output", "Summary"), summary_));
    rows_ = new QSplitter(Qt::Vertical, this);
    rows_->addWidget(columns_);
    rows_->addWidget(Captioned(LangQ(lang, "Output", "Details"), details_));
    for (QSplitter* bar : {rows_, columns_}) {
        bar->setHandleWidth(Scaled(7));
        bar->setChildrenCollapsible(false);
        bar->setStyleSheet(QStringLiteral("QSplitter::handle { background: rgb(127, 139, 141); }"));
    }
    rows_->handle(1)->setToolTip(LangQ(lang, "Output", "ToolTipHor"));
    columns_->handle(1)->setToolTip(LangQ(lang, "Output", "ToolTipVert"));

    const Settings& s = ws.settings;
    const bool remember = s.ReadSettingBool("Options", "Remember-Windows", true);
    const int horTop = std::max(40, remember ? s.ReadSettingInt("Options", "HorBarTop", 130) : 0);
    const int vertLeft = std::max(40, remember ? s.ReadSettingInt("Options", "VertBarLeft", 175) : 0);
    // the bars keep their distance from the tree's edges when the window is resized
    for (QSplitter* bar : {rows_, columns_}) {
        bar->setStretchFactor(0, 0);
        bar->setStretchFactor(1, 1);
    }
    // a bar stays between 15% and 85% of its span
    for (QSplitter* bar : {rows_, columns_})
        connect(bar, &QSplitter::splitterMoved, bar, [bar] {
            const QList<int> sizes = bar->sizes();
            const int span = sizes.value(0) + sizes.value(1);
            const int first = std::clamp(sizes.value(0), span * 15 / 100, span * 85 / 100);
            if (first != sizes.value(0)) bar->setSizes({first, span - first});
        });
    barTop_ = Scaled(horTop);
    barLeft_ = Scaled(vertLeft);

    const QRect area = QGuiApplication::primaryScreen() ? QGuiApplication::primaryScreen()->availableGeometry()
                                                        : QRect(0, 0, 1280, 800);
    int w = area.width() * 95 / 100;
    int h = area.height() * 95 / 100;
    if (remember) {
        w = std::min(area.width(), s.ReadSettingInt("Options", "OutputWindow_Width", w));
        h = std::min(area.height(), s.ReadSettingInt("Options", "OutputWindow_Height", h));
    }
    resize(w, h);

    auto pieText = [this](bool summary) {
        if (set_ >= ws_.results.SetCount()) return std::string();
        const ResultSet& set = ws_.results.sets[static_cast<size_t>(set_)];
        return summary ? set.summaryPieText : set.detailsPieText;
    };
    pies_[0] = new PiePanel([pieText] { return pieText(true); },
                            {LangQ(lang, "Output", "PieFractions"), LangQ(lang, "Output", "PieNegativeConc")}, this);
    pies_[1] = new PiePanel([pieText] { return pieText(false); },
                            {LangQ(lang, "Output", "PieSpecies"), LangQ(lang, "Output", "PieNegativeConc")}, this);

    connect(tree_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        const int position = item ? item->data(0, kRoleData).toInt() : 0;
        if (position > 0) ShowComponent(position - 1);
    });
    connect(details_, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item, int column) {
        if (column == 0) DetailsRowClicked(details_->indexOfTopLevelItem(item));
    });

    placement_ = std::clamp(ws.settings.ReadSettingInt("Output", "ViewGraphs", 0), 0, 2);
    placementBox_->setCurrentIndex(placement_);
    connect(placementBox_, &QComboBox::currentIndexChanged, this, &OutputViewer::SetPiePlacement);
    BuildTree();
    SetPiePlacement(placement_);
}

void OutputViewer::BuildTree() {
    tree_->clear();
    const SetView view = ViewSet(ws_.results, set_);
    static const std::pair<ComponentType, const char*> kRoots[] = {
        {ComponentType::Cation, "Cations"}, {ComponentType::Ligand, "Ligands"}, {ComponentType::Gas, "Gases"}};
    QTreeWidgetItem* first = nullptr;
    int32_t listed = 0;
    for (const auto& [kind, key] : kRoots) {
        QTreeWidgetItem* root = nullptr;
        for (size_t i = 0; i < view.components.size(); ++i) {
            if (view.components[i].kind != kind) continue;
            if (!root) root = new QTreeWidgetItem(tree_, {LangQ(ws_.language, "Output", key)});
            auto* item = new QTreeWidgetItem(root, {Q(view.components[i].displayName)});
            item->setData(0, kRoleData, static_cast<int>(i) + 1);
            if (!first) first = item;
            ++listed;
        }
        if (root) root->setExpanded(true);
    }
    if (set_ < ws_.results.SetCount()) ws_.results.sets[static_cast<size_t>(set_)].header.listedComponentCount = listed;
    if (first) tree_->setCurrentItem(first);
}

void OutputViewer::ShowComponent(int32_t position) {
    shown_ = position;
    summary_->clear();
    details_->clear();
    const ResultContext context = MakeResultContext(ws_);
    for (const SummaryRow& row : SummaryTable(ws_.results, set_, position, context))
        MakeRow(summary_, row.texts, row.rowClass, false);
    const QIcon arrows = ResourceIcon(QStringLiteral("IMG_ICONEQARROWS"));
    for (const DetailsRow& row : DetailsTable(ws_.results, set_, position, context)) {
        QTreeWidgetItem* item = MakeRow(details_, row.texts, row.rowClass, true);
        item->setData(0, kRoleKey, row.constantsKey);
        if (DetailsRowReaction(row.rowClass) >= 0) item->setIcon(0, arrows);
        if (!ws_.outputOptions.showLogs) continue;
        for (int column : {1, 4})
            item->setToolTip(column, Q(LogarithmTip(ws_.results, set_, position, column, row.texts[0],
                                                     row.texts[static_cast<size_t>(column)], ws_.decimalSeparator)));
    }
    for (PiePanel* pie : pies_) pie->update();
}

void OutputViewer::Refresh() {
    BuildOtherInfo(ws_.results, set_, MakeResultContext(ws_), &ws_.chem.db());
    if (shown_ >= 0) ShowComponent(shown_);
}

void OutputViewer::ChangeUnits() {
    if (!OpenUnitOptions(ws_, true, this)) return;
    SaveOutputOptions(ws_.outputOptions, ws_.settings);
    Refresh();
}

void OutputViewer::OpenOtherInfo() { OpenOtherInfoWindow(ws_, set_, this); }

void OutputViewer::DetailsRowClicked(int row) {
    QTreeWidgetItem* item = details_->topLevelItem(row);
    if (!item) return;
    const int32_t reaction = DetailsRowReaction(item->data(0, kRoleData).toInt());
    const SetView view = ViewSet(ws_.results, set_);
    if (reaction >= 0 && reaction < static_cast<int32_t>(view.reactions.size()))
        ShowReactionDefinition(ws_, view.reactions[static_cast<size_t>(reaction)], this);
}

void OutputViewer::SetPiePlacement(int placement) {
    placement_ = std::clamp(placement, 0, 2);
    if (placementBox_->currentIndex() != placement_) placementBox_->setCurrentIndex(placement_);
    ws_.settings.WriteSettingInt("Output", "ViewGraphs", placement_);
    static const QSize kMinimum[3] = {{700, 400}, {1180, 648}, {1014, 660}};
    const QSize minimum(Scaled(kMinimum[placement_].width()), Scaled(kMinimum[placement_].height()));
    setMinimumSize(minimum);
    if (placement_ > 0) resize(size().expandedTo(minimum));
    LayOut();
}

void OutputViewer::resizeEvent(QResizeEvent*) { LayOut(); }

void OutputViewer::LayOut() {
    toolbar_.LayOut(width());
    const int left = Scaled(16);
    const int top = Scaled(75);
    const int right = width() - Scaled(16) - (placement_ == 1 ? Scaled(490) : 0);
    const int bottom = height() - Scaled(16) - (placement_ == 2 ? Scaled(270) : 0);
    rows_->setGeometry(left, top, std::max(0, right - left), std::max(0, bottom - top));
    if (barTop_ > 0) {  // the stored bar positions, once the content area is known
        rows_->setSizes({barTop_, std::max(0, rows_->height() - barTop_)});
        columns_->setSizes({barLeft_, std::max(0, rows_->width() - barLeft_)});
        barTop_ = 0;
    }
    const QSize pie(Scaled(480), Scaled(260));
    for (PiePanel* p : pies_) p->setVisible(placement_ != 0);
    if (placement_ == 1) {
        pies_[0]->setGeometry(QRect(QPoint(right + Scaled(10), top), pie));
        pies_[1]->setGeometry(QRect(QPoint(right + Scaled(10), top + Scaled(259)), pie));
    } else if (placement_ == 2) {
        pies_[0]->setGeometry(QRect(QPoint(left, bottom + Scaled(10)), pie));
        pies_[1]->setGeometry(QRect(QPoint(left + Scaled(490), bottom + Scaled(10)), pie));
    }
}

void OutputViewer::Save(int button) {
    const Language& lang = ws_.language;
    static const char* const kFilters[4] = {"", "OutputFiles", "CsvFiles", "XMLFiles"};
    static const char* const kExtensions[4] = {"", ".o64", ".csv", ".xml"};
    QString path = QFileDialog::getSaveFileName(this, LangQ(lang, "Output", "DialogSaveTitle"),
                                                Q(ws_.folders.outputFolder), LangQ(lang, "Output", kFilters[button]));
    if (path.isEmpty()) return;
    if (!path.endsWith(QLatin1String(kExtensions[button]), Qt::CaseInsensitive))
        path += QLatin1String(kExtensions[button]);
    const SaveOutcome saved = SaveResults(ws_, S(path), set_);
    if (saved.status != SaveStatus::Saved) {
        ShowMessage(ws_.Ui(), lang,
                    LanguageText(lang, "Batch", SaveFailureKey(saved.status)) + "\n" + S(path) + "\n" + saved.detail,
                    {}, IconError);
        return;
    }
    if (button == 1) AddRecentFile(ws_.recentFiles.output, S(path), ws_.settings);
}

void OutputViewer::closeEvent(QCloseEvent* event) {
    if (onClose) {
        onClose(this);
    } else if (ws_.settings.ReadSettingBool("Options", "Remember-Windows", true)) {
        const double f = DpiScale();
        const QSize normal = isMaximized() || isMinimized() ? normalGeometry().size() : size();
        ws_.settings.WriteSettingInt("Options", "OutputWindow_Width", normal.width());
        ws_.settings.WriteSettingInt("Options", "OutputWindow_Height", normal.height());
        ws_.settings.WriteSettingInt("Options", "VertBarLeft", static_cast<int>(columns_->sizes().value(0) / f));
        ws_.settings.WriteSettingInt("Options", "HorBarTop", static_cast<int>(rows_->sizes().value(0) / f));
    }
    event->accept();
}

}  // namespace tormel
