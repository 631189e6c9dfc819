#pragma once
// One report list of the input editor (cations, ligands, redox solids, gases,
// adsorbents): a row per component with name, value, unit and, in the two
// main lists, the input type. Values are edited in place: a click opens the
// edit field over the value cell, or the unit or type list over its cell;
// Enter, Up, Down, Page Up and Page Down commit and move the edit field.
#include <QStringList>
#include <QTableWidget>
#include <functional>
#include <vector>

class QComboBox;
class QLineEdit;

namespace tormel {

class InputList : public QTableWidget {
    Q_OBJECT
public:
    struct Row {
        QString name, value, unit, type;
    };
    struct Callbacks {
        // The typed text of a row; false when it was refused (the stored
        // value stays and the cell keeps its text).
        std::function<bool(int row, const QString& text)> commitValue;
        std::function<void(int position)> chooseUnit;
        std::function<void(int row, int position)> chooseType;
        // The position of the row's type in the type list (main lists only).
        std::function<int(int row)> typePosition;
        // The row became the current cell of the editor.
        std::function<void()> becameCurrent;
    };

    // `headers`: three columns (name, value, unit) or four (with the type).
    InputList(const QStringList& headers, QWidget* parent);
    ~InputList() override;
    void SetCallbacks(Callbacks callbacks) { callbacks_ = std::move(callbacks); }
    void SetRows(const std::vector<Row>& rows);
    void SetUnitChoices(const QStringList& units, int current);
    void SetTypeChoices(const QStringList& types) { typeChoices_ = types; }

    // Makes `row` the current cell and opens the edit field on it with the focus.
    void OpenEditor(int row);
    // Commits the open edit field; false when its text was refused.
    bool CommitEditor();
    void CloseEditor();
    void OpenUnitList(int row);
    // `position` preset in the type list.
    void OpenTypeList(int row, int position);
    QLineEdit* Editor() const { return editor_; }
    QComboBox* UnitList() const { return unitList_; }
    QComboBox* TypeList() const { return typeList_; }
    int EditedRow() const { return editedRow_; }
    void ClearCurrent();
    // Sizes the columns to the list's width: value, unit and type as wide as
    // their texts, the name the rest (long names elided, whole in their tool
    // tips); in a very narrow list the type gives up width first, then the
    // list scrolls sideways.
    void FitColumns();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeCurrent(int row);
    void Move(int row);
    int VisibleRows() const;
    void PlaceOver(QWidget* widget, int row, int column);

    Callbacks callbacks_;
    QLineEdit* editor_ = nullptr;
    QComboBox* unitList_ = nullptr;
    QComboBox* typeList_ = nullptr;
    QStringList typeChoices_;
    int editedRow_ = -1;
    int listRow_ = -1;
    bool committing_ = false;
};

}  // namespace tormel
