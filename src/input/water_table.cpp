#include "input/water_table.h"

#include <cmath>
#include <fstream>
#include <string_view>

#include "core/c_number.h"

namespace tormel {

namespace {

std::vector<std::string_view> SplitTabs(std::string_view line) {
    std::vector<std::string_view> cells;
    for (;;) {
        const size_t tab = line.find('\t');
        cells.push_back(line.substr(0, tab));
        if (tab == std::string_view::npos) return cells;
        line.remove_prefix(tab + 1);
    }
}

std::optional<WaterTable> Fail(WaterTableError* error, const std::string& path, int line, std::string message) {
    if (error) *error = WaterTableError{path, line, std::move(message)};
    return std::nullopt;
}

}  // namespace

std::string WaterTableError::Describe() const {
    return path + (line > 0 ? ", line " + std::to_string(line) : "") + ": " + message;
}

std::optional<WaterTable> ReadWaterTable(const std::string& path, WaterTableError* error) {
    std::ifstream file(path);
    if (!file) return Fail(error, path, 0, "cannot be read");
    WaterTable table;
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty() || line[0] == '#') continue;
        const std::vector<std::string_view> cells = SplitTabs(line);
        if (table.columns.empty()) {
            table.columns.assign(cells.begin(), cells.end());
            continue;
        }
        if (cells.size() != table.columns.size())
            return Fail(error, path, number,
                        std::to_string(cells.size()) + " cells where the header names " +
                            std::to_string(table.columns.size()) + " columns");
        for (size_t c = 0; c < cells.size(); ++c) {
            if (cells[c].find_first_not_of(' ') == std::string_view::npos) {
                table.values.push_back(std::nan(""));
                continue;
            }
            const std::optional<double> value = ParseDoubleC(cells[c]);
            if (!value) return Fail(error, path, number, "column " + table.columns[c] + " holds no number");
            table.values.push_back(*value);
        }
    }
    if (table.columns.empty()) return Fail(error, path, 0, "no header line naming the columns");
    return table;
}

}  // namespace tormel
