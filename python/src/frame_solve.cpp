#include "frame_solve.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>
#include <thread>

#include "core/c_number.h"
#include "result_values.h"
#include "shell/batch_run.h"
#include "water_solve.h"

namespace tormel::python {

namespace {

constexpr double kMissing = std::numeric_limits<double>::quiet_NaN();

std::vector<WaterField> RowFields(const FrameRequest& request, size_t row) {
    std::vector<WaterField> fields = request.constants;
    const size_t width = request.columns.size();
    for (size_t c = 0; c < width; ++c) {
        const double value = request.values[row * width + c];
        if (!std::isnan(value)) fields.push_back({request.columns[c], FormatC("%.17G", value)});
    }
    return fields;
}

void SolveRow(Workspace& worker, MessageLog& log, const FrameRequest& request, size_t row, FrameRow& out) {
    const std::vector<WaterField> fields = RowFields(request, row);
    const WaterOutcome outcome = SolveWater(worker, log, fields);
    out.converged = outcome.status == WaterStatus::Solved;
    out.message = outcome.message;
    out.consistency = outcome.consistencyReport;
    out.iterations = outcome.solve.iterations;
    out.ph = out.ionicStrength = kMissing;
    out.saturationIndices.assign(request.solids.size(), kMissing);
    if (!out.converged) return;
    const ResultStore& results = worker.results;
    out.ph = ResultPh(results);
    out.ionicStrength = ResultIonicStrength(results);
    const SetView view = ViewSet(results, 0);
    for (const SpeciesResult& species : view.species) {
        const bool wanted = request.species.empty()
                                ? IsFreeSpecies(species)
                                : std::find(request.species.begin(), request.species.end(), species.name) !=
                                      request.species.end();
        if (!wanted) continue;
        out.speciesNames.push_back(species.name);
        out.concentrations.push_back(species.concentration);
        out.activities.push_back(species.hasActivity ? species.activity : kMissing);
    }
    for (size_t s = 0; s < request.solids.size(); ++s) out.saturationIndices[s] = SaturationIndex(results, request.solids[s]);
}

}  // namespace

int32_t FrameThreads(int32_t jobs, size_t rows) {
    const auto rowLimit = static_cast<int32_t>(std::min<size_t>(std::max<size_t>(rows, 1), 1 << 20));
    return std::clamp(jobs, 1, std::max(1, std::min(rowLimit, MaxBatchThreads())));
}

std::vector<FrameRow> SolveFrame(const Session& session, const FrameRequest& request) {
    const size_t width = request.columns.size();
    const size_t rows = width == 0 ? 0 : request.values.size() / width;
    std::vector<FrameRow> out(rows);
    std::atomic<size_t> next{0};
    auto work = [&] {
        MessageLog log;
        Workspace worker = CloneForWorker(session.base, log.Services());
        for (size_t row = next.fetch_add(1); row < rows; row = next.fetch_add(1))
            SolveRow(worker, log, request, row, out[row]);
    };
    const int32_t threads = FrameThreads(request.jobs, rows);
    std::vector<std::thread> workers;
    for (int32_t t = 1; t < threads; ++t) workers.emplace_back(work);
    work();
    for (std::thread& worker : workers) worker.join();
    return out;
}

}  // namespace tormel::python
