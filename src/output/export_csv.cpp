#include "output/export_csv.h"

#include "core/c_number.h"

namespace tormel {

namespace {

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string Number(double value) { return FormatC("%.16G", value); }

// The heading of the exported components of a kind.
const char* SectionKey(ComponentType kind) {
    switch (kind) {
        case ComponentType::Ligand:
            return "ligands";
        case ComponentType::Gas:
            return "gases";
        default:
            return "cations";
    }
}

// A grid header is a comma-separated list of column titles; each title
// becomes a quoted field unless the separator is itself a comma.
std::string GridHeaderLine(const std::string& header, std::string_view sep) {
    if (header.find(',') == std::string::npos || sep == ",") return header;
    std::string fields;
    for (const char c : header) {
        if (c == ',')
            fields += "\"" + std::string(sep) + "\"";
        else
            fields += c;
    }
    return Quoted(fields);
}

class CsvWriter {
public:
    CsvWriter(const ResultStore& store, int32_t set, std::string_view sep, const ExportContext& context)
        : store_(store), set_(set), sep_(sep), context_(context) {}

    std::string Write() {
        out_ += Quoted(context_.Text("CalcVersion") + " " + context_.programVersion) + "\n\n";
        out_ += Quoted(context_.Text("HeaderCSV")) + "\n\n";
        out_ += Quoted(context_.Text(SectionKey(ComponentType::Cation))) + "\n";
        const SetView view = ViewSet(store_, set_);
        ComponentType previousKind = ComponentType::Cation;
        for (size_t i = 0; i < view.components.size(); ++i) {
            const ComponentType kind = view.components[i].kind;
            if (!IsExportedKind(kind)) continue;
            if (kind != previousKind) out_ += "\n" + Quoted(context_.Text(SectionKey(kind))) + "\n";
            previousKind = kind;
            Component(static_cast<int32_t>(i));
        }
        out_ += "\n" + Quoted(context_.Text("OtherInfo")) + "\n\n";
        const InfoBlocks& blocks = store_.sets[set_].otherInfo;
        for (size_t b = 0; b < blocks.size(); ++b) Block(static_cast<int32_t>(b) + 1, blocks[b]);
        return std::move(out_);
    }

private:
    void Fields(std::initializer_list<std::string_view> quotedTexts) {
        bool first = true;
        for (const std::string_view text : quotedTexts) {
            if (!first) out_ += sep_;
            out_ += Quoted(text);
            first = false;
        }
        out_ += "\n";
    }

    void Component(int32_t i) {
        const ExportComponent rows = ExportComponentRows(store_, set_, i, context_);
        const ExportContext& c = context_;
        out_ += "\n" + Quoted(rows.component->displayName);
        out_ += "\n" + Quoted(c.Text("Summary"));
        out_ += "\n";
        Fields({c.Text("Fraction"), c.Text("Concentration"), c.Text("Unit"), c.Text("Percentage")});
        for (const ExportAmountRow& row : rows.summary) {
            out_ += Quoted(row.label) + sep_ + Number(row.converted) + sep_ + Quoted(row.unit) + sep_;
            if (rows.percentagesAllowed) out_ += Number(ExportFraction(row.amount, rows.total, true));
            out_ += "\n";
        }
        out_ += "\n" + Quoted(c.Text("Details")) + "\n";
        Fields({c.Text("Species"), c.Text("Concentration"), c.Text("Unit"), c.Text("Percentage"), c.Text("Activity"),
                c.Text("Unit"), c.Text("IntrinsicK"), c.Text("ConditionalK"), c.Text("LitRef")});
        for (const ExportSpeciesRow& row : rows.species) {
            out_ += Quoted(row.name) + sep_ + Number(row.concentration) + sep_ + Quoted(row.unit) + sep_;
            if (rows.percentagesAllowed) out_ += Number(ExportFraction(row.share, rows.total, false));
            out_ += sep_;
            if (row.hasActivity)
                out_ += Number(row.activity) + sep_ + Quoted(row.activityUnit) + sep_;
            else
                out_ += sep_ + sep_;
            if (row.hasConstants)
                out_ += Number(row.intrinsicLogK) + sep_ + Number(row.conditionalLogK) + sep_;
            else
                out_ += sep_ + sep_;
            out_ += Quoted(row.literature.view()) + "\n";
        }
        const std::string& reference = store_.sets[set_].header.organicReference;
        for (const ExportSiteRow& row : rows.sites) {
            out_ += row.label + sep_ + Number(row.converted) + sep_ + row.unit + sep_;
            if (rows.percentagesAllowed) out_ += Number(ExportFraction(row.amount, rows.total, true));
            for (int k = 0; k < 5; ++k) out_ += sep_;
            out_ += reference + "\n";
        }
    }

    void Block(int32_t b, const InfoBlock& block) {
        const std::string label = context_.Text("Block") + " " + std::to_string(b);
        if (block.title.empty()) {
            out_ += Quoted(label + " " + context_.Text("Block2")) + "\n\n";
            return;
        }
        out_ += Quoted(label + ": " + block.title) + "\n";
        if (!block.longText.empty()) out_ += Quoted(block.longText) + "\n";
        if (!block.gridHeader.empty()) out_ += GridHeaderLine(block.gridHeader, sep_) + "\n";
        for (int32_t r = 0; r < block.rowCount; ++r) {
            for (int32_t column = 0; column < block.columnCount; ++column) {
                if (column > 0) out_ += sep_;
                const InfoCell* cell = block.FindCell(column, r);
                if (!cell) continue;
                if (cell->Numeric())
                    out_ += Number(cell->number);
                else if (!cell->text.empty())
                    out_ += Quoted(cell->text);
            }
            out_ += "\n";
        }
        out_ += "\n";
    }

    const ResultStore& store_;
    int32_t set_;
    std::string sep_;
    const ExportContext& context_;
    std::string out_;
};

}  // namespace

std::string FormatCsvExport(const ResultStore& store, int32_t set, std::string_view separator,
                            const ExportContext& context) {
    if (set < 0 || set >= store.SetCount()) return std::string();
    return CsvWriter(store, set, separator, context).Write();
}

bool ExportCsv(const std::string& path, std::string_view separator, const ResultStore& store, int32_t set,
               const ExportContext& context, FileError* error) {
    if (set < 0 || set >= store.SetCount()) {
        if (error) *error = FileError{path, "there is no result set " + std::to_string(set) + " to export"};
        return false;
    }
    return WriteUtf16File(path, std::string_view(FormatCsvExport(store, set, separator, context)), error);
}

}  // namespace tormel
