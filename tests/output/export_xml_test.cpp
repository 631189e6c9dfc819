// The XML spreadsheet export, read back by a strict little XML parser: the
// document must be well-formed, and the worksheets, rows, cells and styles
// must be where a spreadsheet program will look for them.
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <optional>
#include <tuple>
#include <vector>

#include "core/c_number.h"
#include "core/text_file.h"
#include "core/utf16.h"
#include "export_test_support.h"
#include "output/export_xml.h"
#include "output/xml_escape.h"
#include "result_test_support.h"
#include "support/temp_folder.h"

namespace tormel::test {
namespace {

// ---- a strict reader for the XML the export writes ----
// Elements, attributes in double quotes and character data with the
// predefined entities; processing instructions only before the root. Anything
// else, and every well-formedness error, fails.

struct XmlNode {
    std::string name;
    std::map<std::string, std::string> attributes;
    std::vector<XmlNode> children;
    std::string text;  // character data directly inside, entities decoded

    const XmlNode* Child(const std::string& childName) const {
        for (const XmlNode& child : children)
            if (child.name == childName) return &child;
        return nullptr;
    }
    std::string Attribute(const std::string& key) const {
        const auto it = attributes.find(key);
        return it == attributes.end() ? std::string() : it->second;
    }
};

class XmlParser {
public:
    explicit XmlParser(std::string_view text) : s_(text) {}

    std::optional<XmlNode> Document() {
        if (!Next("<?xml ")) return Fail("no XML declaration at the start");
        while (Next("<?")) at_ = std::min(s_.size(), s_.find("?>", at_) + 2);
        std::optional<XmlNode> root = Element();
        SkipSpace();
        if (root && at_ != s_.size()) return Fail("content after the root element");
        return root;
    }
    const std::string& Error() const { return error_; }

private:
    std::nullopt_t Fail(const std::string& why) {
        if (error_.empty()) error_ = why + " at offset " + std::to_string(at_);
        return std::nullopt;
    }
    bool Next(std::string_view p) {
        SkipSpace();
        return s_.substr(at_, p.size()) == p;
    }
    void SkipSpace() {
        while (at_ < s_.size() && std::strchr(" \t\r\n", s_[at_]) && s_[at_] != 0) ++at_;
    }
    std::string Name() {
        const size_t start = at_;
        while (at_ < s_.size() && (std::isalnum(static_cast<unsigned char>(s_[at_])) || s_[at_] == ':')) ++at_;
        return std::string(s_.substr(start, at_ - start));
    }
    // Character data up to `stop`, entities decoded; a stray "<" or "&" fails.
    bool CharData(char stop, std::string& out) {
        static const std::map<std::string_view, char> kEntities = {
            {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
        while (at_ < s_.size() && s_[at_] != stop) {
            if (s_[at_] == '<') return Fail("'<' in character data"), false;
            if (s_[at_] != '&') {
                out += s_[at_++];
                continue;
            }
            const size_t end = s_.find(';', at_);
            const auto entity =
                end == std::string_view::npos ? kEntities.end() : kEntities.find(s_.substr(at_ + 1, end - at_ - 1));
            if (entity == kEntities.end()) return Fail("bad entity reference"), false;
            out += entity->second;
            at_ = end + 1;
        }
        return at_ < s_.size() || (Fail("unexpected end"), false);
    }
    std::optional<XmlNode> Element() {
        if (!Next("<")) return Fail("element expected");
        ++at_;
        XmlNode node;
        node.name = Name();
        if (node.name.empty()) return Fail("element without a name");
        while (!Next("/>") && !Next(">")) {
            const std::string key = Name();
            if (key.empty() || s_.substr(at_, 2) != "=\"") return Fail("malformed attribute in <" + node.name + ">");
            at_ += 2;
            std::string value;
            if (!CharData('"', value)) return std::nullopt;
            ++at_;
            if (!node.attributes.emplace(key, value).second) return Fail("attribute repeated: " + key);
            if (at_ < s_.size() && !std::strchr(" \t\r\n/>", s_[at_])) return Fail("attributes run together");
        }
        if (Next("/>")) {
            at_ += 2;
            return node;
        }
        ++at_;
        while (true) {
            if (!CharData('<', node.text)) return std::nullopt;
            if (s_.substr(at_, 2) == "</") {
                at_ += 2;
                if (Name() != node.name || !Next(">")) return Fail("closing tag does not match <" + node.name + ">");
                ++at_;
                return node;
            }
            std::optional<XmlNode> child = Element();
            if (!child) return std::nullopt;
            node.children.push_back(std::move(*child));
        }
    }

    std::string_view s_;
    size_t at_ = 0;
    std::string error_;
};

// ---- the workbook as a spreadsheet program sees it ----

struct SheetCell {
    bool empty = true;
    std::string style;
    std::string type;
    std::string value;
};
using SheetRows = std::vector<std::vector<SheetCell>>;

struct Workbook {
    XmlNode root;
    std::vector<std::string> sheetNames;
    std::map<std::string, SheetRows> sheets;
    std::map<std::string, std::vector<double>> columnWidths;  // ss:Width of each Column, in points
};

Workbook ReadWorkbook(const std::string& text) {
    XmlParser parser(text);
    std::optional<XmlNode> root = parser.Document();
    EXPECT_TRUE(root.has_value()) << parser.Error();
    Workbook book;
    if (!root) return book;
    book.root = *root;
    for (const XmlNode& sheet : root->children) {
        if (sheet.name != "Worksheet") continue;
        const std::string name = sheet.Attribute("ss:Name");
        book.sheetNames.push_back(name);
        SheetRows& rows = book.sheets[name];
        const XmlNode* table = sheet.Child("Table");
        if (!table) continue;
        for (const XmlNode& row : table->children) {
            if (row.name == "Column") {
                EXPECT_TRUE(rows.empty()) << "the columns of " << name << " stand before its rows";
                EXPECT_EQ(row.Attribute("ss:AutoFitWidth"), "0");
                EXPECT_EQ(row.Attribute("ss:Index"), std::to_string(book.columnWidths[name].size() + 1));
                book.columnWidths[name].push_back(StrToDoubleC(row.Attribute("ss:Width")));
                continue;
            }
            EXPECT_EQ(row.name, "Row");
            rows.emplace_back();
            for (const XmlNode& cell : row.children) {
                SheetCell c;
                c.style = cell.Attribute("ss:StyleID");
                if (const XmlNode* data = cell.Child("Data")) {
                    c.empty = false;
                    c.type = data->Attribute("ss:Type");
                    c.value = data->text;
                }
                rows.back().push_back(c);
            }
        }
    }
    return book;
}

// The row whose first cell holds `text`, or nullptr.
const std::vector<SheetCell>* FindRow(const SheetRows& rows, const std::string& text) {
    for (const auto& row : rows)
        if (!row.empty() && row[0].value == text) return &row;
    return nullptr;
}

std::vector<std::string> FirstCells(const SheetRows& rows) {
    std::vector<std::string> texts;
    for (const auto& row : rows) texts.push_back(row.empty() ? std::string() : row[0].value);
    return texts;
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
    Workbook Export(const ResultStore& store) const { return ReadWorkbook(FormatXmlExport(store, 0, Context(), when)); }
};

TEST(XmlExport, GasSheetOnlyWithAGasComponentAndDefaultNamesStandInForMissingTexts) {
    XmlFixture f;
    const Workbook plain = f.Export(ExportSampleStore());
    EXPECT_EQ(plain.sheetNames, (std::vector<std::string>{"Contents", "Cations", "Ligands", "Other info"}));
    EXPECT_EQ(FirstCells(plain.sheets.at("Contents"))[0],
              "This workbook holds the results for the cations and the ligands.");

    const ResultStore store = ExportSampleStore({.gas = true});
    const Workbook english = f.Export(store);
    ASSERT_EQ(english.sheetNames.size(), 5u);
    EXPECT_EQ(english.sheetNames[3], "Gas controlled ligands");
    const std::vector<std::string> contents = FirstCells(english.sheets.at("Contents"));
    EXPECT_EQ(contents[0],
              "This workbook holds the results for the cations, the ligands and the gas controlled ligands.");
    EXPECT_EQ(contents[3], "Sheet Gas controlled ligands: every ligand fixed by a gas.");
    EXPECT_NE(FindRow(english.sheets.at("Gas controlled ligands"), "HCO3"), nullptr);
    EXPECT_EQ(FindRow(english.sheets.at("Ligands"), "HCO3"), nullptr);

    Language none;
    const Workbook bare = ReadWorkbook(FormatXmlExport(store, 0, ExportContext{none, f.options}, f.when));
    EXPECT_EQ(bare.sheetNames,
              (std::vector<std::string>{"Contents", "Cations", "Ligands", "Gas controlled ligands", "Other info"}));
}

// The points a column needs for `characters` characters of the default
// font: the spreadsheet unit of one digit (7 pixels of Calibri 11) per
// character and 5 pixels of padding, 0.75 points per pixel.
double PointsFor(size_t characters) { return (static_cast<double>(characters) * 7 + 5) * 0.75; }

size_t Characters(const std::string& text) {
    size_t n = 0;
    for (unsigned char c : text) n += (c & 0xC0) != 0x80 ? 1 : 0;
    return n;
}

TEST(XmlExport, ColumnsAreAsWideAsTheirTextsUpToACapAndHeadingsSpillOver) {
    XmlFixture f;
    ResultStore store = ExportSampleStore({.gas = true});
    for (SpeciesResult& s : store.records.species)
        if (!s.literature.empty()) s.literature = std::string(300, 'L');
    store.sets[0].otherInfo[3] = SolidsInfoBlock();
    const Workbook book = f.Export(store);
    EXPECT_EQ(book.columnWidths.count("Contents"), 0u) << "a sheet of one-cell rows keeps the default widths";
    for (const std::string sheet : {"Cations", "Ligands", "Gas controlled ligands", "Other info"}) {
        SCOPED_TRACE(sheet);
        const std::vector<double>& widths = book.columnWidths.at(sheet);
        ASSERT_FALSE(widths.empty());
        bool capped = false;
        for (const auto& row : book.sheets.at(sheet)) {
            if (row.size() < 2) continue;  // headings and long texts spill into the empty cells beside them
            ASSERT_LE(row.size(), widths.size());
            for (size_t c = 0; c < row.size(); ++c) {
                if (row[c].type != "String") continue;
                const size_t n = Characters(row[c].value);
                if (n > 60) {
                    capped = true;
                    EXPECT_LT(widths[c], PointsFor(n) / 4) << "a long literature text is capped";
                } else {
                    EXPECT_GE(widths[c], PointsFor(n)) << row[c].value;
                }
            }
        }
        if (sheet == std::string("Cations")) {
            EXPECT_TRUE(capped) << "calcium's complex has the long reference";
        }
    }
    // scientific numbers (the concentrations) fit as shown: "2.441E-04" is 9 characters
    EXPECT_GE(book.columnWidths.at("Cations").at(1), PointsFor(10));
}

// The whole document compared with its golden copy (the worksheets, rows,
// cells, styles, properties and prolog a spreadsheet program reads), after
// the strict reader has found it well-formed. The second case shows µM, an
// organic site row and the fraction of a zero total written as text.
TEST(XmlExport, DocumentMatchesItsGoldenCopy) {
    XmlFixture f;
    ResultStore full = ExportSampleStore({.gas = true, .organic = true});
    full.sets[0].otherInfo[3] = SolidsInfoBlock();
    ResultStore micromolar = ExportSampleStore({.organic = true});
    micromolar.records.components[1].amounts[AmountTotal] = 0;
    for (const auto& [name, store, order] :
         {std::tuple{"export_full.xml", &full, 0}, std::tuple{"export_micromolar_zero_total.xml", &micromolar, 2}}) {
        SCOPED_TRACE(name);
        f.options.units.order = order;
        const std::string text = FormatXmlExport(*store, 0, f.Context(), f.when);
        EXPECT_EQ(ReadWorkbook(text).sheetNames.size(), order == 0 ? 5u : 4u);
        ExpectMatchesGolden(text, name);
    }
}

TEST(XmlExport, EscapingKeepsTheDocumentWellFormed) {
    EXPECT_EQ(XmlEscape("a & b < c > d \"e\""), "a &amp; b &lt; c &gt; d \"e\"");
    EXPECT_EQ(XmlEscapeAttribute("Sheet \"1\" & <2>"), "Sheet &quot;1&quot; &amp; &lt;2&gt;");
    EXPECT_EQ(XmlEscape(std::string("a\x01"
                                    "b\tc\x1f",
                                    6)),
              "ab\tc");

    // the reader refuses what a spreadsheet program would refuse
    for (const char* broken : {"<?xml version=\"1.0\"?><a>&</a>", "<?xml version=\"1.0\"?><a><b></a></b>",
                               "<?xml version=\"1.0\"?><a x=\"1\"y=\"2\"/>", "<?xml version=\"1.0\"?><a>1 < 2</a>"})
        EXPECT_FALSE(XmlParser(broken).Document().has_value()) << broken;

    XmlFixture f;
    ResultStore store = ExportSampleStore();
    store.records.components[1].displayName = "Ca <\"&\x02>";
    const Workbook book = f.Export(store);
    EXPECT_NE(FindRow(book.sheets.at("Cations"), "Ca <\"&>"), nullptr);
}

TEST(XmlExport, FileIsUtf16AndRefusedWhereItCannotBeCreated) {
    XmlFixture f;
    TempFolder folder;
    const ResultStore store = ExportSampleStore({.gas = true, .organic = true});
    const std::string path = folder.File("water.xml");
    FileError error;
    ASSERT_TRUE(ExportXml(path, store, 0, f.Context(), &error)) << error.message;
    EXPECT_EQ(ReadBinaryFile(path)->substr(0, 4), std::string("\xFF\xFE<\0", 4));
    const std::optional<std::u16string> back = ReadUtf16File(path);
    ASSERT_TRUE(back.has_value());
    EXPECT_EQ(ReadWorkbook(Utf16ToUtf8(*back)).sheetNames.size(), 5u);

    const std::string missing = folder.File("missing/water.xml");
    EXPECT_FALSE(ExportXml(missing, store, 0, f.Context(), &error));
    EXPECT_FALSE(FileExists(missing));
}

}  // namespace
}  // namespace tormel::test
