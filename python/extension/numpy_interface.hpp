#pragma once

/** @file @brief Python's and NumPy's C interfaces, whose table of functions module.cpp fills. */

#define PY_SSIZE_T_CLEAN
#include <Python.h>

#define NPY_NO_DEPRECATED_API NPY_1_7_API_VERSION
#define PY_ARRAY_UNIQUE_SYMBOL QSVGEN_ARRAY_API
#ifndef QSVGEN_FILLS_ARRAY_API
#define NO_IMPORT_ARRAY
#endif
#include <numpy/arrayobject.h>

#include <memory>

namespace python {

struct ReleaseReference {
    void operator()(void* object) const { Py_XDECREF(static_cast<PyObject*>(object)); }
};

/** An owned reference. */
template <class Object = PyObject>
using Reference = std::unique_ptr<Object, ReleaseReference>;

}  // namespace python
