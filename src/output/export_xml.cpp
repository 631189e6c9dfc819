#include "output/export_xml.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/c_number.h"
#include "core/utf16.h"
#include "output/xml_escape.h"

namespace tormel {

namespace {

constexpr std::string_view kSpreadsheetNamespace = "urn:schemas-microsoft-com:office:spreadsheet";
constexpr std::string_view kOfficeNamespace = "urn:schemas-microsoft-com:office:office";
constexpr std::string_view kExcelNamespace = "urn:schemas-microsoft-com:office:excel";
constexpr std::string_view kHtmlNamespace = "http://www.w3.org/TR/REC-html40";

// Cell styles: bold text, percentage, scientific, three decimals.
constexpr std::string_view kBold = "s1";
constexpr std::string_view kPercent = "s2";
constexpr std::string_view kScientific = "s3";
constexpr std::string_view kDecimals = "s4";

// Column widths: a spreadsheet's width unit is the width of a digit of the
// default font (7 pixels for Calibri 11) plus 5 pixels of padding; one
// pixel is 0.75 points. Bold text takes a tenth more. No column is made
// narrower than a default column or wider than a long literature reference
// needs to be readable.
constexpr double kDigitPixels = 7;
constexpr double kPaddingPixels = 5;
constexpr double kPointsPerPixel = 0.75;
constexpr double kBoldFactor = 1.1;
constexpr double kMinColumnCharacters = 8;
constexpr double kMaxColumnCharacters = 60;

// The characters a cell shows.
double ShownCharacters(std::string_view text) { return static_cast<double>(CharacterCount(text)); }

// The text a spreadsheet shows for a number in a style (none: general).
std::string ShownNumber(std::string_view style, double value) {
    if (style == kPercent) return FormatC("%.2f%%", value * 100);
    if (style == kScientific) return FormatC("%.3E", value);
    if (style == kDecimals) return FormatC("%.3f", value);
    return FormatC("%.10G", value);
}

// Writes the rows of one worksheet as a run: the sheet opens a row, every
// break closes it and opens the next. The table starts with one `Column`
// per used column, as wide as its widest cell; a cell alone in its row (a
// heading, a long text) spills into the empty cells beside it and widens
// nothing.
class SheetWriter {
public:
    SheetWriter(std::string& out, std::string_view name) : out_(out) {
        out_ += "<Worksheet ss:Name=\"" + XmlEscapeAttribute(name) + "\">\n<Table>";
        rows_ = "<Row>";
    }
    // Closes the open row, the table and the sheet.
    void Close() {
        EndRow();
        // each column says its index: some readers would count on from the
        // columns of the sheet before
        for (size_t c = 0; c < widths_.size(); ++c) {
            const double shown = std::clamp(widths_[c], kMinColumnCharacters, kMaxColumnCharacters);
            const double points = (shown * kDigitPixels + kPaddingPixels) * kPointsPerPixel;
            out_ += FormatC("<Column ss:Index=\"%zu\" ss:AutoFitWidth=\"0\" ss:Width=\"%.2f\"/>", c + 1, points);
        }
        out_ += rows_ + "</Row></Table></Worksheet>";
    }

    void Text(std::string_view text) {
        Measure(ShownCharacters(text));
        rows_ += "<Cell>" + StringData(text) + "</Cell>";
    }
    void Bold(std::string_view text) {
        Measure(ShownCharacters(text) * kBoldFactor);
        rows_ += "<Cell ss:StyleID=\"" + std::string(kBold) + "\">" + StringData(text) + "</Cell>";
    }
    void Number(double value) {
        if (!std::isfinite(value)) return Text(FormatC("%.16G", value));
        Measure(ShownCharacters(ShownNumber({}, value)));
        rows_ += "<Cell>" + NumberData(value) + "</Cell>";
    }
    void Styled(std::string_view style, double value) {
        // a spreadsheet cannot hold infinity or not-a-number as a number
        if (!std::isfinite(value)) return Text(FormatC("%.16G", value));
        Measure(ShownCharacters(ShownNumber(style, value)));
        rows_ += "<Cell ss:StyleID=\"" + std::string(style) + "\">" + NumberData(value) + "</Cell>";
    }
    void Empty(int count = 1) {
        for (int k = 0; k < count; ++k) {
            Measure(0);
            rows_ += "<Cell/>";
        }
    }
    void Break() {
        EndRow();
        rows_ += "</Row>\n<Row>";
    }
    void Row(std::initializer_list<std::string_view> texts) {
        for (const std::string_view text : texts) Text(text);
        Break();
    }

private:
    static std::string StringData(std::string_view text) {
        return "<Data ss:Type=\"String\">" + XmlEscape(text) + "</Data>";
    }
    static std::string NumberData(double value) {
        return "<Data ss:Type=\"Number\">" + FormatC("%.16G", value) + "</Data>";
    }
    void Measure(double characters) { row_.push_back(characters); }
    // The widths of the row just ended count when it has more than one cell.
    void EndRow() {
        if (row_.size() > 1) {
            if (widths_.size() < row_.size()) widths_.resize(row_.size(), 0);
            for (size_t c = 0; c < row_.size(); ++c) widths_[c] = std::max(widths_[c], row_[c]);
        }
        row_.clear();
    }

    std::string& out_;
    std::string rows_;
    std::vector<double> row_;     // characters shown by each cell of the open row
    std::vector<double> widths_;  // characters of the widest cell of each column
};

// The cells a row of a component sheet opens with: its label, its amount in
// the chosen units and the unit.
void AmountCells(SheetWriter& sheet, std::string_view label, double converted, std::string_view unit) {
    sheet.Text(label);
    sheet.Styled(kScientific, converted);
    sheet.Text(unit);
}

// The share of `amount` in the component's total where percentages are
// allowed, else an empty cell that keeps the later cells in their columns.
void FractionCell(SheetWriter& sheet, const ExportComponent& rows, double amount, bool singlePrecisionAmount) {
    if (rows.percentagesAllowed)
        sheet.Styled(kPercent, ExportFraction(amount, rows.total, singlePrecisionAmount));
    else
        sheet.Empty();
}

class XmlWriter {
public:
    XmlWriter(const ResultStore& store, int32_t set, const ExportContext& context)
        : store_(store), set_(set), context_(context), view_(ViewSet(store, set)) {
        for (const ComponentResult& component : view_.components)
            if (component.kind == ComponentType::Gas) hasGas_ = true;
    }

    std::string Write(const std::tm& localTime) {
        Prolog(localTime);
        Contents();
        ComponentSheet(ComponentType::Cation, SheetName("Cations", "Cations"));
        ComponentSheet(ComponentType::Ligand, SheetName("Ligands", "Ligands"));
        if (hasGas_) ComponentSheet(ComponentType::Gas, SheetName("Gases", "Gas controlled ligands"));
        OtherInfo();
        out_ += "</Workbook>";
        return std::move(out_);
    }

private:
    std::string SheetName(std::string_view key, std::string_view fallback) const {
        return LanguageTextOr(context_.language, "Output", key, fallback);
    }

    void Prolog(const std::tm& localTime) {
        const std::string date = XmlDocumentDate(localTime);
        const std::string author = XmlEscape(kXmlAuthor);
        out_ += "<?xml version=\"1.0\"?>\n<?mso-application progid=\"Excel.Sheet\"?>";
        out_ += "<Workbook xmlns=\"" + std::string(kSpreadsheetNamespace) + "\" xmlns:o=\"" +
                std::string(kOfficeNamespace) + "\" xmlns:x=\"" + std::string(kExcelNamespace) + "\" xmlns:ss=\"" +
                std::string(kSpreadsheetNamespace) + "\" xmlns:html=\"" + std::string(kHtmlNamespace) + "\">";
        out_ += "<DocumentProperties xmlns=\"" + std::string(kOfficeNamespace) + "\">";
        out_ += "<Author>" + author + "</Author><LastAuthor>" + author + "</LastAuthor>";
        out_ += "<Created>" + date + "</Created>\n<LastSaved>" + date + "</LastSaved>\n";
        out_ += "<Company>" + XmlEscape(kXmlCompany) + "</Company><Version>14.00</Version>";
        out_ += "</DocumentProperties>";
        out_ += "<OfficeDocumentSettings xmlns=\"" + std::string(kOfficeNamespace) + "\"/>";
        out_ += "<ExcelWorkbook xmlns=\"" + std::string(kExcelNamespace) + "\"/>";
        out_ += "<Styles>";
        out_ +=
            "<Style ss:ID=\"Default\" ss:Name=\"Normal\"><Alignment ss:Vertical=\"Bottom\"/>"
            "<Font ss:FontName=\"Calibri\" ss:Size=\"11\" ss:Color=\"#000000\"/></Style>";
        out_ += "<Style ss:ID=\"s1\"><Font ss:FontName=\"Calibri\" ss:Size=\"11\" ss:Bold=\"1\"/></Style>";
        out_ += "<Style ss:ID=\"s2\"><NumberFormat ss:Format=\"0.00%\"/></Style>";
        out_ += "<Style ss:ID=\"s3\"><NumberFormat ss:Format=\"0.000E+00\"/></Style>";
        out_ += "<Style ss:ID=\"s4\"><NumberFormat ss:Format=\"0.000\"/></Style>";
        out_ += "</Styles>";
    }

    void Contents() {
        SheetWriter sheet(out_, SheetName("Contents", "Contents"));
        sheet.Row({context_.Text(hasGas_ ? "XMLLine1b" : "XMLLine1a")});
        sheet.Row({context_.Text("XMLLine2")});
        sheet.Row({context_.Text("XMLLine3")});
        if (hasGas_) sheet.Row({context_.Text("XMLLine4")});
        sheet.Row({context_.Text("XMLLine5")});
        for (int k = 0; k < 3; ++k) sheet.Break();
        sheet.Text(context_.Text("XMLLine6"));
        sheet.Close();
    }

    void ComponentSheet(ComponentType kind, const std::string& name) {
        SheetWriter sheet(out_, name);
        for (size_t i = 0; i < view_.components.size(); ++i)
            if (view_.components[i].kind == kind) Component(sheet, static_cast<int32_t>(i));
        sheet.Close();
    }

    void Component(SheetWriter& sheet, int32_t i) {
        const ExportContext& c = context_;
        const ExportComponent rows = ExportComponentRows(store_, set_, i, c);
        sheet.Bold(rows.component->displayName);
        sheet.Break();
        sheet.Row({c.Text("Summary")});
        sheet.Row({c.Text("Fraction"), c.Text("Concentration"), c.Text("Unit"), c.Text("Percentage")});
        for (const ExportAmountRow& row : rows.summary) {
            AmountCells(sheet, row.label, row.converted, row.unit);
            if (rows.percentagesAllowed) sheet.Styled(kPercent, ExportFraction(row.amount, rows.total, false));
            sheet.Break();
        }
        sheet.Break();
        sheet.Row({c.Text("Details")});
        sheet.Row({c.Text("Species"), c.Text("Concentration"), c.Text("Unit"), c.Text("Percentage"), c.Text("Activity"),
                   c.Text("Unit"), c.Text("IntrinsicK"), c.Text("ConditionalK"), c.Text("LitRef")});
        for (const ExportSpeciesRow& row : rows.species) {
            AmountCells(sheet, row.name, row.concentration, row.unit);
            FractionCell(sheet, rows, row.share, false);
            if (row.hasActivity) {
                sheet.Styled(kScientific, row.activity);
                sheet.Text(row.activityUnit);
            } else {
                sheet.Empty(2);
            }
            if (row.hasConstants) {
                sheet.Styled(kDecimals, row.intrinsicLogK);
                sheet.Styled(kDecimals, row.conditionalLogK);
            } else {
                sheet.Empty(2);
            }
            if (row.hasLiterature) sheet.Text(row.literature.view());
            sheet.Break();
        }
        const std::string& reference = store_.sets[set_].header.organicReference;
        for (const ExportSiteRow& row : rows.sites) {
            AmountCells(sheet, row.label, row.converted, row.unit);
            FractionCell(sheet, rows, row.amount, true);
            sheet.Empty(4);
            sheet.Text(reference);
            sheet.Break();
        }
        sheet.Break();
        sheet.Break();
    }

    void OtherInfo() {
        SheetWriter sheet(out_, SheetName("OtherInfoXML", "Other info"));
        const InfoBlocks& blocks = store_.sets[set_].otherInfo;
        for (size_t b = 0; b < blocks.size(); ++b) {
            const InfoBlock& block = blocks[b];
            const std::string label = context_.Text("Block") + " " + std::to_string(b + 1);
            if (block.title.empty()) {
                sheet.Bold(label + " " + context_.Text("Block2"));
                sheet.Break();
                sheet.Break();
                continue;
            }
            sheet.Bold(label + ": " + block.title);
            sheet.Break();
            if (!block.longText.empty()) sheet.Row({block.longText});
            if (!block.gridHeader.empty()) {
                size_t start = 0;
                while (true) {
                    const size_t comma = block.gridHeader.find(',', start);
                    sheet.Text(std::string_view(block.gridHeader).substr(start, comma - start));
                    if (comma == std::string::npos) break;
                    start = comma + 1;
                }
                sheet.Break();
            }
            for (int32_t r = 0; r < block.rowCount; ++r) {
                for (int32_t column = 0; column < block.columnCount; ++column) {
                    const InfoCell* cell = block.FindCell(column, r);
                    if (cell && cell->Numeric())
                        sheet.Number(cell->number);
                    else
                        sheet.Text(cell ? cell->text : std::string());
                }
                sheet.Break();
            }
            sheet.Break();
        }
        sheet.Close();
    }

    const ResultStore& store_;
    int32_t set_;
    const ExportContext& context_;
    SetView view_;
    bool hasGas_ = false;
    std::string out_;
};

}  // namespace

std::string XmlDocumentDate(const std::tm& localTime) {
    char date[64] = {};
    if (std::strftime(date, sizeof date, "%m-%e-%YT%H:%M:%SZ", &localTime) == 0) return std::string();
    return date;
}

std::string FormatXmlExport(const ResultStore& store, int32_t set, const ExportContext& context,
                            const std::tm& localTime) {
    if (set < 0 || set >= store.SetCount()) return std::string();
    return XmlWriter(store, set, context).Write(localTime);
}

bool ExportXml(const std::string& path, const ResultStore& store, int32_t set, const ExportContext& context,
               FileError* error) {
    if (set < 0 || set >= store.SetCount()) {
        if (error) *error = FileError{path, "there is no result set " + std::to_string(set) + " to export"};
        return false;
    }
    const std::time_t now = std::time(nullptr);
    std::tm localTime{};
    localtime_r(&now, &localTime);
    return WriteUtf16File(path, std::string_view(FormatXmlExport(store, set, context, localTime)), error);
}

}  // namespace tormel
