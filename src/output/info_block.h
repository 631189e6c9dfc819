#pragma once
// One block of a result set's "Other info" report: a title (empty when the
// block is absent), an explanation, and a grid of up to nine columns whose
// cells keep the number behind their text. A numeric cell is formatted only
// when it is shown, in the number formats the block was built with.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/chemical_types.h"
#include "output/number_text.h"
#include "output/output_options.h"

namespace tormel {

inline constexpr int32_t kInfoBlockCount = 7;  // general, MSA, organic, solids, gases, adsorption, input
inline constexpr int32_t kInfoColumns = 9;

// How a cell shows itself: a text, or a number in one of the report's
// formats (a percentage shows the number x 100; the number stays a
// fraction), or a number with a text of its own.
enum class CellFormat : uint8_t { Text, Scientific, Logarithm, Percentage, Integer, OwnText };

struct InfoCell {
    std::string text;  // the text of a Text or OwnText cell
    CellFormat format = CellFormat::Text;
    double number = 0;  // the unformatted value of a numeric cell

    bool Numeric() const { return format != CellFormat::Text; }
};

struct InfoBlock {
    std::string title;
    std::string longText;
    std::string gridHeader;  // column titles separated by ","
    int32_t columnCount = 0;
    int32_t rowCount = 0;
    std::vector<int64_t> rowKeys;  // one per row held
    NumberFormats formats;         // the formats of the numeric cells
    DecimalSeparator separator;

    // The cell at (column, row), growing the grid when the row is new; a
    // cell not written before is empty.
    InfoCell& Cell(int32_t column, int32_t row) {
        if (static_cast<size_t>(row) >= rowKeys.size()) HoldRows(static_cast<size_t>(row) + 1);
        InfoCell& cell = cells_[static_cast<size_t>(Position(column, row, kInfoColumns))];
        uint16_t& written = writtenColumns_[static_cast<size_t>(row)];
        const uint16_t bit = static_cast<uint16_t>(1u << column);
        if ((written & bit) == 0) {  // room: emptied as a new cell, its text keeping its storage
            written |= bit;
            cell.text.clear();
            cell.format = CellFormat::Text;
            cell.number = 0;
        }
        return cell;
    }
    // The cell at (column, row), or nullptr when the grid has no such cell;
    // a cell of the grid that was never written is an empty one.
    const InfoCell* FindCell(int32_t column, int32_t row) const;
    // The text `cell` shows.
    std::string Shown(const InfoCell& cell) const;
    // The text the cell at (column, row) shows; empty when there is no cell.
    std::string ShownAt(int32_t column, int32_t row) const;
    // Empties the block as a new one would be, with these number formats;
    // its texts and grid keep their storage as room for the next build.
    void Empty(const NumberFormats& numberFormats, const DecimalSeparator& decimalSeparator);

private:
    // Grows the grid to `rows` rows of unwritten cells with key 0.
    void HoldRows(size_t rows);
    // row r, column c at Position(c, r, kInfoColumns) for the rows held
    // (one per row key). Only the cells written since their row was added
    // are part of the grid, and readers see them through FindCell; the
    // others, and the cells beyond the rows held, are room kept from an
    // earlier build.
    std::vector<InfoCell> cells_;
    std::vector<uint16_t> writtenColumns_;  // per row held: bit c once column c was written
};

using InfoBlocks = std::array<InfoBlock, kInfoBlockCount>;

}  // namespace tormel
