// A real spreadsheet program reads the XML export: LibreOffice converts the
// workbook of a calculated water, sheet by sheet, to CSV with the cells as
// they are shown, and the sheets, values and percentage style must come out
// as the export meant them. Skipped (visibly) only where LibreOffice is not
// installed, and never in CI.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <vector>

#include "core/c_number.h"
#include "output/export_xml.h"
#include "output/result_tables.h"
#include "result_test_support.h"

namespace tormel::test {
namespace {

namespace fs = std::filesystem;

// The LibreOffice program on the PATH, empty when there is none.
std::string FindLibreOffice() {
    const char* path = std::getenv("PATH");
    if (!path) return std::string();
    std::istringstream folders(path);
    for (std::string folder; std::getline(folders, folder, ':');)
        for (const char* name : {"soffice", "libreoffice"}) {
            const fs::path candidate = fs::path(folder) / name;
            if (fs::exists(candidate)) return candidate.string();
        }
    return std::string();
}

std::string Quote(const std::string& text) { return "'" + text + "'"; }

// A CSV file as LibreOffice writes it (comma, double quotes, UTF-8).
std::vector<std::vector<std::string>> ReadCsv(const fs::path& path) {
    std::ifstream in(path);
    std::vector<std::vector<std::string>> rows;
    std::string line;
    while (std::getline(in, line)) {
        std::vector<std::string> fields(1);
        bool quoted = false;
        for (size_t i = 0; i < line.size(); ++i) {
            const char c = line[i];
            if (quoted && c == '"' && i + 1 < line.size() && line[i + 1] == '"') {
                fields.back() += '"';
                ++i;
            } else if (c == '"') {
                quoted = !quoted;
            } else if (c == ',' && !quoted) {
                fields.emplace_back();
            } else {
                fields.back() += c;
            }
        }
        rows.push_back(fields);
    }
    return rows;
}

// The first row from `from` on whose first field is `first`.
const std::vector<std::string>* FindRow(const std::vector<std::vector<std::string>>& rows, const std::string& first,
                                        size_t from = 0) {
    for (size_t r = from; r < rows.size(); ++r)
        if (!rows[r].empty() && rows[r][0] == first) return &rows[r];
    return nullptr;
}

// The calculated water exported as XML, converted by LibreOffice with
// `filter` into the folder "converted".
struct ConvertedExport {
    CalculatedWorkspace c{ReferenceCaseFile("co2_open_ph8"), 2};
    fs::path out = c.folder.File("converted");
    std::string log;

    // False (with a test failure) when the conversion failed.
    bool Convert(const std::string& soffice, const std::string& filter) {
        const std::string xml = c.folder.File("water.xml");
        if (!c.ok || !ExportXml(xml, c.ws.results, 0, ExportContext{c.ws.language, c.ws.outputOptions})) {
            ADD_FAILURE() << "the water was not calculated and exported";
            return false;
        }
        const std::string command = "timeout 240 " + Quote(soffice) + " -env:UserInstallation=file://" +
                                    c.folder.File("libreoffice-profile") + " --headless --norestore --convert-to " +
                                    Quote(filter) + " --outdir " + Quote(out.string()) + " " + Quote(xml) + " > " +
                                    Quote(c.folder.File("soffice.log")) + " 2>&1";
        const int status = std::system(command.c_str());
        log = ReadBytes(c.folder.File("soffice.log"));
        EXPECT_EQ(status, 0) << command << "\n" << log;
        return status == 0;
    }
};

// The LibreOffice program, or a skip (a failure in CI) when there is none.
#define REQUIRE_LIBREOFFICE(soffice)                                                                               \
    const std::string soffice = FindLibreOffice();                                                                 \
    if (soffice.empty()) {                                                                                         \
        if (std::getenv("CI")) FAIL() << "LibreOffice (soffice) must be installed in CI: libreoffice-calc-nogui";   \
        GTEST_SKIP() << "LibreOffice (soffice) is not installed; the XML export was not read by a spreadsheet program"; \
    }

TEST(LibreOfficeReadsTheXmlExport, SheetsValuesAndPercentages) {
    REQUIRE_LIBREOFFICE(soffice);
    ConvertedExport converted;
    // every sheet (token 12 = -1), cells as shown (token 9), UTF-8 (76), comma-separated
    ASSERT_TRUE(converted.Convert(soffice, "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,true,false,false,-1"));
    CalculatedWorkspace& c = converted.c;
    const fs::path& out = converted.out;
    const std::string& log = converted.log;

    std::map<std::string, std::vector<std::vector<std::string>>> sheets;
    for (const fs::directory_entry& entry : fs::directory_iterator(out)) {
        const std::string stem = entry.path().stem().string();
        ASSERT_EQ(stem.rfind("water-", 0), 0u) << stem;
        sheets[stem.substr(6)] = ReadCsv(entry.path());
    }
    std::vector<std::string> names;
    for (const auto& [name, rows] : sheets) names.push_back(name);
    EXPECT_EQ(names,
              (std::vector<std::string>{"Cations", "Contents", "Gas controlled ligands", "Ligands", "Other info"}))
        << log;
    if (names.size() != 5) return;

    EXPECT_EQ(sheets["Contents"][0][0],
              "This workbook holds the results for the cations, the ligands and the gas controlled ligands.");

    // values shown with the styles: scientific "0.000E+00", percentages "0.00%"
    const SetView view = ViewSet(c.ws.results, 0);
    size_t calcium = 0;
    while (calcium < view.components.size() && view.components[calcium].name != "Ca") ++calcium;
    ASSERT_LT(calcium, view.components.size());
    const ComponentResult& ca = view.components[calcium];
    const auto* dissolved = FindRow(sheets["Cations"], "Dissolved Ca");
    ASSERT_NE(dissolved, nullptr);
    ASSERT_GE(dissolved->size(), 4u);
    EXPECT_EQ((*dissolved)[1], FormatC("%.3E", ca.amounts[AmountDissolved]));
    EXPECT_EQ((*dissolved)[2], "M");
    EXPECT_EQ((*dissolved)[3], FormatC("%.2f%%", 100 * ca.amounts[AmountDissolved] / ca.amounts[AmountTotal]));

    // calcium's species (below its heading; the proton lists some of them too): each with its share of the
    // total, the complexes with their constants
    const auto* heading = FindRow(sheets["Cations"], "Ca");
    ASSERT_NE(heading, nullptr);
    const size_t caRows = static_cast<size_t>(heading - sheets["Cations"].data());
    int checkedComplexes = 0;
    for (const SpeciesListEntry& entry : ParseSpeciesList(ca.speciesList)) {
        const SpeciesResult& species = view.species[entry.species - 1];
        SCOPED_TRACE(species.name);
        const auto* row = FindRow(sheets["Cations"], species.name, caRows);
        ASSERT_NE(row, nullptr);
        ASSERT_GE(row->size(), 8u);
        const double share = species.concentration * entry.coefficient * c.ws.results.sets[0].snapshot.bulkFraction /
                             ca.amounts[AmountTotal];
        EXPECT_EQ((*row)[3], FormatC("%.2f%%", 100 * share));
        if (species.hasConstants) {
            EXPECT_EQ((*row)[6], FormatC("%.3f", species.intrinsicLogK));
            EXPECT_EQ((*row)[7], FormatC("%.3f", species.conditionalLogK));
            ++checkedComplexes;
        }
    }
    EXPECT_GT(checkedComplexes, 0);

    EXPECT_NE(FindRow(sheets["Gas controlled ligands"], "CO3"), nullptr);
    EXPECT_NE(FindRow(sheets["Other info"], "Block 1: General"), nullptr);
    EXPECT_NE(FindRow(sheets["Other info"], "Block 5: Gases"), nullptr);
    const auto* iterations = FindRow(sheets["Other info"], "Number of iterations");
    ASSERT_NE(iterations, nullptr);
    EXPECT_EQ((*iterations)[1], std::to_string(c.ws.results.sets[0].header.iterationCount));
}

}  // namespace
}  // namespace tormel::test
