#include "ui/output/pie_chart.h"

#include <cmath>
#include <numbers>

#include <QFontMetricsF>
#include <QPainterPath>

#include "core/c_number.h"

namespace tormel {
namespace {

constexpr double kRadius = 150;           // horizontal radius, design units
constexpr double kVerticalRatio = 0.65;   // vertical radius / horizontal radius
constexpr double kRimDepth = 14;          // height of the pie's lower rim
constexpr double kHiddenFraction = 0.001;
const QColor kBackground(251, 251, 251);
const QColor kOutline(64, 64, 64);

// Chart colours: distinct hues that stay apart on paper and on screen.
constexpr QRgb kColours[] = {
    0x3b8fd9, 0xf29a2e, 0x3aa657, 0xd9453b, 0x8e63c7, 0xf2c94c,
    0x2bb3b0, 0xe06bb0, 0x8a6a4f, 0x9bc53d, 0x5b6fd6, 0xb0b8c4,
};
constexpr int kColourCount = static_cast<int>(std::size(kColours));

double ToNumber(std::string_view text, bool& ok) {
    const std::optional<double> value = ParseDoubleC(text);
    ok = value.has_value();
    return value.value_or(0);
}

QPointF EllipsePoint(const QPointF& centre, double rx, double ry, double degrees) {
    const double a = degrees * std::numbers::pi / 180;
    return {centre.x() + rx * std::cos(a), centre.y() - ry * std::sin(a)};
}

}  // namespace

PieData ParsePieText(std::string_view text) {
    PieData data;
    size_t pos = 0;
    while (pos <= text.size()) {
        const size_t bar = text.find('|', pos);
        if (bar == std::string_view::npos) break;
        bool ok = false;
        const double number = ToNumber(text.substr(pos, bar - pos), ok);
        if (!ok) break;
        if (bar + 1 < text.size() && text[bar + 1] == '"') {
            const size_t close = text.find("\"|", bar + 2);
            if (close == std::string_view::npos) break;
            data.entries.push_back({number, QString::fromUtf8(text.substr(bar + 2, close - bar - 2))});
            pos = close + 2;
        } else {
            data.total = number;  // the rest is the entry count, which the entries already tell
            break;
        }
    }
    return data;
}

bool PieHasNegativeAmount(const PieData& data) {
    for (const PieEntry& entry : data.entries)
        if (entry.amount < 0) return true;
    return false;
}

std::vector<PieSlice> VisiblePieSlices(const PieData& data, double radiusPixels) {
    std::vector<PieSlice> slices;
    float sum = 0;  // fractions in single precision, like the stored amounts' display
    const double ry = radiusPixels * kVerticalRatio;
    for (size_t i = 0; i < data.entries.size(); ++i) {
        const float fraction = static_cast<float>(data.entries[i].amount / data.total);
        if (!std::isfinite(fraction) || fraction <= static_cast<float>(kHiddenFraction)) continue;
        const float start = sum;
        sum += fraction;
        const double startDegrees = 360.0 * start;
        const double endDegrees = 360.0 * sum;
        const QPointF a = EllipsePoint({}, radiusPixels, ry, startDegrees);
        const QPointF b = EllipsePoint({}, radiusPixels, ry, endDegrees);
        const bool samePixel = std::lround(a.x()) == std::lround(b.x()) && std::lround(a.y()) == std::lround(b.y());
        if (samePixel && fraction < 0.99f) continue;
        slices.push_back({static_cast<int>(i), static_cast<int>(slices.size()), startDegrees, endDegrees - startDegrees});
    }
    return slices;
}

QColor PieFillColour(int index, bool colour) {
    const QColor c = QColor::fromRgb(kColours[((index % kColourCount) + kColourCount) % kColourCount]);
    if (colour) return c;
    const int grey = 235 - (index % 8) * 22;  // eight distinguishable greys, light to dark
    return QColor(grey, grey, grey);
}

QColor PieRimColour(int index, bool colour) {
    return PieFillColour(index, colour).darker(150);
}

void DrawPieChart(QPainter& painter, const QRectF& panel, const PieData& data, const PieChartStyle& style) {
    painter.save();
    painter.setClipRect(panel);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = std::min(panel.width() / kPiePanelWidth, panel.height() / kPiePanelHeight);
    painter.translate(panel.topLeft());
    painter.scale(scale, scale);
    const QRectF area(0, 0, kPiePanelWidth, kPiePanelHeight);
    painter.fillRect(area, kBackground);
    if (style.frame) {
        painter.setPen(QPen(kOutline, 1));
        painter.drawRect(area.adjusted(0.5, 0.5, -0.5, -0.5));
    }
    QFont font = painter.font();
    font.setPixelSize(13);
    painter.setFont(font);
    painter.setPen(kOutline);

    if (PieHasNegativeAmount(data)) {
        painter.drawText(QPointF(5, 5 + QFontMetricsF(font).ascent()), style.negativeNote);
        painter.restore();
        return;
    }
    QFont bold = font;
    bold.setBold(true);
    painter.setFont(bold);
    painter.drawText(QPointF(5, 5 + QFontMetricsF(bold).ascent()), style.caption);
    painter.setFont(font);

    const double r = std::round(kRadius);
    const double ry = kVerticalRatio * r;
    const QPointF centre(20 + r, kPiePanelHeight / 2 - 12);
    const QRectF ellipse(centre.x() - r, centre.y() - ry, 2 * r, 2 * ry);
    // Slices too thin to see are judged in the pixels of the device drawn on.
    const std::vector<PieSlice> slices = VisiblePieSlices(data, r * painter.transform().m11());

    painter.setPen(QPen(kOutline, 1));
    for (const PieSlice& slice : slices) {
        painter.setBrush(PieFillColour(slice.colour, style.colour));
        if (slice.spanDegrees >= 359.999)
            painter.drawEllipse(ellipse);
        else
            painter.drawPie(ellipse, static_cast<int>(std::lround(slice.startDegrees * 16)),
                            static_cast<int>(std::lround(slice.spanDegrees * 16)));
    }
    // The rim: the part of each slice below the horizontal axis (180..360
    // degrees), pushed down by the rim depth, last slice first.
    for (auto it = slices.rbegin(); it != slices.rend(); ++it) {
        const double from = std::max(it->startDegrees, 180.0);
        const double to = std::min(it->startDegrees + it->spanDegrees, 360.0);
        if (to <= from) continue;
        QPainterPath rim;
        const int steps = std::max(2, static_cast<int>((to - from) / 3));
        for (int k = 0; k <= steps; ++k) {
            const QPointF p = EllipsePoint(centre, r, ry, from + (to - from) * k / steps);
            k == 0 ? rim.moveTo(p) : rim.lineTo(p);
        }
        for (int k = steps; k >= 0; --k)
            rim.lineTo(EllipsePoint(centre, r, ry, from + (to - from) * k / steps) + QPointF(0, kRimDepth));
        rim.closeSubpath();
        painter.setBrush(PieRimColour(it->colour, style.colour));
        painter.drawPath(rim);
    }

    // Legend: a colour box and the label per visible slice, centred vertically.
    const double left = centre.x() + r + 10;
    const double lineHeight = 20;
    const double gap = 5;
    const double blockHeight = slices.empty() ? 0 : slices.size() * lineHeight + (slices.size() - 1) * gap;
    double y = std::max(24.0, (kPiePanelHeight - blockHeight) / 2);
    const QFontMetricsF metrics(font);
    for (const PieSlice& slice : slices) {
        if (y + lineHeight > kPiePanelHeight) break;  // the rest would fall outside the panel
        painter.setBrush(PieFillColour(slice.colour, style.colour));
        painter.drawRect(QRectF(left, y, 30, lineHeight));
        const double textLeft = left + 36;
        const QString label = metrics.elidedText(data.entries[slice.entry].label, Qt::ElideRight,
                                                 kPiePanelWidth - textLeft - 4);
        painter.drawText(QRectF(textLeft, y, kPiePanelWidth - textLeft, lineHeight), Qt::AlignVCenter | Qt::AlignLeft,
                         label);
        y += lineHeight + gap;
    }
    painter.restore();
}

}  // namespace tormel
