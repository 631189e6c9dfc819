// The language-selection window answers the chosen entry, or -1 for Cancel
// and the close box.
#include <gtest/gtest.h>

#include <QListWidget>
#include <QPushButton>

#include "core/language.h"
#include "ui/desktop_fixture.h"
#include "ui/main/language_window.h"

namespace tormel {
namespace {

TEST(LanguageWindow, AnswersTheChosenEntryOrMinusOne) {
    const std::vector<std::string> names = {"English", "Deutsch"};
    struct Case {
        const char* name;
        std::function<void(QWidget*)> act;
        int expected;
    };
    auto choose = [](int row, const char* button) {
        return [row, button](QWidget* window) {
            window->findChild<QListWidget*>("languageList")->setCurrentRow(row);
            window->findChild<QPushButton*>(button)->click();
        };
    };
    const Case cases[] = {
        {"OK with the second entry", choose(1, "okButton"), 1},
        {"Cancel clears the choice", choose(1, "cancelButton"), -1},
        {"the close box clears the choice", [](QWidget* window) { window->close(); }, -1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        test::WhenWindowShows("FrmLanguage", c.act);
        bool ready = true;
        EXPECT_EQ(SelectLanguageWindow(Language(), names, {}, nullptr, &ready), c.expected);
        EXPECT_TRUE(ready);
    }
}

}  // namespace
}  // namespace tormel
