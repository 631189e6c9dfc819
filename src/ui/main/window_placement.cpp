#include "ui/main/window_placement.h"

#include <QWidget>
#include <cmath>
#include <filesystem>

#include "shell/settings.h"

namespace tormel {

WindowPlacement PlaceMainWindow(const QRect& workArea, float scale, const std::optional<SavedPlacement>& saved,
                                int border) {
    const int left = workArea.left(), top = workArea.top();
    const int right = workArea.left() + workArea.width(), bottom = workArea.top() + workArea.height();
    const int d7 = static_cast<int>(std::lround(border * scale));
    const int d14 = static_cast<int>(std::lround(2 * border * scale));
    if (!saved) return {QRect(left - d7, top, right + d14 - left, bottom + d7 - top), false};
    int l = saved->left, t = saved->top, w = saved->width, h = saved->height;
    if (w > (right - left) + d7) {
        l = -d7;
        w = (right - left) + d7;
    } else if (l < 0) {
        l = -d7;
    } else if (l + w + d14 > right) {
        l = right - w - d14;
    }
    if (h > (bottom - top) + d7) {
        h = (bottom - top) + d7;
        t = 0;
    } else if (t < 0) {
        t = 0;
    } else if (t + h + d14 > bottom) {
        t = bottom - h - d14;
    }
    return {QRect(l, t, w, h), saved->state == 3};
}

std::optional<SavedPlacement> ReadSavedPlacement(const Settings& settings, const QRect& workArea) {
    std::error_code error;
    if (!std::filesystem::exists(settings.Path(), error)) return std::nullopt;
    SavedPlacement saved;
    saved.left = settings.ReadSettingInt("Options", "MainWindow_Left", workArea.left());
    saved.top = settings.ReadSettingInt("Options", "MainWindow_Top", workArea.top());
    saved.width = settings.ReadSettingInt("Options", "MainWindow_Width", workArea.left() + workArea.width());
    saved.height = settings.ReadSettingInt("Options", "MainWindow_Height", workArea.top() + workArea.height());
    saved.state = settings.ReadSettingInt("Options", "MainWindow_State", 1);
    return saved;
}

void SaveMainWindowPlacement(Settings& settings, QWidget* window) {
    if (!settings.ReadSettingBool("Options", "Remember-Windows")) return;
    const bool maximised = window->isMaximized();
    settings.WriteSettingInt("Options", "MainWindow_State", maximised ? 3 : 1);
    const QRect normal = maximised || window->isMinimized() ? window->normalGeometry() : window->geometry();
    const QRect frame = window->frameGeometry();
    // the outer rectangle: the normal client rectangle grown by the frame
    const QMargins border(window->geometry().left() - frame.left(), window->geometry().top() - frame.top(),
                          frame.right() - window->geometry().right(), frame.bottom() - window->geometry().bottom());
    const QRect outer = normal.marginsAdded(border);
    settings.WriteSettingInt("Options", "MainWindow_Left", outer.left());
    settings.WriteSettingInt("Options", "MainWindow_Top", outer.top());
    settings.WriteSettingInt("Options", "MainWindow_Width", outer.width());
    settings.WriteSettingInt("Options", "MainWindow_Height", outer.height());
}

}  // namespace tormel
