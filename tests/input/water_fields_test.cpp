#include <gtest/gtest.h>

#include <cmath>

#include "input/input_test_system.h"
#include "input/water_fields.h"
#include "input/water_table.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

using I = test::InputTestIndex;

TEST(WaterFields, ShorthandsBecomeTheLinesOfAnInputFile) {
    const Database db = test::InputTestSystem();
    const struct {
        WaterField field;
        const char* line;
    } cases[] = {
        {{"pH", "7"}, "H: 9.9999999999999995E-08 (free activity)"},
        {{"pe", "2"}, "e: 0.01 (free activity)"},
        {{"pH", "neutral"}, "H: neutral (free activity)"},
        {{"H (total concentration)", "0.001"}, "H: 0.001 (total concentration)"},
        {{"Ca (free activity)", "1e-5"}, "Ca: 1e-5 (free activity)"},
        {{"Ca (wet)", "1"}, "Ca (wet): 1"},
        {{"Temperature", "10"}, "Temperature: 10"},
    };
    for (const auto& c : cases) EXPECT_EQ(WaterFieldLine(c.field, db), c.line) << c.field.name;
}

TEST(WaterFields, AreReadAsAnInputFileAndAnErrorQuotesTheFieldWithoutALineNumber) {
    const Database db = test::InputTestSystem();
    InputProblem input;
    const WaterField water[] = {{"pH", "8"}, {"Ca", "0.002"}, {"Temperature", "10"}};
    ASSERT_FALSE(ReadWaterFields(water, input, db));
    EXPECT_DOUBLE_EQ(input.components[I::H].inputValue, 1e-8);
    EXPECT_EQ(input.components[I::H].inputType, InputType::FreeAct);
    EXPECT_EQ(input.components[I::Ca].inputValue, 0.002);
    EXPECT_EQ(input.components[I::Ca].inputType, InputType::TotalConc);
    EXPECT_EQ(input.temperature, 10);

    const WaterField bad[] = {{"Ca", "0.002"}, {"Xy", "1"}};
    const std::optional<InputFileError> error = ReadWaterFields(bad, input, db);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->key, "ErrorOpen3");
    EXPECT_EQ(error->line, "Xy: 1\n");  // an unknown key is quoted as read
    EXPECT_EQ(error->lineNumber, 0);
}

TEST(WaterTable, ReadsNamedColumnsWithEmptyCellsAsNotGivenAndNamesWhatIsWrong) {
    test::TempFolder folder;
    const std::string path = folder.File("waters.tsv");
    test::WriteBytes(path, "# two waters\nn\tpH\tCa\n1\t7.5\t1e-3\n2\t\t2e-3\r\n");
    WaterTableError error;
    const std::optional<WaterTable> table = ReadWaterTable(path, &error);
    ASSERT_TRUE(table) << error.Describe();
    EXPECT_EQ(table->columns, (std::vector<std::string>{"n", "pH", "Ca"}));
    ASSERT_EQ(table->RowCount(), 2u);
    EXPECT_EQ(table->At(0, 1), 7.5);
    EXPECT_TRUE(std::isnan(table->At(1, 1)));
    EXPECT_EQ(table->At(1, 2), 2e-3);

    const struct {
        const char* text;
        const char* message;
    } bad[] = {
        {"n\tpH\n1\t7\t8\n", "waters.tsv, line 2: 3 cells where the header names 2 columns"},
        {"n\tpH\n1\tseven\n", "waters.tsv, line 2: column pH holds no number"},
        {"# nothing\n", "waters.tsv: no header line naming the columns"},
    };
    for (const auto& c : bad) {
        test::WriteBytes(path, c.text);
        EXPECT_FALSE(ReadWaterTable(path, &error));
        EXPECT_NE(error.Describe().find(c.message), std::string::npos) << error.Describe();
    }
}

}  // namespace
}  // namespace tormel
