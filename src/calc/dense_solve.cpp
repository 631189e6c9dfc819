#include "calc/dense_solve.h"
#include "calc/solver_options.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tormel {


bool SolvePivotedInPlace(std::span<double> a, std::span<double> b, int32_t size, double negligiblePivot) {
    const size_t n = static_cast<size_t>(std::max(size, 0));
    double* const m = a.data();
    double* const y = b.data();
    for (size_t c = 0; c < n; ++c) {
        // the first row from c down with the largest magnitude in column c,
        // and the largest magnitude of the whole column (NaN left out)
        size_t pivot = c;
        double pivotMagnitude = std::fabs(m[c * n + c]);
        double columnMax = 0;
        for (size_t r = 0; r < n; ++r) {
            const double magnitude = std::fabs(m[r * n + c]);
            columnMax = std::max(columnMax, magnitude);
            if (r > c && magnitude > pivotMagnitude) {
                pivot = r;
                pivotMagnitude = magnitude;
            }
        }
        if (!(pivotMagnitude > negligiblePivot * columnMax)) return false;
        double* const row = m + c * n;
        if (pivot != c) {
            std::swap_ranges(row, row + n, m + pivot * n);
            std::swap(y[c], y[pivot]);
        }
        for (size_t r = c + 1; r < n; ++r) {
            double* const target = m + r * n;
            const double f = target[c] / row[c];
            if (f == 0) continue;
            for (size_t k = c; k < n; ++k) target[k] -= f * row[k];
            y[r] -= f * y[c];
        }
    }
    for (size_t r = n; r-- > 0;) {
        const double* const row = m + r * n;
        double sum = y[r];
        for (size_t k = r + 1; k < n; ++k) sum -= row[k] * y[k];
        y[r] = sum / row[r];
        if (!std::isfinite(y[r])) return false;
    }
    return true;
}

bool SolvePivoted(std::vector<double> a, std::vector<double> b, int32_t size, std::vector<double>& x) {
    if (!SolvePivotedInPlace(a, b, size, kSolverOptions.negligiblePivot)) return false;
    x = std::move(b);
    return true;
}

bool SolveDampedLeastSquares(const std::vector<double>& a, const std::vector<double>& b, int32_t size, double lambda,
                             std::vector<double>& x) {
    std::vector<double> normal(static_cast<size_t>(size) * size, 0), rhs(size, 0);
    for (int32_t i = 0; i < size; ++i) {
        for (int32_t j = 0; j < size; ++j) {
            double sum = 0;
            for (int32_t k = 0; k < size; ++k) sum += a[static_cast<size_t>(k) * size + i] * a[static_cast<size_t>(k) * size + j];
            normal[static_cast<size_t>(i) * size + j] = sum;
        }
        for (int32_t k = 0; k < size; ++k) rhs[i] += a[static_cast<size_t>(k) * size + i] * b[k];
    }
    for (int32_t i = 0; i < size; ++i) {
        double& d = normal[static_cast<size_t>(i) * size + i];
        d += lambda * d + 1e-300;
    }
    return SolvePivoted(std::move(normal), std::move(rhs), size, x);
}

}  // namespace tormel
