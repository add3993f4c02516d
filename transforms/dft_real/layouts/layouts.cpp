#include "transforms/dft_real/layouts/layouts.hpp"

namespace dft_real {

std::string to_string(Layout layout) {
    switch (layout) {
        case Layout::CCS:
            return "CCS";
        case Layout::Pack:
            return "Pack";
        case Layout::Perm:
            break;
    }
    return "Perm";
}

int array_length(Layout layout, int N) {
    return layout == Layout::CCS ? 2 * (N / 2) + 2 : N;
}

int real_element(Layout layout, int N, int k) {
    if (k == 0 || layout == Layout::CCS) return 2 * k;
    if (layout == Layout::Pack || N % 2 != 0) return 2 * k - 1;
    return 2 * k == N ? 1 : 2 * k;
}

int imaginary_element(Layout layout, int N, int k) {
    return real_element(layout, N, k) + 1;
}

}  // namespace dft_real
