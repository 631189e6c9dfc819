#include "calc/gauss_jordan.h"

#include <cmath>
#include <utility>

namespace tormel {

bool GaussJordanInvert(const std::vector<double>& a, int32_t size, std::vector<double>& inverse) {
    const int32_t width = 2 * size;
    std::vector<double> m(static_cast<size_t>(size) * width, 0.0);
    for (int32_t r = 0; r < size; ++r) {
        for (int32_t c = 0; c < size; ++c) m[r * width + c] = a[r * size + c];
        m[r * width + size + r] = 1.0;
    }
    for (int32_t c = 0; c < size; ++c) {
        if (m[c * width + c] == 0) {
            int32_t swapRow = -1;
            for (int32_t r = c + 1; r < size; ++r)
                if (m[r * width + c] != 0) {
                    swapRow = r;
                    break;
                }
            if (swapRow < 0) return false;  // singular: the column is empty
            for (int32_t k = c; k < width; ++k) std::swap(m[c * width + k], m[swapRow * width + k]);
        }
        const double pivot = m[c * width + c];
        if (!std::isfinite(pivot)) return false;
        for (int32_t k = c; k < width; ++k) m[c * width + k] /= pivot;
        for (int32_t r = 0; r < size; ++r) {
            if (r == c) continue;
            const double factor = m[r * width + c];
            if (factor == 0) continue;
            for (int32_t k = c; k < width; ++k) m[r * width + k] -= factor * m[c * width + k];
        }
    }
    inverse.assign(static_cast<size_t>(size) * size, 0.0);
    for (int32_t r = 0; r < size; ++r)
        for (int32_t c = 0; c < size; ++c) {
            const double v = m[r * width + size + c];
            if (!std::isfinite(v)) return false;
            inverse[r * size + c] = v;
        }
    return true;
}

}  // namespace tormel
