#pragma once
// Pixel sizes of the windows: every size is a design value at 96 dpi times
// the screen's scale, and every control uses the program's font.
#include <QFont>

class QScreen;

namespace tormel {

// The screen's vertical logical dots per inch divided by 96 (1 without a screen).
float DpiScaleOf(const QScreen* screen);

// The scale in use; set once at start-up.
float DpiScale();
void SetDpiScale(float scale);

// A 96-dpi design size in pixels of the screen, rounded.
int Scaled(double designPixels);

// "Segoe UI" (or the closest font the system has) at the given size.
QFont UiFontAt(double points, bool italic = false, int weight = QFont::Normal);

// The program's font: "Segoe UI" 10 points, normal weight.
QFont UiFont();

}  // namespace tormel
