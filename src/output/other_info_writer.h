#pragma once
// Fills one block of the "Other info" report row by row. A row counter
// starts at 0 and only moves forward; the grid grows as cells are written in
// new rows and keeps every cell written before. Cells follow the report's
// conventions: a numeric cell keeps its unformatted number and is shown in
// the scientific, logarithm or percentage format of the block (the
// percentage text shows the number x 100, the number stays a fraction).
#include <cstdint>
#include <string>
#include <string_view>

#include "output/info_block.h"
#include "output/number_text.h"
#include "output/output_options.h"

namespace tormel {

inline constexpr std::string_view kInfoIndent = "  ";

class InfoBlockWriter {
public:
    // Clears the block (nothing of an earlier build survives), gives it the
    // number formats and starts at row 0.
    InfoBlockWriter(InfoBlock& block, const NumberFormats& formats, const DecimalSeparator& separator);

    int32_t Row() const { return row_; }
    void NextRow() { MoveTo(row_ + 1); }
    void SkipRows(int32_t n) { MoveTo(row_ + n); }
    // Moves the counter forward to `row` (never back).
    void MoveTo(int32_t row);

    // Texts are copied into the cell's own storage (kept from an earlier
    // build), so a caller's text is not taken over.
    void Text(int32_t column, std::string_view text);
    void Scientific(int32_t column, double value);
    void Logarithm(int32_t column, double value);
    void Percentage(int32_t column, double fraction);
    void Integer(int32_t column, int32_t value);
    // A numeric cell with a text of the caller's.
    void Number(int32_t column, double value, std::string_view text);
    // Columns 0 to 3 of the current row: the label, an amount in mol/L, its
    // unit "M" and the amount's share of `whole` as a percentage.
    void AmountShare(std::string_view label, double amount, double whole);
    // The key of the current row is set or increased.
    void SetKey(int64_t key);
    void AddToKey(int64_t amount);

    // Title, long text, grid header and column count of the block.
    InfoBlock& Block() { return block_; }
    // Sets the block's title, long text and column count.
    void Heading(std::string_view title, std::string_view longText, int32_t columns);
    // Sets the row count: `rows` as the block's rule says.
    void Finish(int32_t rows) { block_.rowCount = rows; }

private:
    InfoCell& Cell(int32_t column);
    // The key of the current row, which exists from here on.
    int64_t& Key();
    void Put(int32_t column, CellFormat format, double value);

    InfoBlock& block_;
    int32_t row_ = 0;
};

}  // namespace tormel
