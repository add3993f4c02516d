#include "textbook_wht.hpp"

#include <cstring>

namespace bench {
namespace {

template <typename Real>
void Textbook(const Real* src, Real* dst, size_t size) {
    if (dst != src) std::memcpy(dst, src, size * sizeof(Real));
    for (size_t h = 1; h < size; h *= 2) {
        for (size_t i = 0; i < size; i += 2 * h) {
            for (size_t j = i; j < i + h; ++j) {
                const Real a = dst[j];
                const Real b = dst[j + h];
                dst[j] = a + b;
                dst[j + h] = a - b;
            }
        }
    }
}

}  // namespace

void TextbookWht(const float* src, float* dst, size_t size) {
    Textbook(src, dst, size);
}

void TextbookWht(const double* src, double* dst, size_t size) {
    Textbook(src, dst, size);
}

}  // namespace bench
