#pragma once
// Solution of a small dense linear system by Gaussian elimination with
// partial pivoting, and a damped least-squares solution for systems that are
// singular or nearly so.
#include <cstdint>
#include <span>
#include <vector>

namespace tormel {

// Solves a x = b in place for the size x size row-major matrix a: a is
// overwritten by its LU factors (rows swapped for the largest pivot of each
// column) and b by x. False when a pivot is not above `negligiblePivot` times
// the largest entry of its column (0: only an exactly zero pivot fails) or
// when the result is not finite. Allocates nothing.
bool SolvePivotedInPlace(std::span<double> a, std::span<double> b, int32_t size, double negligiblePivot);

// Solves a x = b for the size x size row-major matrix a. False when a pivot
// is zero or negligible against the largest entry of its column, or when the
// result is not finite.
bool SolvePivoted(std::vector<double> a, std::vector<double> b, int32_t size, std::vector<double>& x);

// Minimises |a x - b|^2 + lambda |D x|^2, D the column norms of a: the
// Levenberg-Marquardt step, defined for any matrix. False when not finite.
bool SolveDampedLeastSquares(const std::vector<double>& a, const std::vector<double>& b, int32_t size, double lambda,
                             std::vector<double>& x);

}  // namespace tormel
