#include "output/info_block.h"

#include "core/chemical_types.h"

namespace tormel {

InfoCell& InfoBlock::Cell(int32_t column, int32_t row) {
    const size_t rows = static_cast<size_t>(row) + 1;
    if (rowKeys.size() < rows) {
        rowKeys.resize(rows, 0);
        cells.resize(rows * kInfoColumns);
    }
    return cells[static_cast<size_t>(Position(column, row, kInfoColumns))];
}

const InfoCell* InfoBlock::FindCell(int32_t column, int32_t row) const {
    if (column < 0 || column >= kInfoColumns || row < 0 || static_cast<size_t>(row) >= rowKeys.size()) return nullptr;
    return &cells[static_cast<size_t>(Position(column, row, kInfoColumns))];
}

}  // namespace tormel
