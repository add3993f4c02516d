#include "arrays.hpp"

namespace python {
namespace {

/** NumPy's function, which finds out by how strides and extents are made. */
PyObject* shares_memory;
constexpr int kMostWork = 1000;

/** The type that elements are converted to; NPY_NOTYPE where they have no transform. */
int type_to_transform(int type) {
    switch (type) {
        case NPY_FLOAT:
        case NPY_HALF:
            return NPY_FLOAT;
        case NPY_DOUBLE:
        case NPY_LONGDOUBLE:
        case NPY_BOOL:
            return NPY_DOUBLE;
        case NPY_CFLOAT:
            return NPY_CFLOAT;
        case NPY_CDOUBLE:
        case NPY_CLONGDOUBLE:
            return NPY_CDOUBLE;
        default:
            return PyTypeNum_ISINTEGER(type) ? NPY_DOUBLE : NPY_NOTYPE;
    }
}

/** Not a matrix or another kind of array, whose operators differ. */
Array plain_array(PyObject* given) {
    if (PyArray_CheckExact(given)) {
        Py_INCREF(given);
        return Array(reinterpret_cast<PyArrayObject*>(given));
    }
    return Array(reinterpret_cast<PyArrayObject*>(
        PyArray_FromAny(given, nullptr, 0, 0, NPY_ARRAY_ENSUREARRAY, nullptr)));
}

bool shape_is(PyArrayObject* array, int axes, const npy_intp* shape) {
    return PyArray_NDIM(array) == axes &&
           PyArray_CompareLists(PyArray_DIMS(array), shape, axes) != 0;
}

}  // namespace

bool prepare_arrays() {
    const Reference<> numpy(PyImport_ImportModule("numpy"));
    if (numpy) shares_memory = PyObject_GetAttrString(numpy.get(), "shares_memory");
    return shares_memory != nullptr;
}

bool read_source(const Family& family, PyObject* given, Source& source) {
    source.array = plain_array(given);
    if (!source.array) return false;
    PyArray_Descr* const found = PyArray_DESCR(source.array.get());
    const int type = type_to_transform(found->type_num);
    if (type == NPY_NOTYPE) {
        PyErr_Format(PyExc_TypeError, "%s takes numbers; an array of %S has no %s", family.name,
                     reinterpret_cast<PyObject*>(found), family.transform);
        return false;
    }
    source.precision =
        type == NPY_FLOAT || type == NPY_CFLOAT ? Precision::kSingle : Precision::kDouble;
    source.is_real = type == NPY_FLOAT || type == NPY_DOUBLE;
    if (!source.is_real && family.source == Elements::kReal) {
        PyErr_Format(PyExc_TypeError, "%s takes real numbers, not an array of %S", family.name,
                     reinterpret_cast<PyObject*>(found));
        return false;
    }
    if (type != found->type_num || !PyArray_ISNOTSWAPPED(source.array.get()))
        source.array.reset(reinterpret_cast<PyArrayObject*>(PyArray_FromArray(
            source.array.get(), PyArray_DescrFromType(type), NPY_ARRAY_FORCECAST)));
    return source.array != nullptr;
}

bool check_out(PyObject* given, int axes, const npy_intp* shape, int type) {
    if (!PyArray_Check(given)) {
        PyErr_Format(PyExc_TypeError, "out must be an array, not %s", Py_TYPE(given)->tp_name);
        return false;
    }
    auto* const out = reinterpret_cast<PyArrayObject*>(given);
    if (PyArray_TYPE(out) != type || !PyArray_ISNOTSWAPPED(out)) {
        const Reference<> wanted(reinterpret_cast<PyObject*>(PyArray_DescrFromType(type)));
        PyErr_Format(PyExc_TypeError, "out must be an array of %S, not of %S", wanted.get(),
                     reinterpret_cast<PyObject*>(PyArray_DESCR(out)));
        return false;
    }
    if (!shape_is(out, axes, shape)) {
        const Reference<> wanted(PyArray_IntTupleFromIntp(axes, shape));
        const Reference<> found(PyArray_IntTupleFromIntp(PyArray_NDIM(out), PyArray_DIMS(out)));
        if (wanted && found)
            PyErr_Format(PyExc_ValueError, "out must have the result's shape %S, not %S",
                         wanted.get(), found.get());
        return false;
    }
    if (PyArray_FailUnlessWriteable(out, "out") < 0) return false;
    if (overlaps_itself(out)) {
        PyErr_SetString(PyExc_ValueError, "elements of out share memory with each other");
        return false;
    }
    return PyErr_Occurred() == nullptr;
}

bool may_share_memory(PyArrayObject* a, PyArrayObject* b) {
    const Reference<> found(PyObject_CallFunction(shares_memory, "OOi", a, b, kMostWork));
    if (found) return found.get() != Py_False;
    PyErr_Clear();
    return true;
}

}  // namespace python
