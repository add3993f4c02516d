#include "arguments.hpp"

#include <unistd.h>

#include <array>

namespace python {
namespace {

constexpr size_t kCount = 6;
constexpr std::array<const char*, kCount> kNames = {"a", "n", "axis", "norm", "out", "workers"};
std::array<PyObject*, kCount> names;
PyObject* backward;
PyObject* axis_error;

constexpr size_t kNotThere = kCount;

size_t place_of(PyObject* keyword) {
    // Names in a program's text are one object each.
    for (size_t i = 0; i < kCount; ++i)
        if (keyword == names[i]) return i;
    for (size_t i = 0; i < kCount; ++i)
        if (PyUnicode_CompareWithASCIIString(keyword, kNames[i]) == 0) return i;
    return kNotThere;
}

PyObject* unless_none(PyObject* object) {
    return object == Py_None ? nullptr : object;
}

bool is(PyObject* text, const char* word) {
    return PyUnicode_Check(text) && PyUnicode_CompareWithASCIIString(text, word) == 0;
}

/** Numbers that do not fit become the largest or the least, which are out of every range. */
bool read_integer(PyObject* given, const char* name, Py_ssize_t& value) {
    if (!PyIndex_Check(given)) {
        PyErr_Format(PyExc_TypeError, "%s must be an integer, not %s", name,
                     Py_TYPE(given)->tp_name);
        return false;
    }
    value = PyNumber_AsSsize_t(given, nullptr);
    return value != -1 || PyErr_Occurred() == nullptr;
}

}  // namespace

bool prepare_arguments() {
    for (size_t i = 0; i < kCount; ++i) {
        names[i] = PyUnicode_InternFromString(kNames[i]);
        if (names[i] == nullptr) return false;
    }
    backward = PyUnicode_InternFromString("backward");
    // Where NumPy keeps it has changed between its versions.
    for (const char* module : {"numpy.exceptions", "numpy"}) {
        PyErr_Clear();
        const Reference<> found(PyImport_ImportModule(module));
        axis_error = found ? PyObject_GetAttrString(found.get(), "AxisError") : nullptr;
        if (axis_error != nullptr) break;
    }
    return backward != nullptr && axis_error != nullptr;
}

bool read_given(const char* function, PyObject* const* arguments, Py_ssize_t positional,
                PyObject* keywords, Given& given) {
    std::array<PyObject*, kCount> values{};
    if (positional > static_cast<Py_ssize_t>(kCount)) {
        PyErr_Format(PyExc_TypeError,
                     "%s() takes from 1 to 6 positional arguments but %zd were given", function,
                     positional);
        return false;
    }
    for (Py_ssize_t i = 0; i < positional; ++i) values[static_cast<size_t>(i)] = arguments[i];
    const Py_ssize_t named = keywords == nullptr ? 0 : PyTuple_GET_SIZE(keywords);
    for (Py_ssize_t i = 0; i < named; ++i) {
        PyObject* const keyword = PyTuple_GET_ITEM(keywords, i);
        const size_t place = place_of(keyword);
        if (place == kNotThere) {
            PyErr_Format(PyExc_TypeError, "%s() got an unexpected keyword argument '%U'", function,
                         keyword);
            return false;
        }
        if (values[place] != nullptr) {
            PyErr_Format(PyExc_TypeError, "%s() got multiple values for argument '%U'", function,
                         keyword);
            return false;
        }
        values[place] = arguments[positional + i];
    }
    if (values[0] == nullptr) {
        PyErr_Format(PyExc_TypeError, "%s() missing 1 required positional argument: 'a'", function);
        return false;
    }
    if (values[2] == Py_None) {
        PyErr_SetString(PyExc_TypeError, "axis must be an integer, not None");
        return false;
    }
    given = {values[0],
             unless_none(values[1]),
             values[2],
             unless_none(values[3]),
             unless_none(values[4]),
             unless_none(values[5])};
    return true;
}

bool read_norm(PyObject* given, Norm& norm) {
    if (given == nullptr || given == backward || is(given, "backward")) {
        norm = Norm::kBackward;
    } else if (is(given, "ortho")) {
        norm = Norm::kOrtho;
    } else if (is(given, "forward")) {
        norm = Norm::kForward;
    } else {
        PyErr_Format(PyExc_ValueError,
                     "invalid norm value %R; it should be 'backward', 'ortho' or 'forward'", given);
        return false;
    }
    return true;
}

bool read_axis(PyObject* given, int axes, int& axis) {
    Py_ssize_t value = -1;
    if (given != nullptr && !read_integer(given, "axis", value)) return false;
    if (value >= -axes && value < axes) {
        axis = static_cast<int>(value < 0 ? value + axes : value);
        return true;
    }
    const Reference<> error(PyObject_CallFunction(axis_error, "ni", value, axes));
    if (error) PyErr_SetObject(axis_error, error.get());
    return false;
}

bool read_workers(PyObject* given, Py_ssize_t& workers) {
    workers = 1;
    if (given == nullptr) return true;
    if (!read_integer(given, "workers", workers)) return false;
    if (workers > 0) return true;
    const auto processors = static_cast<Py_ssize_t>(sysconf(_SC_NPROCESSORS_ONLN));
    if (workers < 0 && workers >= -processors) {
        workers += 1 + processors;
        return true;
    }
    PyErr_Format(PyExc_ValueError,
                 "workers must be 1 or more, or negative and at least -%zd, counted down from the "
                 "machine's processors; it is %R",
                 processors, given);
    return false;
}

bool read_length(PyObject* given, Py_ssize_t& length) {
    return read_integer(given, "n", length);
}

}  // namespace python
