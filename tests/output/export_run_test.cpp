// The program without windows writes the exports that the output name's
// extension asks for, from "/run:" and from a batch file.
#include <gtest/gtest.h>

#include "core/text_file.h"
#include "core/utf16.h"
#include "result_test_support.h"
#include "support/cli_home.h"

namespace tormel::test {
namespace {

std::string DecodedFile(const std::string& path) {
    const std::optional<std::u16string> text = ReadUtf16File(path);
    return text ? Utf16ToUtf8(*text) : std::string();
}

TEST(ExportRun, RunAndBatchWriteTheExportTheExtensionAsksFor) {
    CliHome cli;
    ASSERT_TRUE(WriteReferenceInput(ReferenceCaseFile("co2_open_ph8"), cli.home + "Input/water.i64"));
    ASSERT_EQ(cli.Run("/run:water.i64 water.csv"), 0) << cli.Log();
    const std::string csv = DecodedFile(cli.home + "Output/water.csv");
    EXPECT_EQ(csv.rfind("\"Calculated with TORMEL Next, version ", 0), 0u) << csv.substr(0, 200);
    EXPECT_NE(csv.find("\n\"Gas controlled ligands\"\n"), std::string::npos);
    EXPECT_NE(csv.find("\n\"Block 1: General\"\n\"Number of iterations\"\t"), std::string::npos);

    ASSERT_EQ(cli.Run("/run:water.i64 water.xml"), 0) << cli.Log();
    const std::string xml = DecodedFile(cli.home + "Output/water.xml");
    EXPECT_EQ(xml.rfind("<?xml version=\"1.0\"?>\n<?mso-application progid=\"Excel.Sheet\"?>", 0), 0u);
    EXPECT_NE(xml.find("<Worksheet ss:Name=\"Gas controlled ligands\">"), std::string::npos);
    EXPECT_NE(xml.find("Block 5: Gases"), std::string::npos);

    // the same from a batch file run on two threads
    ASSERT_TRUE(WriteUtf16File(cli.home + "Input/jobs.txt", std::string_view("water.i64 b.csv\nwater.i64 b.xml\n")));
    ASSERT_EQ(cli.Run("/batch:jobs.txt --jobs 2"), 0) << cli.Log();
    EXPECT_EQ(DecodedFile(cli.home + "Output/b.csv"), csv);
    EXPECT_NE(DecodedFile(cli.home + "Output/b.xml").find("<Worksheet ss:Name=\"Gas controlled ligands\">"),
              std::string::npos);
}

}  // namespace
}  // namespace tormel::test
