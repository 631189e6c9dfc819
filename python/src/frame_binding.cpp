#include "frame_binding.h"

#include <pybind11/stl.h>

#include "frame_solve.h"
#include "message_log.h"
#include "raise_error.h"

namespace tormel::python {

namespace py = pybind11;

py::dict SolveFrameColumns(const Session& session, const std::vector<std::string>& columns,
                           const py::array_t<double, py::array::c_style | py::array::forcecast>& values,
                           const Fields& constants, const std::vector<std::string>& species,
                           const std::vector<std::string>& solids, int32_t jobs) {
    if (values.ndim() != 2 || static_cast<size_t>(values.shape(1)) != columns.size())
        throw py::value_error("values must be a 2-D array with one column per column name");
    // a column that names nothing would fail every row: say so once
    for (const std::string& column : columns) {
        InputProblem probe;
        const WaterField field{column, "0"};
        auto error = ReadWaterFields(std::span<const WaterField>(&field, 1), probe, session.base.chem.db());
        if (error && error->key == "ErrorOpen3")
            RaiseError("InputFileError", "column \"" + column + "\": " +
                                        WithoutLeadingLineFeeds(InputFileErrorText(session.base.language, *error)));
    }
    FrameRequest request;
    request.columns = columns;
    request.values = std::span<const double>(values.data(), static_cast<size_t>(values.size()));
    request.constants = ToFields(constants);
    request.species = species;
    request.solids = solids;
    request.jobs = jobs;
    std::vector<FrameRow> rows;
    {
        py::gil_scoped_release release;
        rows = SolveFrame(session, request);
    }
    py::list converged, messages, consistency, iterations, ph, ionic;
    py::list speciesRows;
    py::list saturation;
    for (const FrameRow& row : rows) {
        converged.append(row.converged);
        messages.append(row.message);
        consistency.append(row.consistency);
        iterations.append(row.iterations);
        ph.append(row.ph);
        ionic.append(row.ionicStrength);
        speciesRows.append(py::make_tuple(row.speciesNames, row.concentrations, row.activities));
        saturation.append(row.saturationIndices);
    }
    py::dict out;
    out["converged"] = converged;
    out["message"] = messages;
    out["consistency"] = consistency;
    out["iterations"] = iterations;
    out["pH"] = ph;
    out["ionic strength"] = ionic;
    out["species"] = speciesRows;
    out["saturation"] = saturation;
    return out;
}

}  // namespace tormel::python
