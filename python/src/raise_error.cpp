#include "raise_error.h"

#include <pybind11/pybind11.h>

namespace tormel::python {

namespace py = pybind11;

void RaiseError(const char* errorClass, const std::string& message) {
    py::object cls = py::module_::import("tormel.errors").attr(errorClass);
    PyErr_SetString(cls.ptr(), message.c_str());
    throw py::error_already_set();
}

}  // namespace tormel::python
