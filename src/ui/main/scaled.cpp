#include "ui/main/scaled.h"

#include <QScreen>
#include <cmath>

namespace tormel {

namespace {
float gScale = 1.0f;
}

float DpiScaleOf(const QScreen* screen) {
    if (!screen) return 1.0f;
    return static_cast<float>(screen->logicalDotsPerInchY() / 96.0);
}

float DpiScale() { return gScale; }

void SetDpiScale(float scale) { gScale = scale > 0 ? scale : 1.0f; }

int Scaled(double designPixels) { return static_cast<int>(std::lround(designPixels * gScale)); }

QFont UiFontAt(double points, bool italic, int weight) {
    QFont font(QStringLiteral("Segoe UI"));
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(points > 1 ? points : 1);
    font.setItalic(italic);
    font.setWeight(static_cast<QFont::Weight>(weight));
    return font;
}

QFont UiFont() { return UiFontAt(10); }

}  // namespace tormel
