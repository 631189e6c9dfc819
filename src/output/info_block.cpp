#include "output/info_block.h"

#include <algorithm>

#include "core/c_number.h"

namespace tormel {

void InfoBlock::HoldRows(size_t rows) {
    // a block that is there has some dozen rows: room for them with the
    // first, rather than the grid moving at each doubling
    constexpr size_t kUsualRows = 24;
    if (rowKeys.capacity() == 0) {
        rowKeys.reserve(std::max(rows, kUsualRows));
        writtenColumns_.reserve(std::max(rows, kUsualRows));
        cells_.reserve(std::max(rows, kUsualRows) * kInfoColumns);
    }
    while (rowKeys.size() < rows) {
        rowKeys.push_back(0);
        writtenColumns_.push_back(0);
    }
    while (cells_.size() < rows * kInfoColumns) cells_.emplace_back();
}

void InfoBlock::Empty(const NumberFormats& numberFormats, const DecimalSeparator& decimalSeparator) {
    title.clear();
    longText.clear();
    gridHeader.clear();
    columnCount = 0;
    rowCount = 0;
    rowKeys.clear();
    writtenColumns_.clear();
    formats = numberFormats;
    separator = decimalSeparator;
}

const InfoCell* InfoBlock::FindCell(int32_t column, int32_t row) const {
    if (column < 0 || column >= kInfoColumns || row < 0 || static_cast<size_t>(row) >= rowKeys.size()) return nullptr;
    static const InfoCell kUnwritten;
    if ((writtenColumns_[static_cast<size_t>(row)] & (1u << column)) == 0) return &kUnwritten;
    return &cells_[static_cast<size_t>(Position(column, row, kInfoColumns))];
}

std::string InfoBlock::Shown(const InfoCell& cell) const {
    switch (cell.format) {
        case CellFormat::Scientific:
            return FormatNumber(cell.number, formats.scientific, false, separator);
        case CellFormat::Logarithm:
            return FormatNumber(cell.number, formats.logarithm, false, separator);
        case CellFormat::Percentage:
            return FormatNumber(cell.number * 100, formats.percentage, false, separator);
        case CellFormat::Integer:
            return FormatC("%d", static_cast<int>(cell.number));
        case CellFormat::Text:
        case CellFormat::OwnText:
            break;
    }
    return cell.text;
}

std::string InfoBlock::ShownAt(int32_t column, int32_t row) const {
    const InfoCell* cell = FindCell(column, row);
    return cell ? Shown(*cell) : std::string();
}

}  // namespace tormel
