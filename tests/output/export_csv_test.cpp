// The tab-separated export: the line layout, the section headings by kind,
// fractions as plain fractions, the proton without percentages, organic
// site rows, and the "Other info" blocks with their grid headers and cells.
#include <gtest/gtest.h>

#include <vector>

#include "core/c_number.h"
#include "core/text_file.h"
#include "core/utf16.h"
#include "export_test_support.h"
#include "output/export_csv.h"
#include "result_test_support.h"
#include "support/temp_folder.h"
#include "text_lines.h"

namespace tormel::test {
namespace {

struct CsvFixture {
    Language language{EnglishLanguageFile()};
    OutputOptions options;
    ExportContext Context() const { return ExportContext{language, options}; }
    // The lines of the tab-separated export of set 0.
    std::vector<std::string> ExportLines(const ResultStore& store) const {
        return Lines(FormatCsvExport(store, 0, "\t", Context()));
    }
};

bool HasLine(const std::vector<std::string>& lines, const std::string& line) {
    for (const std::string& l : lines)
        if (l == line) return true;
    return false;
}

TEST(CsvExport, OpeningLinesAndSectionHeadingsByKind) {
    CsvFixture f;
    const ResultStore store = ExportSampleStore({.gas = true});
    const std::string text = FormatCsvExport(store, 0, "\t", f.Context());
    const std::string start =
        "\"Calculated with TORMEL Next, version 0.1.0.0\"\n\n"
        "\"Results of TORMEL Next\"\n\n"
        "\"Cations\"\n"
        "\n\"H\""
        "\n\"Summary\""
        "\n\"Fraction\"\t\"Concentration\"\t\"Unit\"\t\"Percentage\"\n";
    EXPECT_EQ(text.substr(0, start.size()), start);
    // a heading where the kind changes: after the cations, before the gases
    const size_t ligands = text.find("\n\n\"Ligands\"\n\n\"CO3\"\n\"Summary\"");
    const size_t gases = text.find("\n\n\"Gas controlled ligands\"\n\n\"HCO3\"\n");
    EXPECT_NE(ligands, std::string::npos);
    EXPECT_NE(gases, std::string::npos);
    EXPECT_LT(ligands, gases);
    EXPECT_NE(text.find("\n\"Other information\"\n\n\"Block 1 (not used in this calculation)\"\n\n"),
              std::string::npos);

    // without exported cations the first ligand follows the cations heading
    ResultStore noCations = ExportSampleStore();
    noCations.records.components[0].kind = 0;
    noCations.records.components[1].kind = 0;
    EXPECT_NE(FormatCsvExport(noCations, 0, "\t", f.Context()).find("\"Cations\"\n\n\"Ligands\"\n\n\"CO3\""),
              std::string::npos);
}

TEST(CsvExport, FractionsArePlainFractionsOfTheTotalAndTheProtonHasNone) {
    CsvFixture f;
    const std::vector<std::string> lines = f.ExportLines(ExportSampleStore());
    EXPECT_TRUE(HasLine(lines, "\"Dissolved Ca\"\t0.000244140625\t\"M\"\t0.25"));
    EXPECT_TRUE(HasLine(lines, "\"Precipitated Ca\"\t0.000732421875\t\"M\"\t0.75"));
    EXPECT_TRUE(HasLine(lines, "\"Total Ca\"\t0.0009765625\t\"M\"\t1"));
    // species: concentration x coefficient / total, constants, literature
    EXPECT_TRUE(HasLine(lines,
                        "\"CaCO3 (aq)\"\t0.0001220703125\t\"M\"\t0.125\t0.0001220703125\t\"M\"\t3.22\t3.1\t"
                        "\"Plummer & Busenberg <1982>\""));
    // the proton without percentages: fraction empty; activity present; no constants; no literature
    EXPECT_TRUE(HasLine(lines, "\"Dissolved H\"\t1E-07\t\"M\"\t"));
    EXPECT_TRUE(HasLine(lines, "\"H +\"\t1E-07\t\"M\"\t\t1E-07\t\"M\"\t\t\t\"\""));
}

TEST(CsvExport, OrganicSiteRowsAreUnquotedWithTheSingleRoundedFraction) {
    CsvFixture f;
    f.options.units.order = 2;
    const std::vector<std::string> lines = f.ExportLines(ExportSampleStore({.organic = true}));
    const double fraction = static_cast<double>(static_cast<float>(2e-6)) / (1.0 / 1024);
    // label, amount, unit, fraction, four empty columns, reference
    EXPECT_TRUE(HasLine(lines, "FA-monodentate\t2\t\u00B5M\t" + FormatC("%.16G", fraction) + "\t\t\t\t\tTipping 1998"));
    EXPECT_NE(FormatC("%.16G", fraction), FormatC("%.16G", 2e-6 * 1024));
    // no rows for empty sites
    for (const std::string& line : lines) EXPECT_EQ(line.find("HA-"), std::string::npos) << line;
}

TEST(CsvExport, GridHeaderTitlesBecomeQuotedFieldsAndCellsKeepTheirNumbers) {
    CsvFixture f;
    ResultStore store = ExportSampleStore();
    store.sets[0].otherInfo[3] = SolidsInfoBlock();
    const std::string block =
        "\"Block 4: Solids\"\n\"Long text\"\n"
        "\"Solid\"\t\"Saturation index\"\t\"State\"\n"
        "\"Calcite\"\t0.5632\t\"oversaturated\"\n"
        "\"Gypsum\"\t\t\n"
        "\n";
    EXPECT_NE(FormatCsvExport(store, 0, "\t", f.Context()).find(block), std::string::npos);

    // with a comma as separator the header stands as it is
    EXPECT_NE(FormatCsvExport(store, 0, ",", f.Context()).find("\n\"Long text\"\nSolid,Saturation index,State\n"),
              std::string::npos);
    // a single title is not quoted
    store.sets[0].otherInfo[3].gridHeader = "Solid";
    EXPECT_NE(FormatCsvExport(store, 0, "\t", f.Context()).find("\n\"Long text\"\nSolid\n\"Calcite\""),
              std::string::npos);
}

TEST(CsvExport, FileIsUtf16WithCarriageReturnsAndRefusedWhereItCannotBeCreated) {
    CsvFixture f;
    TempFolder folder;
    const ResultStore store = ExportSampleStore({.organic = true});
    const std::string path = folder.File("water.csv");
    FileError error;
    ASSERT_TRUE(ExportCsv(path, "\t", store, 0, f.Context(), &error)) << error.message;
    const std::optional<std::string> bytes = ReadBinaryFile(path);
    ASSERT_TRUE(bytes.has_value());
    EXPECT_EQ(bytes->substr(0, 2), std::string("\xFF\xFE", 2));
    EXPECT_NE(bytes->find(std::string("\r\0\n\0", 4)), std::string::npos);
    const std::optional<std::u16string> back = ReadUtf16File(path);
    ASSERT_TRUE(back.has_value());
    EXPECT_EQ(Utf16ToUtf8(*back), FormatCsvExport(store, 0, "\t", f.Context()));

    const std::string missing = folder.File("no such folder/water.csv");
    EXPECT_FALSE(ExportCsv(missing, "\t", store, 0, f.Context(), &error));
    EXPECT_FALSE(error.message.empty());
    EXPECT_FALSE(FileExists(missing));
    EXPECT_FALSE(ExportCsv(folder.File("set1.csv"), "\t", store, 1, f.Context(), &error));
    EXPECT_FALSE(FileExists(folder.File("set1.csv")));
}

}  // namespace
}  // namespace tormel::test
