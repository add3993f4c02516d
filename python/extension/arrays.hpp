#pragma once

/** @file @brief Arrays as transforms take and give them: their types, and whose memory they share.
 */

#include "families.hpp"
#include "numpy_interface.hpp"

namespace python {

using Array = Reference<PyArrayObject>;

/** NumPy's number for the type of elements. */
inline int type_of(Elements elements, Precision precision) {
    if (elements == Elements::kReal)
        return precision == Precision::kSingle ? NPY_FLOAT : NPY_DOUBLE;
    return precision == Precision::kSingle ? NPY_CFLOAT : NPY_CDOUBLE;
}

/** What a family transforms: native, of float32, float64, complex64 or complex128, of any strides
 * and at any address; real also where the family wants complex elements. */
struct Source {
    Array array;
    Precision precision;
    bool is_real;
};

/** @name Each sets an exception and returns false where it is not possible
 * @{ */

bool read_source(const Family& family, PyObject* given, Source& source);

/** Whether given may receive the results: an array of this shape and type, writable, whose elements
 * are apart from each other. */
bool check_out(PyObject* given, int axes, const npy_intp* shape, int type);

/** @} */

/** Whether elements of the array share memory with others of it. */
bool overlaps_itself(PyArrayObject* array);

/** Whether arrays share memory; also where that takes too long to be found out. */
bool may_share_memory(PyArrayObject* a, PyArrayObject* b);

bool prepare_arrays();

}  // namespace python
