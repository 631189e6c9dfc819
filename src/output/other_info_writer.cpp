#include "output/other_info_writer.h"

#include <algorithm>

namespace tormel {

InfoBlockWriter::InfoBlockWriter(InfoBlock& block, const NumberFormats& formats, const DecimalSeparator& separator)
    : block_(block) {
    block_.Empty(formats, separator);  // the grid keeps its cells as room for the rows to come
}

void InfoBlockWriter::MoveTo(int32_t row) { row_ = std::max(row_, row); }

InfoCell& InfoBlockWriter::Cell(int32_t column) { return block_.Cell(std::clamp(column, 0, kInfoColumns - 1), row_); }

void InfoBlockWriter::Text(int32_t column, std::string_view text) {
    InfoCell& cell = Cell(column);
    cell.text.assign(text);
    cell.format = CellFormat::Text;
    cell.number = 0;
}

void InfoBlockWriter::Number(int32_t column, double value, std::string_view text) {
    InfoCell& cell = Cell(column);
    cell.text.assign(text);
    cell.format = CellFormat::OwnText;
    cell.number = value;
}

void InfoBlockWriter::Put(int32_t column, CellFormat format, double value) {
    InfoCell& cell = Cell(column);
    cell.text.clear();
    cell.format = format;
    cell.number = value;
}

void InfoBlockWriter::Scientific(int32_t column, double value) { Put(column, CellFormat::Scientific, value); }

void InfoBlockWriter::Logarithm(int32_t column, double value) { Put(column, CellFormat::Logarithm, value); }

void InfoBlockWriter::Percentage(int32_t column, double fraction) { Put(column, CellFormat::Percentage, fraction); }

void InfoBlockWriter::AmountShare(std::string_view label, double amount, double whole) {
    Text(0, label);
    Scientific(1, amount);
    Text(2, "M");
    Percentage(3, amount / whole);
}

void InfoBlockWriter::Heading(std::string_view title, std::string_view longText, int32_t columns) {
    block_.title.assign(title);
    block_.longText.assign(longText);
    block_.columnCount = columns;
}

void InfoBlockWriter::Integer(int32_t column, int32_t value) { Put(column, CellFormat::Integer, value); }

int64_t& InfoBlockWriter::Key() {
    if (static_cast<size_t>(row_) >= block_.rowKeys.size()) Cell(0);  // the row exists from here on
    return block_.rowKeys[static_cast<size_t>(row_)];
}

void InfoBlockWriter::SetKey(int64_t key) { Key() = key; }

void InfoBlockWriter::AddToKey(int64_t amount) { Key() += amount; }

}  // namespace tormel
