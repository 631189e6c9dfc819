// Where the main window opens for saved placements and on a first start.
#include <gtest/gtest.h>

#include "ui/main/window_placement.h"

namespace tormel {
namespace {

struct PlacementCase {
    const char* name;
    std::optional<SavedPlacement> saved;
    float scale;
    QRect expected;
    bool maximised;
};

TEST(WindowPlacement, KeepsTheWindowInsideTheWorkArea) {
    const QRect work(0, 0, 1280, 770);  // right 1280, bottom 770
    const PlacementCase cases[] = {
        {"first start fills the work area", std::nullopt, 1, QRect(-7, 0, 1294, 777), false},
        {"first start at scale 2", std::nullopt, 2, QRect(-14, 0, 1308, 784), false},
        {"a fitting window stays", SavedPlacement{100, 50, 800, 600, 1}, 1, QRect(100, 50, 800, 600), false},
        {"too wide: work-area width + 7 at -7", SavedPlacement{100, 50, 1400, 600, 1}, 1, QRect(-7, 50, 1287, 600),
         false},
        {"negative left: -7", SavedPlacement{-40, 50, 800, 600, 1}, 1, QRect(-7, 50, 800, 600), false},
        {"past the right edge moves left", SavedPlacement{600, 50, 800, 600, 1}, 1, QRect(466, 50, 800, 600), false},
        {"too high: height + 7 at the top", SavedPlacement{100, 50, 800, 900, 1}, 1, QRect(100, 0, 800, 777), false},
        {"negative top becomes 0", SavedPlacement{100, -20, 800, 600, 1}, 1, QRect(100, 0, 800, 600), false},
        {"past the bottom moves up", SavedPlacement{100, 300, 800, 600, 1}, 1, QRect(100, 156, 800, 600), false},
        {"state 3 opens maximised", SavedPlacement{100, 50, 800, 600, 3}, 1, QRect(100, 50, 800, 600), true},
    };
    for (const PlacementCase& c : cases) {  // with the 7-pixel invisible border of Windows
        SCOPED_TRACE(c.name);
        const WindowPlacement placement = PlaceMainWindow(work, c.scale, c.saved, 7);
        EXPECT_EQ(placement.frame, c.expected);
        EXPECT_EQ(placement.maximised, c.maximised);
    }
    // without an invisible border (X11, Wayland) the window fills the work area exactly
    EXPECT_EQ(PlaceMainWindow(work, 2, std::nullopt, 0).frame, work);
    EXPECT_EQ(PlaceMainWindow(work, 1, SavedPlacement{-40, 300, 1400, 600, 1}, 0).frame, QRect(0, 170, 1280, 600));
}

}  // namespace
}  // namespace tormel
