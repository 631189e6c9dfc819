#include "calc/dense_solve.h"
#include "calc/solver_options.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tormel {


bool SolvePivotedInPlace(std::span<double> a, std::span<double> b, int32_t size, double negligiblePivot) {
    const auto at = [&](int32_t row, int32_t col) -> double& { return a[static_cast<size_t>(row) * size + col]; };
    for (int32_t c = 0; c < size; ++c) {
        int32_t pivot = c;
        double columnMax = 0;
        for (int32_t r = c; r < size; ++r) {
            columnMax = std::max(columnMax, std::fabs(at(r, c)));
            if (std::fabs(at(r, c)) > std::fabs(at(pivot, c))) pivot = r;
        }
        for (int32_t r = 0; r < c; ++r) columnMax = std::max(columnMax, std::fabs(at(r, c)));
        if (!(std::fabs(at(pivot, c)) > negligiblePivot * columnMax)) return false;
        if (pivot != c) {
            for (int32_t k = 0; k < size; ++k) std::swap(at(c, k), at(pivot, k));
            std::swap(b[c], b[pivot]);
        }
        for (int32_t r = c + 1; r < size; ++r) {
            const double f = at(r, c) / at(c, c);
            if (f == 0) continue;
            for (int32_t k = c; k < size; ++k) at(r, k) -= f * at(c, k);
            b[r] -= f * b[c];
        }
    }
    for (int32_t r = size - 1; r >= 0; --r) {
        double sum = b[r];
        for (int32_t k = r + 1; k < size; ++k) sum -= at(r, k) * b[k];
        b[r] = sum / at(r, r);
        if (!std::isfinite(b[r])) return false;
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
