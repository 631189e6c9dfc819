#pragma once
// Where the main window opens: from the placement saved in the settings
// file, kept inside the work area, or filling the work area on a first start.
#include <QRect>
#include <optional>

class QWidget;

namespace tormel {

class Settings;

struct SavedPlacement {
    int left = 0, top = 0, width = 0, height = 0;
    int state = 1;  // 3: maximised
};

struct WindowPlacement {
    QRect frame;  // outer rectangle
    bool maximised = false;
};

// The width in design pixels of the window frame's invisible resize border:
// Windows draws 7 pixels of it outside the visible frame, X11 and Wayland
// window managers draw none.
#ifdef Q_OS_WIN
constexpr int kInvisibleFrameBorder = 7;
#else
constexpr int kInvisibleFrameBorder = 0;
#endif

// The placement for a work area at `scale`; without a saved placement the
// window covers the work area, its invisible border `border` design pixels
// beyond the left, right and bottom edges.
WindowPlacement PlaceMainWindow(const QRect& workArea, float scale, const std::optional<SavedPlacement>& saved,
                                int border = kInvisibleFrameBorder);

// The saved placement, when the settings file exists (missing keys take the work area).
std::optional<SavedPlacement> ReadSavedPlacement(const Settings& settings, const QRect& workArea);

// Writes "MainWindow_State" and the normal (restored) outer rectangle.
void SaveMainWindowPlacement(Settings& settings, QWidget* window);

}  // namespace tormel
