/** @file @brief The module: its functions, and the way of one short vector through them. */

#include <cstring>
#include <string>

#define QSVGEN_FILLS_ARRAY_API
#include "arrays.hpp"
#include "call.hpp"
#include "docstrings.hpp"

namespace python {
namespace {

/** One contiguous vector of a type that needs no conversion, with nothing else said; null without
 * an exception where it is none. Calls of short vectors cost little more than their array. */
template <const Family& family>
PyObject* transform_vector(PyObject* given) {
    if (!PyArray_CheckExact(given)) return nullptr;
    auto* const array = reinterpret_cast<PyArrayObject*>(given);
    if (PyArray_NDIM(array) != 1 || !PyArray_ISBEHAVED_RO(array)) return nullptr;
    const int type = PyArray_TYPE(array);
    Precision precision = Precision::kSingle;
    if (type == type_of(family.source, Precision::kDouble))
        precision = Precision::kDouble;
    else if (type != type_of(family.source, Precision::kSingle))
        return nullptr;
    const npy_intp items = PyArray_DIM(array, 0);
    const npy_intp length = family.source == Elements::kHalfSpectrum ? 2 * (items - 1) : items;
    if (PyArray_STRIDE(array, 0) != item_of(family.source, precision) ||
        !runs_without_space(family, length) || !has_length(family, precision, length))
        return nullptr;
    npy_intp shape = items_of(family.result, length);
    PyObject* const result = PyArray_SimpleNew(1, &shape, type_of(family.result, precision));
    if (result == nullptr) return nullptr;
    family.single[static_cast<size_t>(precision)](
        PyArray_DATA(array), PyArray_DATA(reinterpret_cast<PyArrayObject*>(result)),
        static_cast<int32_t>(length), flag_of(family, Norm::kBackward));
    return result;
}

template <const Family& family>
PyObject* function(PyObject*, PyObject* const* arguments, Py_ssize_t positional,
                   PyObject* keywords) {
    if (positional == 1 && keywords == nullptr) {
        PyObject* const result = transform_vector<family>(arguments[0]);
        if (result != nullptr || PyErr_Occurred() != nullptr) return result;
    }
    Given given;
    if (!read_given(family.name, arguments, positional, keywords, given)) return nullptr;
    return call(family, given);
}

PyObject* target_code(PyObject*, PyObject*) {
    const LibraryVersion* const version = qsvgenGetLibVersion();
    return PyUnicode_FromString(
        std::string(version->targetCode, strnlen(version->targetCode, sizeof version->targetCode))
            .c_str());
}

PyObject* library_version(PyObject*, PyObject*) {
    return PyUnicode_FromString(qsvgenGetLibVersion()->versionText);
}

template <const Family& family>
PyMethodDef method(const char* documentation) {
    return {family.name,
            reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(function<family>)),
            METH_FASTCALL | METH_KEYWORDS, documentation};
}

PyMethodDef methods[] = {
    method<kFft>(kFftDocumentation),
    method<kIfft>(kIfftDocumentation),
    method<kRfft>(kRfftDocumentation),
    method<kIrfft>(kIrfftDocumentation),
    method<kDht>(kDhtDocumentation),
    method<kIdht>(kIdhtDocumentation),
    method<kFwht>(kFwhtDocumentation),
    method<kIfwht>(kIfwhtDocumentation),
    method<kDct4>(kDct4Documentation),
    method<kIdct4>(kIdct4Documentation),
    {"target_code", target_code, METH_NOARGS, kTargetCodeDocumentation},
    {"library_version", library_version, METH_NOARGS, kLibraryVersionDocumentation},
    {nullptr, nullptr, 0, nullptr}};

PyModuleDef definition = {PyModuleDef_HEAD_INIT,
                          "_transforms",
                          "Transforms of NumPy's arrays by the C interface; what qsvgen exports.",
                          -1,
                          methods,
                          nullptr,
                          nullptr,
                          nullptr,
                          nullptr};

}  // namespace
}  // namespace python

PyMODINIT_FUNC PyInit__transforms() {
    import_array();
    if (!python::prepare_arguments() || !python::prepare_arrays()) return nullptr;
    return PyModule_Create(&python::definition);
}
