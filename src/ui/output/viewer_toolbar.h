#pragma once
// The output viewer's toolbar in a narrow window (a comparison shows several
// viewers side by side): what does not fit moves into an overflow menu.
#include <array>

class QComboBox;
class QPushButton;
class QToolButton;

namespace tormel {

struct ViewerToolbar {
    std::array<QToolButton*, 7> buttons{};  // the sixth button is followed by the selector and "Other info"
    QComboBox* placement = nullptr;
    QPushButton* otherInfo = nullptr;
    QToolButton* overflow = nullptr;  // offers the hidden controls

    // Gives `overflow` its menu (built each time it opens from the hidden controls).
    void MakeOverflowMenu();
    // Places the controls for a client `width`: at their design positions when
    // they fit, else side by side from the left with the selector narrowed and
    // the controls that still do not fit hidden behind the overflow button.
    void LayOut(int width);
};

}  // namespace tormel
