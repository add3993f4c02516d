#pragma once

/** @file @brief The arguments that all transforms take: f(a, n=None, axis=-1, norm=None, out=None,
 * workers=None). */

#include "families.hpp"
#include "numpy_interface.hpp"

namespace python {

/** As they were given, borrowed; null where they were not, or were None. */
struct Given {
    PyObject* a = nullptr;
    PyObject* n = nullptr;
    PyObject* axis = nullptr;
    PyObject* norm = nullptr;
    PyObject* out = nullptr;
    PyObject* workers = nullptr;
};

/** Makes the strings that keywords are compared with. */
bool prepare_arguments();

/** @name Each sets an exception and returns false where an argument is not as it should be
 * @{ */

/** Of a call by the vectorcall convention. */
bool read_given(const char* function, PyObject* const* arguments, Py_ssize_t positional,
                PyObject* keywords, Given& given);
bool read_norm(PyObject* given, Norm& norm);
/** The axis counted from the first, of an array of so many axes. */
bool read_axis(PyObject* given, int axes, int& axis);
/** How many threads, from 1 on; negative numbers count down from those of the machine, which is -1.
 */
bool read_workers(PyObject* given, Py_ssize_t& workers);
/** given may not be null. */
bool read_length(PyObject* given, Py_ssize_t& length);

/** @} */

}  // namespace python
