#pragma once
// The image of a main-window tile: pointing at it opens the tile's panel,
// clicking it keeps that panel open.
#include <QLabel>

namespace tormel {

class MainWindow;

class TileImage : public QLabel {
    Q_OBJECT
public:
    TileImage(MainWindow* window, int tile);
    int Tile() const { return tile_; }

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    MainWindow* window_;
    int tile_;
};

}  // namespace tormel
