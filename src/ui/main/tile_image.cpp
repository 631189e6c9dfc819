#include "ui/main/tile_image.h"

#include <QEnterEvent>
#include <QMouseEvent>

#include "ui/main/command_table.h"
#include "ui/main/main_window.h"

namespace tormel {

TileImage::TileImage(MainWindow* window, int tile) : QLabel(window), window_(window), tile_(tile) {
    setObjectName(QStringLiteral("tileImage%1").arg(tile));
    setMouseTracking(true);
    setAlignment(Qt::AlignCenter);
    setCursor(Qt::PointingHandCursor);
}

void TileImage::mouseMoveEvent(QMouseEvent* event) {
    window_->TileHovered(tile_, event->globalPosition().toPoint());
    QLabel::mouseMoveEvent(event);
}

void TileImage::enterEvent(QEnterEvent* event) {
    window_->TileHovered(tile_, event->globalPosition().toPoint());
    QLabel::enterEvent(event);
}

void TileImage::leaveEvent(QEvent* event) {
    window_->TileLeft(tile_);
    QLabel::leaveEvent(event);
}

void TileImage::mousePressEvent(QMouseEvent* event) {
    window_->DispatchCommand(kTileImageCommand + tile_);
    QLabel::mousePressEvent(event);
}

}  // namespace tormel
