#pragma once
// Database.solve_frame's entry: the columns and numbers of a DataFrame in,
// one list per result column out (the GIL released while the rows are solved).
#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include <string>
#include <vector>

#include "session.h"
#include "water_lines.h"

namespace tormel::python {

pybind11::dict SolveFrameColumns(const Session& session, const std::vector<std::string>& columns,
                                 const pybind11::array_t<double, pybind11::array::c_style | pybind11::array::forcecast>& values,
                                 const Fields& constants, const std::vector<std::string>& species,
                                 const std::vector<std::string>& solids, int32_t jobs);

}  // namespace tormel::python
