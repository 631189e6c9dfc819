#pragma once
// The five option pages of the input editor: general options (activity model
// and ionic strength, convergence, precipitation, temperature, neutrality),
// organic matter, redox (with the redox solid list), gases and adsorbents.
// Every field writes its value into the input problem as it is typed; text
// that is not a number in range is refused with a hint, the value staying.
#include <QString>
#include <QTabWidget>
#include <functional>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QWidget;

namespace tormel {

struct Workspace;
class InputList;
enum class TypedRange;

class InputOptionPages : public QTabWidget {
    Q_OBJECT
public:
    // `showHint` shows why typed text was refused (an empty text clears it).
    InputOptionPages(Workspace& ws, std::function<void(const QString&)> showHint, QWidget* parent);

    // Sets every control from the problem (typing is not echoed meanwhile).
    void Fill();
    void UpdateEnabling();

    InputList* RedoxList() const { return redoxList_; }
    InputList* GasList() const { return gasList_; }
    InputList* AdsorbentList() const { return adsList_; }
    QLineEdit* FixedIonicStrength() const { return fixedIonicStrength_; }
    QLineEdit* Absolute() const { return absolute_; }
    QLineEdit* Percent() const { return percent_; }
    QLineEdit* Temperature() const { return temperature_; }
    QLineEdit* Doc() const { return doc_; }
    QLineEdit* Fraction() const { return fraction_; }
    QLineEdit* Pe() const { return pe_; }
    QLineEdit* Mv() const { return mv_; }
    QCheckBox* Precipitation() const { return precipitation_; }
    QCheckBox* Redox() const { return redox_; }
    QButtonGroup* ModelGroup() const { return model_; }
    QButtonGroup* FixedGroup() const { return fixed_; }
    QButtonGroup* TemperatureGroup() const { return temperatureChoice_; }
    QButtonGroup* NeutralGroup() const { return neutral_; }
    QButtonGroup* OrganicGroup() const { return organic_; }
    QComboBox* NeutraliseCation() const { return cation_; }
    QComboBox* NeutraliseAnion() const { return anion_; }

private:
    QWidget* GeneralPage();
    QWidget* OrganicPage();
    QWidget* RedoxPage();
    QWidget* ListPage(const char* groupKey, InputList*& list, const char* valueKey, const char* noteKey);
    QString Text(const char* key) const;
    QLineEdit* Field(TypedRange range, std::function<void(double)> store);
    void SetField(QLineEdit* field, double value, const char* format);

    Workspace& ws_;
    std::function<void(const QString&)> showHint_;
    bool filling_ = false;
    InputList* redoxList_ = nullptr;
    InputList* gasList_ = nullptr;
    InputList* adsList_ = nullptr;
    QLineEdit* fixedIonicStrength_ = nullptr;
    QLineEdit* absolute_ = nullptr;
    QLineEdit* percent_ = nullptr;
    QLineEdit* temperature_ = nullptr;
    QLineEdit* doc_ = nullptr;
    QLineEdit* fraction_ = nullptr;
    QLineEdit* pe_ = nullptr;
    QLineEdit* mv_ = nullptr;
    QCheckBox* precipitation_ = nullptr;
    QCheckBox* redox_ = nullptr;
    QButtonGroup* model_ = nullptr;
    QButtonGroup* fixed_ = nullptr;
    QButtonGroup* temperatureChoice_ = nullptr;
    QButtonGroup* neutral_ = nullptr;
    QButtonGroup* organic_ = nullptr;
    QComboBox* cation_ = nullptr;
    QComboBox* anion_ = nullptr;
    QWidget* organicFields_ = nullptr;
    QWidget* redoxFields_ = nullptr;
    QWidget* temperatureRow_ = nullptr;
    QWidget* fixedRow_ = nullptr;
    QWidget* neutraliseLists_ = nullptr;
    QRadioButton* calculatedRadio_ = nullptr;
};

}  // namespace tormel
