#pragma once
// One pie panel of the output viewer: paints the fractions or the species
// pie of the set's pie-chart data text.
#include <functional>
#include <string>

#include <QWidget>

#include "ui/output/pie_chart.h"

namespace tormel {

class PiePanel : public QWidget {
public:
    // `text` answers the data text to draw at each repaint.
    PiePanel(std::function<std::string()> text, PieChartStyle style, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::function<std::string()> text_;
    PieChartStyle style_;
};

}  // namespace tormel
