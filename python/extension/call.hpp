#pragma once

/** @file @brief A call of any transform, with any arguments. */

#include "arguments.hpp"
#include "families.hpp"
#include "numpy_interface.hpp"

namespace python {

/** The result, a new reference; null with an exception set. */
PyObject* call(const Family& family, const Given& given);

/** Sets the exception for a length that has no transform. */
void refuse_length(const Family& family, Precision precision, Py_ssize_t length);

}  // namespace python
