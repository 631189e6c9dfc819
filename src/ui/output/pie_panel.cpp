#include "ui/output/pie_panel.h"

#include <QPainter>

namespace tormel {

PiePanel::PiePanel(std::function<std::string()> text, PieChartStyle style, QWidget* parent)
    : QWidget(parent), text_(std::move(text)), style_(std::move(style)) {}

void PiePanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    DrawPieChart(painter, QRectF(rect()), ParsePieText(text_()), style_);
}

}  // namespace tormel
