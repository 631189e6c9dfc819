// tormel-cli FILE.o64: the result tables of the example hard water as a
// terminal shows them (golden text), within 120 columns unless --wide asks
// for the references in line; a damaged output file is reported with its
// path and line and ends with exit code 1.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/text_file.h"
#include "golden_file.h"
#include "output/printed_tables.h"
#include "support/cli_home.h"
#include "text_lines.h"

namespace tormel::test {
namespace {

namespace fs = std::filesystem;

size_t Columns(const std::string& line) {
    size_t n = 0;
    for (unsigned char c : line) n += (c & 0xC0) != 0x80 ? 1 : 0;
    return n;
}

// The example hard water, calculated into Output/hard_water.o64.
struct HardWater : CliHome {
    bool ok = false;
    HardWater() {
        fs::copy_file(fs::path(TORMEL_SOURCE_DIR) / "data/examples/hard_water.i64", home + "Input/hard_water.i64");
        ok = Run("/run:hard_water.i64") == 0;
    }
    std::string OutputFile() const { return home + "Output/hard_water.o64"; }
};

TEST(PrintedTables, TheExampleWaterFitsATerminalWithNumberedReferences) {
    HardWater water;
    ASSERT_TRUE(water.ok) << water.Log();
    ASSERT_EQ(water.Run("hard_water.o64"), 0) << water.Log();
    const std::string printed = water.Stdout();
    ExpectMatchesGolden(printed, "printed_hard_water.txt");

    // every line fits; each component's keys point into its own reference list
    size_t keys = 0, references = 0;
    for (const std::string& line : Lines(printed)) {
        EXPECT_LE(Columns(line), kPrintedTableWidth) << line;
        keys += line.find("  [") != std::string::npos ? 1 : 0;
        references += line.rfind("[", 0) == 0 ? 1 : 0;
    }
    EXPECT_GT(keys, 10u);
    EXPECT_GT(references, 5u);

    // --wide: the references stand in full on their species' lines
    ASSERT_EQ(water.Run("--wide hard_water.o64"), 0) << water.Log();
    const std::string wide = water.Stdout();
    EXPECT_EQ(wide.find("\n[1] "), std::string::npos);
    size_t longest = 0;
    for (const std::string& line : Lines(wide)) longest = std::max(longest, Columns(line));
    EXPECT_GT(longest, kPrintedTableWidth);
}

TEST(PrintedTables, DamagedOutputFilesAreReportedWithTheirLineAndExitCode1) {
    HardWater water;
    ASSERT_TRUE(water.ok) << water.Log();
    const std::string text = ReadBinaryFile(water.OutputFile()).value();
    // UTF-16 text: cut at an even byte count inside the file; garbage after the last field;
    // random bytes where the file should be
    const std::vector<std::pair<std::string, std::string>> cases = {
        {text.substr(0, (text.size() / 3) & ~size_t{1}), "hard_water.o64:"},
        {text + Utf16Bytes("1 2 3\n", false), "hard_water.o64:"},
        {std::string("\x8f\x12\xa7\x00\xff\x13\x9c\x44\x01", 9), "This is not an output file of TORMEL Next."},
    };
    for (const auto& [bytes, message] : cases) {
        WriteBytes(water.OutputFile(), bytes);
        EXPECT_EQ(water.Run("hard_water.o64"), 1) << water.Log();
        EXPECT_NE(water.Log().find(message), std::string::npos) << water.Log();
        EXPECT_NE(water.Log().find(water.OutputFile()), std::string::npos) << "the path is named: " << water.Log();
        EXPECT_EQ(water.Stdout(), "") << "nothing of a damaged file is printed";
    }
}

}  // namespace
}  // namespace tormel::test
