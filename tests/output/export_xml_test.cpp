// The XML spreadsheet export: whole documents compared with golden copies
// (worksheets, rows, cells, styles, column widths, escaping), plus the sheet
// names without a language file and the UTF-16 file.
#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "core/text_file.h"
#include "core/utf16.h"
#include "export_test_support.h"
#include "golden_file.h"
#include "output/export_xml.h"
#include "output/xml_escape.h"
#include "result_test_support.h"
#include "support/temp_folder.h"

namespace tormel::test {
namespace {

// The ss:Name of every worksheet, in order.
std::vector<std::string> SheetNames(const std::string& xml) {
    std::vector<std::string> names;
    const std::string tag = "<Worksheet ss:Name=\"";
    for (size_t at = xml.find(tag); at != std::string::npos; at = xml.find(tag, at)) {
        at += tag.size();
        names.push_back(xml.substr(at, xml.find('"', at) - at));
    }
    return names;
}

struct XmlFixture {
    Language language{EnglishLanguageFile()};
    OutputOptions options;
    std::tm when{};
    XmlFixture() {
        when.tm_year = 2024 - 1900;
        when.tm_mon = 5;
        when.tm_mday = 5;
        when.tm_hour = 14;
        when.tm_min = 3;
        when.tm_sec = 7;
    }
    ExportContext Context() const { return ExportContext{language, options}; }
};

// The whole document compared with its golden copy. The first case has a
// gas sheet, a solids block and a 300-character literature text (its column
// is capped, the others are as wide as their texts); the second shows µM, an
// organic site row, no gas sheet, the fraction of a zero total written as
// text, and a cation name with markup and a control character escaped.
TEST(XmlExport, DocumentMatchesItsGoldenCopy) {
    XmlFixture f;
    ResultStore full = ExportSampleStore({.gas = true, .organic = true});
    full.sets[0].otherInfo[3] = SolidsInfoBlock();
    for (SpeciesResult& s : full.records.species)
        if (!s.literature.empty()) s.literature = std::string(300, 'L');
    ResultStore micromolar = ExportSampleStore({.organic = true});
    micromolar.records.components[1].amounts[AmountTotal] = 0;
    micromolar.records.components[1].displayName = "Ca <\"&\x02>";
    for (const auto& [name, store, order] :
         {std::tuple{"export_full.xml", &full, 0}, std::tuple{"export_micromolar_zero_total.xml", &micromolar, 2}}) {
        SCOPED_TRACE(name);
        f.options.units.order = order;
        ExpectMatchesGolden(FormatXmlExport(*store, 0, f.Context(), f.when), name);
    }
}

TEST(XmlExport, DefaultSheetNamesStandInForMissingTexts) {
    XmlFixture f;
    Language none;
    EXPECT_EQ(SheetNames(FormatXmlExport(ExportSampleStore({.gas = true}), 0, ExportContext{none, f.options}, f.when)),
              (std::vector<std::string>{"Contents", "Cations", "Ligands", "Gas controlled ligands", "Other info"}));
}

TEST(XmlExport, EscapingKeepsTheDocumentWellFormed) {
    EXPECT_EQ(XmlEscape("a & b < c > d \"e\""), "a &amp; b &lt; c &gt; d \"e\"");
    EXPECT_EQ(XmlEscapeAttribute("Sheet \"1\" & <2>"), "Sheet &quot;1&quot; &amp; &lt;2&gt;");
    EXPECT_EQ(XmlEscape(std::string("a\x01"
                                    "b\tc\x1f",
                                    6)),
              "ab\tc");
}

TEST(XmlExport, FileIsUtf16AndRefusedWhereItCannotBeCreated) {
    XmlFixture f;
    TempFolder folder;
    const ResultStore store = ExportSampleStore({.gas = true, .organic = true});
    const std::string path = folder.File("water.xml");
    FileError error;
    ASSERT_TRUE(ExportXml(path, store, 0, f.Context(), &error)) << error.message;
    EXPECT_EQ(ReadBinaryFile(path)->substr(0, 4), std::string("\xFF\xFE<\0", 4));
    EXPECT_EQ(SheetNames(ReadUtf16Text(path)).size(), 5u);

    const std::string missing = folder.File("missing/water.xml");
    EXPECT_FALSE(ExportXml(missing, store, 0, f.Context(), &error));
    EXPECT_FALSE(FileExists(missing));
}

}  // namespace
}  // namespace tormel::test
