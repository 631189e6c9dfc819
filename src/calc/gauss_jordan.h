#pragma once
// Inversion of a small dense matrix by Gauss-Jordan elimination on [A | I],
// without scaling or pivot search: a zero pivot is replaced by the first row
// below it with a non-zero entry in that column.
#include <cstdint>
#include <vector>

namespace tormel {

// Inverts the size x size row-major matrix `a` into `inverse`. False when a
// pivot column has no non-zero entry left or a value of the result is not
// finite; `inverse` is then unusable.
bool GaussJordanInvert(const std::vector<double>& a, int32_t size, std::vector<double>& inverse);

}  // namespace tormel
