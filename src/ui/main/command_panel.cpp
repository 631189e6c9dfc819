// The command panel of the main window: opened under a tile, it shows the
// tile's commands as buttons with their icons and descriptions, and a second
// column for the items that have their own sub-commands or recent files.
#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStatusBar>
#include <algorithm>
#include <filesystem>

#include "input/input_title.h"
#include "shell/workspace.h"
#include "ui/main/command_table.h"
#include "ui/main/main_window.h"
#include "ui/main/recent_file_description.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"

namespace tormel {

namespace {

enum PanelKind { KindButton = 1, KindDescription = 2, KindIcon = 3, KindList = 4 };
constexpr size_t kMaxPanelControls = 100;

// Whether a panel button is disabled: the fixed ones always, the result
// commands without results, "from your defaults" without "defaults.i64".
bool Disabled(int command, bool results, bool userDefaults) {
    if (AlwaysDisabled(command)) return true;
    if (!results && (command == 1131 || (command >= 1134 && command <= 1136) || (command >= 1231 && command <= 1234)))
        return true;
    return command == 1212 && !userDefaults;
}

}  // namespace

QWidget* MainWindow::AddPanelWidget(QWidget* widget, int kind) {
    widget->setProperty("panelKind", kind);
    if (panel_.size() < kMaxPanelControls) panel_.emplace_back(widget);
    return widget;
}

QPushButton* MainWindow::PanelButton(int command) const {
    for (const QPointer<QWidget>& widget : panel_)
        if (widget && widget->property("command").toInt() == command)
            if (auto* button = qobject_cast<QPushButton*>(widget.data())) return button;
    return nullptr;
}

QListWidget* MainWindow::RecentList(int command) const {
    for (const QPointer<QWidget>& widget : panel_)
        if (widget && widget->property("command").toInt() == command)
            if (auto* list = qobject_cast<QListWidget*>(widget.data())) return list;
    return nullptr;
}

int MainWindow::BuildPanelColumn(const std::vector<const MenuItem*>& items, int x0, int firstRow, int rowHeight,
                                 int buttonHeight, int descriptionHeight, bool second) {
    const double unit = static_cast<double>(rowHeight) / Scaled(50);
    const int X = x0 + static_cast<int>(unit * Scaled(27)) + buttonHeight + Scaled(second ? 24 : 60);
    const int iconX = x0 + static_cast<int>(unit * Scaled(15)) + Scaled(second ? 24 : 60) - buttonHeight / 2;
    const bool results = ResultsAvailable();
    const bool userDefaults = std::filesystem::exists(UserDefaultsPath(ws_.folders.inputFolder));
    const QFont buttonFont = rowHeight == Scaled(50) ? UiFont() : UiFontAt(std::max(6.0, unit * 10));
    const QFont descriptionFont = UiFontAt(rowHeight == Scaled(50) ? 10 : std::max(6.0, unit * 10), true);
    std::vector<QPushButton*> buttons;
    int widest = Scaled(100), right = X;
    for (size_t i = 0; i < items.size(); ++i) {
        const MenuItem& item = *items[i];
        const int y = firstRow + static_cast<int>(i) * rowHeight;
        auto* button = new QPushButton(LangQ(ws_.language, item.section, item.key), this);
        button->setObjectName(QStringLiteral("cmd%1").arg(item.command));
        button->setProperty("command", item.command);
        button->setFont(buttonFont);
        button->setFocusPolicy(Qt::TabFocus);
        button->setEnabled(!Disabled(item.command, results, userDefaults));
        button->setGeometry(X, y, Scaled(100), buttonHeight);
        button->hide();
        connect(button, &QPushButton::clicked, this, [this, command = item.command] { DispatchCommand(command); });
        widest = std::max(widest, QFontMetrics(buttonFont).horizontalAdvance(button->text()) + Scaled(16));
        buttons.push_back(button);
        AddPanelWidget(button, KindButton);

        auto* description = new QLabel(Q(ItemDescription(ws_.language, item)), this);
        description->setFont(descriptionFont);
        const int textWidth = QFontMetrics(descriptionFont).horizontalAdvance(description->text()) + Scaled(4);
        description->setGeometry(X, y + buttonHeight, std::max(Scaled(second ? 300 : 400), textWidth),
                                 std::max(descriptionHeight, QFontMetrics(descriptionFont).height()));
        description->show();
        // the second column starts right of the longest text, not of the label's box
        right = std::max(right, X + textWidth);
        AddPanelWidget(description, KindDescription);

        auto* icon = new QLabel(this);
        const QPixmap image = services_.image ? services_.image(item.image, buttonHeight) : QPixmap();
        if (!image.isNull()) icon->setPixmap(image.scaled(buttonHeight, buttonHeight, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        icon->setGeometry(iconX, y, buttonHeight, buttonHeight);
        icon->show();
        AddPanelWidget(icon, KindIcon);
        panelLines_.emplace_back(x0 + (second ? 0 : Scaled(16)), y + buttonHeight / 2, iconX - Scaled(2), y + buttonHeight / 2);
    }
    for (QPushButton* button : buttons) button->resize(widest, button->height());
    right = std::max(right, X + widest);
    return right;
}

void MainWindow::AddRecentList(int item, int x, int y, int rowHeight) {
    RecentFileList& files = item == 2 ? ws_.recentFiles.input : ws_.recentFiles.output;
    PruneRecentFiles(files);
    auto* list = new QListWidget(this);
    const int command = item == 2 ? kRecentInputList : kRecentOutputList;
    list->setObjectName(QStringLiteral("recent%1").arg(command));
    list->setProperty("command", command);
    list->setGeometry(x, y, std::min(Scaled(350), width() - x - Scaled(16)), 3 * rowHeight - Scaled(16));
    list->setTextElideMode(Qt::ElideMiddle);
    for (const RecentFileEntry& entry : files.places) {
        if (entry.Empty()) continue;
        auto* row = new QListWidgetItem(Q(entry.Path()), list);
        row->setToolTip(Q(RecentFileTooltip(entry.Path())));
    }
    connect(list, &QListWidget::currentRowChanged, this, [this, command](int row) {
        if (row >= 0) OpenRecentFile(command, row + 1);
    });
    list->show();
    AddPanelWidget(list, KindList);
}

void MainWindow::OpenPanel(int tile) {
    if (buildingPanel_ || !ws_.uiReady || tile < 0 || tile > 5) return;
    buildingPanel_ = true;
    ClosePanel();
    panelTile_ = tile;
    infoShown_ = false;
    const int H = AvailableHeight();
    const QRect caption = captions_[tile]->geometry();
    const int captionBottom = caption.bottom() + Scaled(5);
    const int P = std::min(captionBottom + Scaled(59), static_cast<int>(0.319 * H));
    const int A = statusBar()->geometry().top() - P;
    int R = Scaled(50), B = Scaled(24), D = Scaled(18);
    if (A <= Scaled(500)) {
        R = std::max(A / 10, Scaled(20));
        B = static_cast<int>(0.48 * R);
        D = static_cast<int>(0.36 * R);
    }
    // connector from the caption down and along to the panel's left edge
    const int middle = caption.center().x();
    const int connectorY = (captionBottom + P) / 2;
    panelLines_.emplace_back(middle, captionBottom, middle, connectorY);
    panelLines_.emplace_back(Scaled(16), connectorY, middle, connectorY);

    const std::vector<const MenuItem*> items = TileItems(tile);
    const int right = BuildPanelColumn(items, 0, P, R, B, D, false);
    if (!items.empty())
        panelLines_.emplace_back(Scaled(16), connectorY, Scaled(16),
                                 P + static_cast<int>(items.size() - 1) * R + B / 2);
    const int column = right + Scaled(24);
    for (size_t i = 0; i < items.size(); ++i) {
        const MenuItem& parent = *items[i];
        const int y = P + static_cast<int>(i) * R;
        if (HoldsRecentList(parent.item)) {
            panelLines_.emplace_back(right - Scaled(8), y + B / 2, column, y + B / 2);
            AddRecentList(parent.item, column, y, R);
            continue;
        }
        const std::vector<const MenuItem*> sub = SubItems(parent.item);
        if (sub.empty()) continue;
        panelLines_.emplace_back(right - Scaled(8), y + B / 2, column, y + B / 2);
        BuildPanelColumn(sub, column, y, R, B, D, true);
    }
    for (const QPointer<QWidget>& widget : panel_)
        if (widget) widget->show();
    update();
    buildingPanel_ = false;
    QApplication::processEvents();
}

void MainWindow::ClosePanel() {
    // hidden at once, deleted later: a panel button may be the caller
    for (QPointer<QWidget>& widget : panel_)
        if (widget) {
            widget->hide();
            widget->deleteLater();
        }
    panel_.clear();
    panelLines_.clear();
    panelTile_ = -1;
    if (webLink_) {
        webLink_->hide();
        webLink_->deleteLater();
    }
    webLink_ = nullptr;
    infoShown_ = false;
    update();
}

}  // namespace tormel
