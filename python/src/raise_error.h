#pragma once
// How the binding turns the core's error values into Python exceptions: the
// classes of tormel.errors, with the program's message.
#include <string>

namespace tormel::python {

// Raises tormel.errors.<errorClass>(message); the caller holds the GIL.
[[noreturn]] void RaiseError(const char* errorClass, const std::string& message);

}  // namespace tormel::python
