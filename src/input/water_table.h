#pragma once
// Tables of waters as tab-separated text: lines starting with "#" are
// comments, the first other line names the columns (water fields such as
// "pH", "Ca", "Temperature", or anything else the caller skips), and every
// further line holds one water's numbers in the C locale. An empty cell is
// a value not given (NaN).
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tormel {

struct WaterTable {
    std::vector<std::string> columns;
    std::vector<double> values;  // row after row, columns.size() per row

    size_t RowCount() const { return columns.empty() ? 0 : values.size() / columns.size(); }
    double At(size_t row, size_t column) const { return values[row * columns.size() + column]; }
};

struct WaterTableError {
    std::string path;
    int line = 0;  // 1-based; 0 when the file could not be read
    std::string message;
    std::string Describe() const;
};

// Reads the table; an error names the file, the line and what is wrong.
std::optional<WaterTable> ReadWaterTable(const std::string& path, WaterTableError* error = nullptr);

}  // namespace tormel
