#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

#include "arrays.hpp"

namespace python {
namespace {

struct Dimension {
    npy_intp extent;
    npy_intp stride;  ///< from 0 on
};

/** Whether the elements' addresses are less than an element apart somewhere, by looking at all. */
bool found_by_looking(const Dimension* begin, const Dimension* end, npy_intp elements,
                      npy_intp item) {
    std::vector<npy_intp> offsets;
    offsets.reserve(static_cast<size_t>(elements));
    offsets.push_back(0);
    for (const Dimension* dimension = begin; dimension != end; ++dimension) {
        const size_t before = offsets.size();
        for (npy_intp i = 1; i < dimension->extent; ++i) {
            for (size_t k = 0; k < before; ++k)
                offsets.push_back(offsets[k] + i * dimension->stride);
        }
    }
    std::sort(offsets.begin(), offsets.end());
    return std::adjacent_find(offsets.begin(), offsets.end(), [item](npy_intp a, npy_intp b) {
               return b - a < item;
           }) != offsets.end();
}

}  // namespace

bool overlaps_itself(PyArrayObject* array) {
    const npy_intp item = PyArray_ITEMSIZE(array);
    std::array<Dimension, NPY_MAXDIMS> dimensions{};
    Dimension* const begin = dimensions.data();
    Dimension* end = begin;
    for (int i = 0; i < PyArray_NDIM(array); ++i) {
        if (PyArray_DIM(array, i) == 0) return false;
        if (PyArray_DIM(array, i) > 1)
            *end++ = {PyArray_DIM(array, i), std::abs(PyArray_STRIDE(array, i))};
    }
    std::sort(begin, end,
              [](const Dimension& a, const Dimension& b) { return a.stride < b.stride; });
    // Each dimension strides over all that the lesser ones cover: then none meets another.
    npy_intp covered = item;
    bool apart = true;
    for (const Dimension* dimension = begin; dimension != end; ++dimension) {
        apart = apart && dimension->stride >= covered;
        covered += (dimension->extent - 1) * dimension->stride;
    }
    if (apart) return false;
    // More elements than there is room for; what is left to look at is bounded by the memory there
    // is.
    const npy_intp elements = PyArray_SIZE(array);
    if (begin->stride < item || elements > covered / item) return true;
    try {
        return found_by_looking(begin, end, elements, item);
    } catch (const std::bad_alloc&) {
        PyErr_NoMemory();
        return false;
    }
}

}  // namespace python
