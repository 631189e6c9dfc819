// The input editor driven through its real widgets: units of the cells, the
// linked fields, keyboard moves, refused text, the search window, OK and
// Cancel.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include "shell/input_editing.h"
#include "ui/desktop_fixture.h"
#include "ui/input/input_editor.h"
#include "ui/input/input_option_pages.h"
#include "ui/input/input_search_window.h"

namespace tormel {
namespace {

void Click(InputList* list, int row, int column) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row, column)).center());
}

// Clicks the value cell of `row`, types, and commits with Enter.
void TypeInRow(InputList* list, int row, const QString& text) {
    Click(list, row, 1);
    list->Editor()->clear();
    QTest::keyClicks(list->Editor(), text);
    QTest::keyClick(list->Editor(), Qt::Key_Return);
}

struct EditorFixture : test::StartedDesktop {
    std::unique_ptr<InputEditor> editor;
    EditorFixture() {
        editor = std::make_unique<InputEditor>(Ws(), &Window());
        editor->resize(1280, 800);
        editor->show();
        QApplication::processEvents();
    }
    int32_t Index(const char* name) { return Ws().chem.db().FindComponent(name); }
    double Value(const char* name) { return Ws().input.components[size_t(Index(name))].inputValue; }
    // The list, with its page shown.
    InputList* List(InputEditor::ListId id) {
        if (id >= InputEditor::RedoxList) editor->Pages()->setCurrentIndex(id);
        return editor->List(id);
    }
    int RowOf(InputEditor::ListId id, const char* name) {
        InputList* list = List(id);
        for (int r = 0; r < list->rowCount(); ++r)
            if (list->item(r, 0)->text() == QString::fromUtf8(name)) return r;
        return -1;
    }
    void TypeInCell(InputEditor::ListId id, const char* name, const QString& text) {
        TypeInRow(List(id), RowOf(id, name), text);
    }
    void ChooseUnit(InputEditor::ListId id, int row, int position) {
        InputList* list = List(id);
        Click(list, row, 2);
        ASSERT_TRUE(list->UnitList()->isVisible());
        list->UnitList()->hidePopup();
        emit list->UnitList()->activated(position);
    }
    void Retype(QLineEdit* field, const QString& text) {
        field->selectAll();
        QTest::keyClicks(field, text);
    }
};

// The unit chosen in a list applies to what is typed in it; the conversions
// themselves are checked by InputEditing.ShownValuesReadBackToTheStoredValue.
TEST(InputEditor, TypedCellValuesAreStoredInTheirUnits) {
    EditorFixture f;
    const double caMass = f.Ws().chem.db().components[size_t(f.Index("Ca"))].molarMass;
    f.ChooseUnit(InputEditor::CationList, 0, 3);
    f.TypeInCell(InputEditor::CationList, "Ca", QStringLiteral("1"));
    EXPECT_DOUBLE_EQ(f.Value("Ca"), 0.001 / caMass);
    EXPECT_EQ(f.List(InputEditor::CationList)->item(f.RowOf(InputEditor::CationList, "Ca"), 2)->text(),
              QStringLiteral("mg/L"));
    // every adsorbent of the database has a row
    EXPECT_EQ(f.List(InputEditor::AdsorbentList)->rowCount(),
              static_cast<int>(EditorRowsOf(f.Ws().chem.db()).adsorbents.size()));
}

TEST(InputEditor, PressureUnitOfTheGasListSwitchesTheConcentrationLists) {
    EditorFixture f;
    f.ChooseUnit(InputEditor::GasList, 0, 2);
    EXPECT_EQ(f.List(InputEditor::GasList)->item(0, 2)->text(), QString::fromUtf8("µ-atm"));
    EXPECT_EQ(f.List(InputEditor::CationList)->item(0, 2)->text(), QString::fromUtf8("µM"));
    f.ChooseUnit(InputEditor::CationList, 0, 1);  // g/L keeps the order of the gas list in mass
    f.ChooseUnit(InputEditor::GasList, 0, 2);
    EXPECT_EQ(f.List(InputEditor::LigandList)->item(0, 2)->text(), QString::fromUtf8("µg/L"));
}

TEST(InputEditor, LinkedFieldsRewriteTheirPartner) {
    EditorFixture f;
    InputOptionPages* pages = f.editor->Pages();
    pages->Redox()->click();
    f.Retype(pages->Pe(), QStringLiteral("7"));
    EXPECT_EQ(pages->Mv()->text(), QStringLiteral("414.113"));
    EXPECT_DOUBLE_EQ(f.Ws().input.components[size_t(f.Ws().chem.db().electronIndex)].inputValue, 1e-7);
    f.Retype(pages->Mv(), QStringLiteral("-59.159"));
    EXPECT_EQ(pages->Pe()->text(), QStringLiteral("-1.000"));
    EXPECT_DOUBLE_EQ(f.Ws().input.components[size_t(f.Ws().chem.db().electronIndex)].inputValue, 10.0);

    f.Retype(pages->Absolute(), QStringLiteral("0.5"));
    EXPECT_EQ(pages->Percent()->text(), QStringLiteral("5.000E+01"));
    EXPECT_DOUBLE_EQ(f.Ws().input.convergenceCriterion, 1.5);
    f.Retype(pages->Percent(), QStringLiteral("0.01"));
    EXPECT_EQ(pages->Absolute()->text(), QStringLiteral("1.000E-04"));
    EXPECT_DOUBLE_EQ(f.Ws().input.convergenceCriterion, 1.0001);
}

TEST(InputEditor, EnablingRulesFollowTheOptions) {
    EditorFixture f;
    InputOptionPages* pages = f.editor->Pages();
    pages->FixedGroup()->button(1)->click();
    EXPECT_TRUE(pages->FixedIonicStrength()->isEnabled());
    pages->ModelGroup()->button(kDaviesModel)->click();
    EXPECT_FALSE(pages->FixedIonicStrength()->isEnabled());
    EXPECT_FALSE(pages->FixedGroup()->button(1)->isEnabled());
    EXPECT_FALSE(pages->Temperature()->isEnabled());
    pages->TemperatureGroup()->button(1)->click();
    EXPECT_EQ(f.Ws().input.temperatureCorrection, 2);
    EXPECT_TRUE(pages->Temperature()->isEnabled());
    EXPECT_FALSE(pages->Doc()->isEnabled());
    pages->OrganicGroup()->button(2)->click();
    EXPECT_TRUE(f.Ws().input.organicComplexation);
    EXPECT_EQ(f.Ws().input.organicModel, Model6);
    EXPECT_TRUE(pages->Doc()->isEnabled());
    EXPECT_FALSE(pages->NeutraliseCation()->isEnabled());
    pages->NeutralGroup()->button(1)->click();
    EXPECT_TRUE(pages->NeutraliseCation()->isEnabled());
    pages->Precipitation()->click();
    EXPECT_TRUE(f.Ws().input.precipitation);
}

TEST(InputEditor, KeysMoveTheEditField) {
    EditorFixture f;
    InputList* list = f.List(InputEditor::CationList);
    const int last = list->rowCount() - 1;
    Click(list, last, 1);
    QTest::keyClick(list->Editor(), Qt::Key_Return);
    EXPECT_EQ(list->EditedRow(), last - 1);
    QTest::keyClick(list->Editor(), Qt::Key_Down);
    EXPECT_EQ(list->EditedRow(), last);
    Click(list, 0, 0);
    QTest::keyClick(list->Editor(), Qt::Key_Up);
    EXPECT_EQ(list->EditedRow(), 0);
    QTest::keyClick(list->Editor(), Qt::Key_Return);
    EXPECT_EQ(list->EditedRow(), 1);
    QTest::keyClick(list->Editor(), Qt::Key_PageDown);
    EXPECT_GT(list->EditedRow(), 2);

    // Ctrl+Tab and Ctrl+Shift+Tab turn the pages round
    QApplication::setActiveWindow(f.editor.get());
    ASSERT_TRUE(QTest::qWaitForWindowActive(f.editor.get()));
    QTabWidget* pages = f.editor->Pages();
    QTest::keyClick(list->Editor(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(pages->currentIndex(), 1);
    QTest::keyClick(list->Editor(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(list->Editor(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(pages->currentIndex(), 4);
}

TEST(InputEditor, TextThatIsNoNumberInRangeIsRefused) {
    EditorFixture f;
    ASSERT_TRUE(f.Ws().decimalSeparator.IsPoint());
    f.TypeInCell(InputEditor::CationList, "Ca", QStringLiteral("0.002"));
    for (const char* typed : {"abc", "1,5", "-1", ""}) {
        SCOPED_TRACE(typed);
        f.TypeInCell(InputEditor::CationList, "Ca", QString::fromUtf8(typed));
        EXPECT_DOUBLE_EQ(f.Value("Ca"), 0.002);
        EXPECT_FALSE(f.editor->Hint().isEmpty());
        EXPECT_EQ(f.List(InputEditor::CationList)->EditedRow(), f.RowOf(InputEditor::CationList, "Ca"))
            << "the edit field stays on the refused value";
    }
    f.TypeInCell(InputEditor::CationList, "Ca", QStringLiteral("3e-3"));
    EXPECT_DOUBLE_EQ(f.Value("Ca"), 0.003);
    EXPECT_TRUE(f.editor->Hint().isEmpty());

    InputOptionPages* pages = f.editor->Pages();
    pages->OrganicGroup()->button(1)->click();
    f.Retype(pages->Fraction(), QStringLiteral("1.5"));
    EXPECT_DOUBLE_EQ(f.Ws().input.fulvicFraction, 0.5);
    EXPECT_FALSE(f.editor->Hint().isEmpty());
    f.Retype(pages->Fraction(), QStringLiteral("0.25"));
    EXPECT_DOUBLE_EQ(f.Ws().input.fulvicFraction, 0.25);
}

TEST(InputEditor, SearchSelectsTheComponentAsOneTypes) {
    EditorFixture f;
    test::WhenWindowShows(QStringLiteral("FrmEditInputSearch"), [](QWidget* window) {
        auto* search = static_cast<InputSearchWindow*>(window);
        QTest::keyClicks(search->Field(), QStringLiteral("cu"));
        QTreeWidget* results = search->Results();
        for (int i = 0; i < results->topLevelItemCount(); ++i)
            if (results->topLevelItem(i)->text(0) == QStringLiteral("Cu(II)")) {
                QTest::mouseClick(results->viewport(), Qt::LeftButton, {},
                                  results->visualItemRect(results->topLevelItem(i)).center());
                return;
            }
        search->reject();
    });
    f.editor->ToolButton(3)->click();
    InputList* cations = f.List(InputEditor::CationList);
    EXPECT_EQ(cations->EditedRow(), f.RowOf(InputEditor::CationList, "Cu(II)"));
    EXPECT_TRUE(f.editor->isEnabled());
    // a gas is chosen on its page
    EXPECT_TRUE(f.editor->SelectComponent(f.Index("CO2(g)")));
    EXPECT_EQ(f.editor->Pages()->currentIndex(), 3);
    EXPECT_EQ(f.editor->List(InputEditor::GasList)->EditedRow(), 0);
}

// The lists' columns fit their width, on a full screen and at twice the
// display scale: no list scrolls sideways, and a name cut short shows whole in its tip.
TEST(InputEditor, ListColumnsFitWithoutScrollingSideways) {
    EditorFixture f;
    for (const QSize size : {QSize(1280, 800), QSize(640, 400)}) {
        f.editor->resize(size);
        QApplication::processEvents();
        for (InputEditor::ListId id : {InputEditor::CationList, InputEditor::LigandList}) {
            InputList* list = f.editor->List(id);
            SCOPED_TRACE(testing::Message() << size.width() << " list " << id);
            EXPECT_EQ(list->horizontalScrollBar()->maximum(), 0);
            EXPECT_LE(list->columnViewportPosition(3) + list->columnWidth(3), list->viewport()->width());
            QTableWidgetItem* last = list->item(list->rowCount() - 1, 0);
            EXPECT_EQ(last->toolTip(), last->text());
        }
    }
}

TEST(InputEditor, HelpOpensItsTopicThroughTheMainWindow) {
    EditorFixture f;
    std::vector<int> topics;
    f.Window().Services().openHelp = [&](int topic) { topics.push_back(topic); };
    f.editor->ToolButton(4)->click();
    EXPECT_EQ(topics, std::vector<int>{2001});
    EXPECT_TRUE(f.links.empty());
}

TEST(InputEditor, CancelPutsEverythingBack) {
    test::StartedDesktop fixture;
    fixture.Window().ReceiveHandover(275, QString::fromStdString(fixture.ExampleInput()));
    const InputProblem before = fixture.Ws().input;
    const QString status = fixture.Window().StatusText();
    test::WhenWindowShows(QStringLiteral("FrmEditInput"), [&fixture](QWidget* window) {
        auto* editor = static_cast<InputEditor*>(window);
        InputList* cations = editor->List(InputEditor::CationList);
        TypeInRow(cations, 1, QStringLiteral("5"));
        QTest::keyClicks(editor->Description(), QStringLiteral(" changed"));
        editor->Pages()->Precipitation()->click();
        editor->Pages()->ModelGroup()->button(kMsaModel)->click();
        editor->Pages()->Redox()->click();
        editor->Pages()->Pe()->setText(QStringLiteral("4"));
        editor->Pages()->OrganicGroup()->button(3)->click();
        Click(cations, 0, 3);
        cations->TypeList()->hidePopup();
        emit cations->TypeList()->activated(0);
        EXPECT_EQ(fixture.Ws().input.components[0].inputType, InputType::TotalConc);
        EXPECT_NE(fixture.Ws().input.description, "");
        editor->ToolButton(1)->click();
    });
    fixture.Window().DispatchCommand(1114);
    EXPECT_TRUE(fixture.Ws().input == before);
    EXPECT_EQ(fixture.Window().StatusText(), status);
    EXPECT_TRUE(fixture.Ws().uiReady);
}

TEST(InputEditor, OkReportsTheChecksAndSwitchesAdsorptionOn) {
    test::StartedDesktop fixture;
    Workspace& ws = fixture.Ws();
    const int32_t ads = EditorRowsOf(ws.chem.db()).adsorbents.front();
    ws.input.components[size_t(ads)].inputValue = 1e-4;
    ws.input.components[size_t(ws.chem.db().hydrogenIndex)].inputValue = 0;  // H+ free activity 0
    test::WhenWindowShows(QStringLiteral("FrmEditInput"),
                          [](QWidget* window) { static_cast<InputEditor*>(window)->ToolButton(0)->click(); });
    fixture.Window().DispatchCommand(1114);
    EXPECT_TRUE(ws.input.adsorption);
    EXPECT_TRUE(ws.input.modified);
    EXPECT_TRUE(fixture.Window().StatusText().endsWith(QStringLiteral(" (modified)")));
    ASSERT_EQ(fixture.boxes.size(), 1u);
    EXPECT_NE(fixture.boxes[0].lines.front().find(LanguageText(ws.language, "Input", "ConsistencyError2")),
              std::string::npos);
}

}  // namespace
}  // namespace tormel
