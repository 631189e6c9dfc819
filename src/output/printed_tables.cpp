#include "output/printed_tables.h"

#include <algorithm>
#include <vector>

#include "core/ini_file.h"
#include "core/utf16.h"
#include "output/result_tables.h"

namespace tormel {

namespace {

using TextTable = std::vector<std::vector<std::string>>;

constexpr std::string_view kColumnGap = "  ";
constexpr size_t kLiteratureColumn = 8;
// References wrap with their text aligned after the key.
constexpr size_t kReferenceIndent = 6;

// Terminal columns of a text: one per character.
size_t Columns(std::string_view text) { return CharacterCount(text); }

void AppendTable(std::string& out, const TextTable& rows) {
    std::vector<size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()), 0);
        for (size_t c = 0; c < row.size(); ++c) widths[c] = std::max(widths[c], Columns(row[c]));
    }
    for (const auto& row : rows) {
        std::string line;
        for (size_t c = 0; c < row.size(); ++c) {
            if (c) line += kColumnGap;
            line += row[c];
            if (c + 1 < row.size()) line.append(widths[c] - Columns(row[c]), ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        out += line + "\n";
    }
}

// `text` broken at blanks into lines of at most `width` columns after
// `first` (the key) or the indent; a word longer than a line is cut.
void AppendWrapped(std::string& out, const std::string& first, std::string_view text, size_t width) {
    std::string line = first;
    line.append(kReferenceIndent > Columns(first) ? kReferenceIndent - Columns(first) : 1, ' ');
    const size_t room = width - kReferenceIndent;
    size_t used = 0;
    while (!text.empty()) {
        const size_t blank = text.find(' ');
        std::string_view word = text.substr(0, blank);
        text = blank == std::string_view::npos ? std::string_view() : text.substr(blank + 1);
        if (word.empty()) continue;
        if (used > 0 && used + 1 + Columns(word) > room) {
            out += line + "\n";
            line.assign(kReferenceIndent, ' ');
            used = 0;
        }
        while (Columns(word) > room) {  // no blank to break at
            const std::string piece = CutToUtf16Units(word, room);
            out += line + piece + "\n";
            line.assign(kReferenceIndent, ' ');
            word.remove_prefix(piece.size());
        }
        if (used > 0) {
            line += ' ';
            ++used;
        }
        line += word;
        used += Columns(word);
    }
    out += line + "\n";
}

// Replaces each literature text by its key, numbering the references of the
// table in order of first use; answers the references.
std::vector<std::string> KeyReferences(TextTable& details) {
    std::vector<std::string> references;
    for (size_t r = 1; r < details.size(); ++r) {
        std::string& cell = details[r][kLiteratureColumn];
        if (cell.empty()) continue;
        auto it = std::find(references.begin(), references.end(), cell);
        if (it == references.end()) it = references.insert(references.end(), cell);
        cell = "[" + std::to_string(it - references.begin() + 1) + "]";
    }
    return references;
}

}  // namespace

std::string PrintedResultTables(ResultStore& store, int32_t set, const ResultContext& context, bool wide) {
    auto text = [&](const char* key) { return LanguageText(context.language, "Output", key); };
    std::string out;
    const SetView view = ViewSet(store, set);
    for (size_t i = 0; i < view.components.size(); ++i) {
        const ComponentResult& component = view.components[i];
        if (component.kind != ComponentType::Cation && component.kind != ComponentType::Ligand &&
            component.kind != ComponentType::Gas)
            continue;
        const std::string heading = component.gasText.empty() ? component.displayName : component.gasText;
        out += "\n== " + heading + " ==\n";
        TextTable summary = {{text("Summary"), text("Concentration"), text("Unit"), text("Percentage")}};
        for (const SummaryRow& row : SummaryTable(store, set, static_cast<int32_t>(i), context))
            summary.push_back({row.texts.begin(), row.texts.end()});
        AppendTable(out, summary);
        out += "\n";
        TextTable details = {{text("Species"), text("Concentration"), text("Unit"), text("Percentage"),
                              text("Activity"), text("Unit"), text("IntrinsicK"), text("ConditionalK"),
                              text("LitRef")}};
        for (const DetailsRow& row : DetailsTable(store, set, static_cast<int32_t>(i), context))
            details.push_back({row.texts.begin(), row.texts.end()});
        if (wide) {
            AppendTable(out, details);
            continue;
        }
        const std::vector<std::string> references = KeyReferences(details);
        AppendTable(out, details);
        if (references.empty()) continue;
        out += "\n" + text("LitRef") + ":\n";
        for (size_t k = 0; k < references.size(); ++k)
            AppendWrapped(out, "[" + std::to_string(k + 1) + "]", references[k], kPrintedTableWidth);
    }
    return out;
}

}  // namespace tormel
