#pragma once
// Result set 0 as columns for pandas: one dict of equally long lists per
// table (components, species, solids, gases, other_info). Amounts in mol/L.
#include <pybind11/pybind11.h>

#include "shell/workspace.h"

namespace tormel::python {

pybind11::dict ResultColumns(const Workspace& ws);

}  // namespace tormel::python
