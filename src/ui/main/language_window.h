#pragma once
// The language-selection window ("FrmLanguage"): the display names of the
// language files in a list, OK, Cancel and a help button.
#include <QDialog>
#include <functional>
#include <string>
#include <vector>

class QListWidget;

namespace tormel {

class Language;

class LanguageWindow : public QDialog {
    Q_OBJECT
public:
    LanguageWindow(const Language& language, const std::vector<std::string>& displayNames,
                   std::function<void(int topic)> openHelp, QWidget* owner);
    // The chosen position, -1 after Cancel or the close box.
    int Chosen() const { return chosen_; }
    QListWidget* List() const { return list_; }

private:
    QListWidget* list_ = nullptr;
    int chosen_ = -1;
};

// Shows the window modally; answers the chosen position or -1.
int SelectLanguageWindow(const Language& language, const std::vector<std::string>& displayNames,
                         std::function<void(int topic)> openHelp, QWidget* owner, bool* uiReady);

}  // namespace tormel
