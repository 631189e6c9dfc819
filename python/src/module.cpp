// tormel._tormel: the calculation core for Python. The pure-Python package
// `tormel` wraps it (DataFrames, the Water mapping, Dask); failures arrive as
// the exception classes of tormel.errors with the program's own messages.
#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <memory>

#include "frame_solve.h"
#include "input/input_file_reader.h"
#include "input/input_file_writer.h"
#include "input/input_type_text.h"
#include "input/water_table.h"
#include "output/export_csv.h"
#include "output/export_xml.h"
#include "output/output_file.h"
#include "output/printed_tables.h"
#include "output/build_other_info.h"
#include "result_columns.h"
#include "shell/batch_run.h"
#include "result_values.h"
#include "session.h"
#include "water_solve.h"

namespace py = pybind11;
using namespace tormel;
using namespace tormel::python;

namespace {

[[noreturn]] void Raise(const char* errorClass, const std::string& message) {
    py::object cls = py::module_::import("tormel.errors").attr(errorClass);
    PyErr_SetString(cls.ptr(), message.c_str());
    throw py::error_already_set();
}

std::string WithoutLeadingLineFeeds(std::string text) {
    while (!text.empty() && text.front() == '\n') text.erase(0, 1);
    return text;
}

// A result set with what showing, saving and exporting it needs.
struct Result {
    std::unique_ptr<MessageLog> log = std::make_unique<MessageLog>();
    Workspace ws;
    WaterOutcome outcome;
};

using Fields = std::vector<std::pair<std::string, std::string>>;

std::vector<WaterField> ToFields(const Fields& pairs) {
    std::vector<WaterField> fields;
    fields.reserve(pairs.size());
    for (const auto& [name, value] : pairs) fields.push_back({name, value});
    return fields;
}

// The input problem of a water; raises InputFileError when the reader refuses a field.
InputProblem ReadFields(const Session& session, const Fields& pairs) {
    InputProblem input;
    if (auto error = ReadWaterFields(ToFields(pairs), input, session.base.chem.db()))
        Raise("InputFileError", WithoutLeadingLineFeeds(InputFileErrorText(session.base.language, *error)));
    return input;
}

// The labelled lines of an input problem as the input file writes them.
Fields InputLines(const InputProblem& input, const Database& db) {
    Fields lines;
    const std::string text = FormatInputFile(input, db);
    size_t start = 0;
    for (int number = 1; start < text.size(); ++number) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        const std::string line = text.substr(start, end - start);
        start = end + 1;
        if (number <= 2) continue;  // header and format version
        const size_t colon = line.find(':');
        if (colon == std::string::npos) continue;
        size_t value = line.find_first_not_of(' ', colon + 1);
        lines.emplace_back(line.substr(0, colon), value == std::string::npos ? "" : line.substr(value));
    }
    return lines;
}

std::unique_ptr<Result> Solve(const Session& session, const Fields& pairs) {
    const std::vector<WaterField> fields = ToFields(pairs);
    auto result = std::make_unique<Result>();
    {
        py::gil_scoped_release release;
        result->ws = CloneForWorker(session.base, result->log->Services());
        result->outcome = SolveWater(result->ws, *result->log, fields);
    }
    switch (result->outcome.status) {
        case WaterStatus::Solved: break;
        case WaterStatus::InputRefused: Raise("InputFileError", result->outcome.message);
        case WaterStatus::Unsolvable: Raise("UnsolvableInputError", result->outcome.message);
        case WaterStatus::NotCalculated: Raise("CalculationError", result->outcome.message);
        case WaterStatus::NotConverged: Raise("NotConvergedError", result->outcome.message);
    }
    return result;
}

std::unique_ptr<Result> ReadOutput(const Session& session, const std::string& path) {
    auto result = std::make_unique<Result>();
    result->ws = CloneForWorker(session.base, result->log->Services());
    Workspace& ws = result->ws;
    OutputReadReport report;
    if (auto error = ReadOutputFile(path, ws.results, 0, &ws.input, &ws.Ui(), &report))
        Raise("OutputFileError", WithoutLeadingLineFeeds(OutputFileErrorText(ws.language, *error)));
    if (!report.complete)
        Raise("OutputFileError", LanguageText(ws.language, "Output", "ErrorIncomplete") + "\n" + path + ":" +
                                     std::to_string(report.stoppedAtLine));
    BuildOtherInfo(ws.results, 0, MakeResultContext(ws), &ws.chem.db());
    result->outcome.solve.converged = true;
    result->outcome.solve.iterations = ws.results.sets[0].header.iterationCount;
    return result;
}

void Written(bool ok, const FileError& error, const std::string& path) {
    if (!ok) Raise("FileWriteError", path + ": " + error.message);
}

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
            Raise("InputFileError", "column \"" + column + "\": " +
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

}  // namespace

PYBIND11_MODULE(_tormel, m) {
    m.doc() = "The TORMEL Next calculation core.";

    py::class_<Session>(m, "Session")
        .def(py::init([](const std::string& programFolder, const std::string& dataFolder) {
                 std::string error;
                 std::unique_ptr<Session> session;
                 {
                     py::gil_scoped_release release;
                     session = OpenSession(programFolder, dataFolder, error);
                 }
                 if (!session) Raise("DatabaseError", error);
                 return session;
             }),
             py::arg("program_folder"), py::arg("data_folder") = "")
        .def("component_names",
             [](const Session& s) {
                 std::vector<std::string> names;
                 for (const Component& c : s.base.chem.db().components) names.push_back(c.name);
                 return names;
             })
        .def_property_readonly("data_folder", [](const Session& s) { return s.base.folders.dataFolder; })
        .def("solve", &Solve, py::arg("fields"))
        .def("solve_frame", &SolveFrameColumns, py::arg("columns"), py::arg("values"), py::arg("constants"),
             py::arg("species"), py::arg("solids"), py::arg("jobs"))
        .def("input_lines",
             [](const Session& s, const Fields& fields) { return InputLines(ReadFields(s, fields), s.base.chem.db()); })
        .def("read_input",
             [](const Session& s, const std::string& path) {
                 InputProblem input;
                 if (auto error = LoadInputFile(path, input, s.base.chem.db()))
                     Raise("InputFileError", WithoutLeadingLineFeeds(InputFileErrorText(s.base.language, *error)));
                 return InputLines(input, s.base.chem.db());
             })
        .def("write_input",
             [](const Session& s, const Fields& fields, const std::string& path) {
                 InputProblem input = ReadFields(s, fields);
                 MessageLog log;
                 FileError error;
                 const bool ok = WriteInputFile(path, input, s.base.chem.db(), log.Services(), s.base.language, &error);
                 if (!ok) Raise("FileWriteError", WithoutLeadingLineFeeds(log.Text()));
                 return InputFileWritePath(path);
             })
        .def("read_output", &ReadOutput, py::arg("path"));

    py::class_<Result>(m, "Result")
        .def_property_readonly("iterations", [](const Result& r) { return r.outcome.solve.iterations; })
        .def_property_readonly("consistency", [](const Result& r) { return r.outcome.consistencyReport; })
        .def_property_readonly("consistency_errors", [](const Result& r) { return r.outcome.consistencyErrors; })
        .def_property_readonly("ph", [](const Result& r) { return ResultPh(r.ws.results); })
        .def_property_readonly("ionic_strength", [](const Result& r) { return ResultIonicStrength(r.ws.results); })
        .def("tables", [](const Result& r) { return ResultColumns(r.ws); })
        .def("saturation_index", [](const Result& r, const std::string& solid) {
            return SaturationIndex(r.ws.results, solid);
        })
        .def("write_output",
             [](const Result& r, const std::string& path) {
                 FileError error;
                 Written(WriteOutputFile(path, r.ws.results, 0, &error), error, path);
             })
        .def("to_csv",
             [](const Result& r, const std::string& path, const std::string& separator) {
                 FileError error;
                 const ExportContext context{r.ws.language, r.ws.outputOptions};
                 Written(ExportCsv(path, separator, r.ws.results, 0, context, &error), error, path);
             },
             py::arg("path"), py::arg("separator") = "\t")
        .def("to_xml",
             [](const Result& r, const std::string& path) {
                 FileError error;
                 const ExportContext context{r.ws.language, r.ws.outputOptions};
                 Written(ExportXml(path, r.ws.results, 0, context, &error), error, path);
             })
        .def("printed_tables",
             [](Result& r, bool wide) { return PrintedResultTables(r.ws.results, 0, MakeResultContext(r.ws), wide); },
             py::arg("wide") = false);

    m.def("read_water_table", [](const std::string& path) {
        WaterTableError error;
        std::optional<WaterTable> table = ReadWaterTable(path, &error);
        if (!table) Raise("WaterTableError", error.Describe());
        py::array_t<double> values({static_cast<py::ssize_t>(table->RowCount()),
                                    static_cast<py::ssize_t>(table->columns.size())});
        std::copy(table->values.begin(), table->values.end(), values.mutable_data());
        return py::make_tuple(table->columns, values);
    });
    m.def("input_type_text", [](int32_t type) { return std::string(InputTypeFileText(type)); });
    m.def("max_threads", &MaxBatchThreads);
}
