// The tab-separated export: the line layout, the section headings by kind,
// fractions as plain fractions, the proton without percentages, organic
// site rows, and the "Other info" blocks with their grid headers and cells.
#include <gtest/gtest.h>

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
};

// The whole export compared with its golden copy: the opening lines, the
// section headings where the kind changes (after the cations, before the
// gases), fractions as plain fractions, the proton without percentages,
// unquoted organic site rows with the single-rounded fraction and no rows for
// empty sites, and the "Other info" grid headers (quoted fields with a tab,
// as they stand with a comma, unquoted when a single title).
TEST(CsvExport, ExportMatchesItsGoldenCopy) {
    struct Case {
        const char* golden;
        ExportSampleOptions sample;
        const char* separator;
        int32_t unitOrder;
        bool solids, noCations, singleTitle;
    };
    const Case cases[] = {
        {"csv_full.txt", {.gas = true}, "\t", 0, true, false, false},
        {"csv_comma.txt", {}, ",", 0, true, false, false},
        {"csv_no_cations_single_title.txt", {}, "\t", 0, true, true, true},
        {"csv_organic_micromolar.txt", {.organic = true}, "\t", 2, false, false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.golden);
        CsvFixture f;
        f.options.units.order = c.unitOrder;
        ResultStore store = ExportSampleStore(c.sample);
        if (c.solids) store.sets[0].otherInfo[3] = SolidsInfoBlock();
        if (c.singleTitle) store.sets[0].otherInfo[3].gridHeader = "Solid";
        if (c.noCations) store.records.components[0].kind = store.records.components[1].kind = ComponentType{};
        ExpectMatchesGolden(FormatCsvExport(store, 0, c.separator, f.Context()), c.golden);
    }
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
    EXPECT_EQ(ReadUtf16Text(path), FormatCsvExport(store, 0, "\t", f.Context()));

    const std::string missing = folder.File("no such folder/water.csv");
    EXPECT_FALSE(ExportCsv(missing, "\t", store, 0, f.Context(), &error));
    EXPECT_FALSE(error.message.empty());
    EXPECT_FALSE(FileExists(missing));
    EXPECT_FALSE(ExportCsv(folder.File("set1.csv"), "\t", store, 1, f.Context(), &error));
    EXPECT_FALSE(FileExists(folder.File("set1.csv")));
}

}  // namespace
}  // namespace tormel::test
