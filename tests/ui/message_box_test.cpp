// The program's message box: Enter, Escape and the close box answer as the
// request says, the check box comes back, and long messages grow the box.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "ui/desktop_fixture.h"
#include "ui/main/message_box.h"

namespace tormel {
namespace {

MessageBoxRequest Question(int enter, int escape, bool check) {
    MessageBoxRequest request;
    request.caption = "Question";
    request.icon = IconQuestion;
    request.lines = {"First line", "Second line"};
    request.buttons = {"Yes", "No", "Cancel"};
    request.enterResult = enter;
    request.escapeResult = escape;
    request.showCheckBox = check;
    request.checkBoxText = "Do not ask again";
    return request;
}

struct KeyCase {
    const char* name;
    int enter, escape;
    std::function<void(QWidget*)> act;
    int expected;
    bool checked;
};

TEST(MessageBox, AnswersKeysButtonsAndTheCloseBox) {
    auto key = [](Qt::Key k) { return [k](QWidget* box) { QTest::keyClick(box, k); }; };
    auto tickAndKey = [](Qt::Key k) {
        return [k](QWidget* box) {
            box->findChild<QCheckBox*>("checkBox")->setChecked(true);
            QTest::keyClick(box, k);
        };
    };
    const KeyCase cases[] = {
        {"Enter answers enterResult 1", 1, 3, key(Qt::Key_Return), 1, false},
        {"Enter answers enterResult 2", 2, 3, key(Qt::Key_Enter), 2, false},
        {"Escape answers escapeResult 3", 1, 3, key(Qt::Key_Escape), 3, false},
        {"the close box answers 0", 1, 3, [](QWidget* box) { box->close(); }, 0, false},
        {"a click answers the button's number", 1, 3,
         [](QWidget* box) { box->findChild<QPushButton*>("button2")->click(); }, 2, false},
        {"the check box comes back", 1, 3, tickAndKey(Qt::Key_Return), 1, true},
        {"Escape without an Escape answer keeps the box; Enter on the focused first button", 0, 0,
         [](QWidget* box) {
             QTest::keyClick(box, Qt::Key_Escape);
             QTest::keyClick(box, Qt::Key_Return);
         },
         1, false},
    };
    for (const KeyCase& c : cases) {
        SCOPED_TRACE(c.name);
        test::WhenWindowShows("FrmMesgBoxChk", c.act);
        bool ready = true;
        const MessageBoxAnswer answer = ShowMessageBoxWindow(Question(c.enter, c.escape, true), nullptr, &ready);
        EXPECT_EQ(answer.result, c.expected);
        EXPECT_EQ(answer.checkBoxChecked, c.checked);
        EXPECT_TRUE(ready) << "the box sets UiReady again when it closes";
    }
}

TEST(MessageBox, LayoutFollowsLinesButtonsAndCheckBox) {
    MessageBoxRequest four = Question(1, 3, false);
    four.lines = {"1\n2", "3\n4"};
    MessageBoxRequest six = four;
    six.lines = {"1\n2", "3\n4", "5\n6"};
    MessageBoxWindow small(four, nullptr), large(six, nullptr);
    EXPECT_EQ(large.height() - small.height(), 36);
    EXPECT_EQ(large.Buttons()[0]->y() - small.Buttons()[0]->y(), 36);
    // three buttons: the first 16 from the left, the last 16 from the right, equal gaps
    const auto& b = small.Buttons();
    EXPECT_EQ(b[0]->x(), 16);
    EXPECT_EQ(small.width() - (b[2]->x() + b[2]->width()), 16);
    EXPECT_NEAR(b[1]->x() - (b[0]->x() + b[0]->width()), b[2]->x() - (b[1]->x() + b[1]->width()), 1);
    EXPECT_GE(b[0]->width(), 81);
    EXPECT_TRUE(b[0]->isDefault());

    MessageBoxRequest one = four;
    one.buttons = {"OK"};
    one.showCheckBox = true;
    MessageBoxWindow single(one, nullptr);
    EXPECT_NEAR(single.Buttons()[0]->x() + single.Buttons()[0]->width() / 2, single.width() / 2, 1);
    EXPECT_EQ(single.height() - small.height(), 34) << "a check box makes the box 194 instead of 160 high";

    MessageBoxRequest wide = four;
    wide.lines = {std::string(120, 'W')};
    MessageBoxWindow widened(wide, nullptr);
    const QWidget* line = widened.findChild<QWidget*>("line0");
    EXPECT_LE(line->geometry().right(), widened.width()) << "every line shows whole";
}

}  // namespace
}  // namespace tormel
