#pragma once
// One block of a result set's "Other info" report: a title (empty when the
// block is absent), an explanation, and a grid of up to nine columns whose
// cells keep the number behind their text.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tormel {

inline constexpr int32_t kInfoBlockCount = 7;  // general, MSA, organic, solids, gases, adsorption, input
inline constexpr int32_t kInfoColumns = 9;

struct InfoCell {
    std::string text;
    bool numeric = false;
    double number = 0;  // the unformatted value when numeric
};

struct InfoBlock {
    std::string title;
    std::string longText;
    std::string gridHeader;  // column titles separated by ","
    int32_t columnCount = 0;
    int32_t rowCount = 0;
    std::vector<InfoCell> cells;   // row r, column c at Position(c, r, kInfoColumns)
    std::vector<int64_t> rowKeys;  // one per row held in `cells`

    // The cell at (column, row), growing the grid when the row is new.
    InfoCell& Cell(int32_t column, int32_t row);
    // The cell at (column, row), or nullptr when the grid has no such cell.
    const InfoCell* FindCell(int32_t column, int32_t row) const;
};

using InfoBlocks = std::array<InfoBlock, kInfoBlockCount>;

}  // namespace tormel
