#pragma once
// The options dialog ("FrmOptions"): what is remembered between runs, the
// update check, the file associations, the language and the colours of the
// main window, on five pages.
#include <QColor>
#include <QDialog>
#include <array>

class QCheckBox;
class QLabel;
class QListWidget;
class QPushButton;
class QTabWidget;

namespace tormel {

struct Workspace;

class OptionsDialog : public QDialog {
    Q_OBJECT
public:
    OptionsDialog(Workspace& ws, QWidget* owner, int page);

    QTabWidget* Tabs() const { return tabs_; }
    QCheckBox* Switch(int n) const { return switches_[n]; }  // 0..4 remember, 5 updates
    QLabel* AssociationLabel() const { return associationText_; }
    QPushButton* AssociateButton() const { return associate_; }
    QPushButton* RemoveButton() const { return remove_; }
    QListWidget* LanguageList() const { return languageList_; }
    // Background, text and hyperlink colours as the dialog holds them.
    QColor Colour(int n) const { return colours_[n]; }
    void SetColour(int n, const QColor& colour);

    // OK: writes the switches and colours to [Options].
    void Confirm();
    // Deletes [Options] and shows its defaults; the dialog stays open.
    void Reset();
    void UpdateAssociations();

private:
    QWidget* RememberPage();
    QWidget* UpdatesPage();
    QWidget* AssociationPage();
    QWidget* LanguagePage();
    QWidget* ColourPage();
    void ReadSwitches();
    void ReadColours();
    void Associate(bool on);

    Workspace& ws_;
    QWidget* owner_;
    QTabWidget* tabs_ = nullptr;
    std::array<QCheckBox*, 6> switches_{};
    std::array<QColor, 3> colours_;
    std::array<QColor, 2> openingColours_;
    std::array<QLabel*, 3> swatches_{};
    QWidget* sample_ = nullptr;
    QLabel* associationText_ = nullptr;
    QPushButton* associate_ = nullptr;
    QPushButton* remove_ = nullptr;
    QListWidget* languageList_ = nullptr;
};

// Colours as the settings file stores them: red in bits 0 to 7, green 8 to
// 15, blue 16 to 23.
QColor ColourFromSetting(int value);
int ColourToSetting(const QColor& colour);

}  // namespace tormel
