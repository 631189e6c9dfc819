#include "ui/output/viewer_toolbar.h"

#include <algorithm>

#include <QComboBox>
#include <QMenu>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QToolButton>
#include <vector>

#include "ui/main/scaled.h"

namespace tormel {

void ViewerToolbar::MakeOverflowMenu() {
    auto* menu = new QMenu(overflow);
    overflow->setMenu(menu);
    overflow->setPopupMode(QToolButton::InstantPopup);
    overflow->setText(QStringLiteral("»"));
    QObject::connect(menu, &QMenu::aboutToShow, menu, [this, menu] {
        menu->clear();
        for (QToolButton* button : buttons)
            if (button->isHidden())
                QObject::connect(menu->addAction(button->icon(), button->toolTip()), &QAction::triggered, button,
                                 &QToolButton::click);
        if (placement->isHidden()) {
            QMenu* choices = menu->addMenu(placement->toolTip());
            for (int i = 0; i < placement->count(); ++i) {
                QAction* choice = choices->addAction(placement->itemIcon(i), placement->itemText(i));
                choice->setCheckable(true);
                choice->setChecked(i == placement->currentIndex());
                QObject::connect(choice, &QAction::triggered, placement, [this, i] { placement->setCurrentIndex(i); });
            }
        }
        if (otherInfo->isHidden())
            QObject::connect(menu->addAction(otherInfo->text()), &QAction::triggered, otherInfo, &QPushButton::click);
    });
}

void ViewerToolbar::LayOut(int width) {
    const int top = Scaled(20);
    const int size = Scaled(36);
    if (width - Scaled(16) >= Scaled(578) + size) {  // the design positions
        for (int i = 0; i < 7; ++i) {
            buttons[static_cast<size_t>(i)]->setGeometry(Scaled(i < 6 ? 23 + 40 * i : 578), top, size, size);
            buttons[static_cast<size_t>(i)]->show();
        }
        placement->setGeometry(Scaled(264), top, Scaled(225), size);
        otherInfo->setGeometry(Scaled(493), top, Scaled(81), size);
        placement->show();
        otherInfo->show();
        overflow->hide();
        return;
    }
    // in screen order, each with its width
    std::vector<std::pair<QWidget*, int>> row;
    for (int i = 0; i < 6; ++i) row.emplace_back(buttons[static_cast<size_t>(i)], size);
    // the selector narrowed to its icon and arrow
    QStyleOptionComboBox option;
    option.initFrom(placement);
    row.emplace_back(placement, placement->style()
                                    ->sizeFromContents(QStyle::CT_ComboBox, &option, placement->iconSize(), placement)
                                    .width());
    row.emplace_back(otherInfo, std::max(Scaled(81), otherInfo->sizeHint().width()));
    row.emplace_back(buttons[6], size);
    const int gap = Scaled(2);
    const int right = width - Scaled(8);
    int needed = Scaled(8) - gap;
    for (const auto& item : row) needed += gap + item.second;
    const int room = needed <= right ? right : right - gap - Scaled(24);  // less the overflow button
    int x = Scaled(8);
    bool full = false;
    for (const auto& [widget, w] : row) {
        full = full || x + w > room;
        widget->setHidden(full);
        if (full) continue;
        widget->setGeometry(x, top, w, size);
        x += w + gap;
    }
    overflow->setVisible(full);
    overflow->setGeometry(x, top, Scaled(24), size);
}

}  // namespace tormel
