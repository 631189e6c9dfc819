// tormel._tormel: the calculation core for Python. The pure-Python package
// `tormel` wraps it (DataFrames, the Water mapping, Dask); failures arrive as
// the exception classes of tormel.errors with the program's own messages.
#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <memory>

#include "frame_binding.h"
#include "raise_error.h"
#include "water_lines.h"
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

// A result set with what showing, saving and exporting it needs.
struct Result {
    std::unique_ptr<MessageLog> log = std::make_unique<MessageLog>();
    Workspace ws;
    WaterOutcome outcome;
};

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
        case WaterStatus::InputRefused: RaiseError("InputFileError", result->outcome.message);
        case WaterStatus::Unsolvable: RaiseError("UnsolvableInputError", result->outcome.message);
        case WaterStatus::NotCalculated: RaiseError("CalculationError", result->outcome.message);
        case WaterStatus::NotConverged: RaiseError("NotConvergedError", result->outcome.message);
    }
    return result;
}

std::unique_ptr<Result> ReadOutput(const Session& session, const std::string& path) {
    auto result = std::make_unique<Result>();
    result->ws = CloneForWorker(session.base, result->log->Services());
    Workspace& ws = result->ws;
    OutputReadReport report;
    if (auto error = ReadOutputFile(path, ws.results, 0, &ws.input, &ws.Ui(), &report))
        RaiseError("OutputFileError", WithoutLeadingLineFeeds(OutputFileErrorText(ws.language, *error)));
    if (!report.complete)
        RaiseError("OutputFileError", LanguageText(ws.language, "Output", "ErrorIncomplete") + "\n" + path + ":" +
                                     std::to_string(report.stoppedAtLine));
    BuildOtherInfo(ws.results, 0, MakeResultContext(ws), &ws.chem.db());
    result->outcome.solve.converged = true;
    result->outcome.solve.iterations = ws.results.sets[0].header.iterationCount;
    return result;
}

void Written(bool ok, const FileError& error, const std::string& path) {
    if (!ok) RaiseError("FileWriteError", path + ": " + error.message);
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
                 if (!session) RaiseError("DatabaseError", error);
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
                     RaiseError("InputFileError", WithoutLeadingLineFeeds(InputFileErrorText(s.base.language, *error)));
                 return InputLines(input, s.base.chem.db());
             })
        .def("write_input",
             [](const Session& s, const Fields& fields, const std::string& path) {
                 InputProblem input = ReadFields(s, fields);
                 MessageLog log;
                 FileError error;
                 const bool ok = WriteInputFile(path, input, s.base.chem.db(), log.Services(), s.base.language, &error);
                 if (!ok) RaiseError("FileWriteError", WithoutLeadingLineFeeds(log.Text()));
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
        if (!table) RaiseError("WaterTableError", error.Describe());
        py::array_t<double> values({static_cast<py::ssize_t>(table->RowCount()),
                                    static_cast<py::ssize_t>(table->columns.size())});
        std::copy(table->values.begin(), table->values.end(), values.mutable_data());
        return py::make_tuple(table->columns, values);
    });
    m.def("input_type_text", [](int32_t code) {
        const std::optional<InputType> type = InputTypeFromCode(code);
        return type ? std::string(InputTypeFileText(*type)) : std::string();
    });
    m.def("max_threads", &MaxBatchThreads);
}
