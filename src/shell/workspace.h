#pragma once
// Everything one user session works on: folders, settings, language, the
// chemical system, the current input, the solver's state, the results and how
// they are shown. One per process in the desktop program; a batch run makes
// one per worker thread, all reading the same database.
#include "calc/run_calculation.h"
#include "calc/solver_state.h"
#include "core/chemical_system.h"
#include "core/language.h"
#include "core/ui_services.h"
#include "input/input_problem.h"
#include "output/number_text.h"
#include "output/output_options.h"
#include "output/result_context.h"
#include "output/result_store.h"
#include "shell/app_folders.h"
#include "shell/output_settings.h"
#include "shell/recent_files.h"
#include "shell/settings.h"

namespace tormel {

struct Workspace {
    AppFolders folders;
    Settings settings;
    Language language;
    ChemicalSystem chem;
    InputProblem input;
    SolverState solver;
    ResultStore results;
    OutputOptions outputOptions;
    DecimalSeparator decimalSeparator;
    RecentFiles recentFiles;
    const UiServices* ui = nullptr;  // never null once the workspace is in use
    bool uiReady = false;            // no modal window or long operation is running

    Workspace() = default;
    // Settings and language file from the folders; the UI services stay the caller's.
    Workspace(AppFolders appFolders, const UiServices& services);

    const UiServices& Ui() const;
};

// The view of the workspace that building and showing results need, with
// the output options loaded from the settings on first need.
ResultContext MakeResultContext(Workspace& ws);

// Calculates the current input (assembly, solve, post-processing) and, when it
// converged, builds result set 0. Input no solve can start from (see
// UnsolvableInputText) is refused before the assembly: nothing is assembled,
// and the solve's message says which fields are wrong. When the assembly
// refuses, its warning is shown through the UI services.
CalculationOutcome CalculateInput(Workspace& ws, bool showProgress);

// A workspace for another thread: the same folders, settings, language,
// output options and decimal separator, the same (shared, read-only)
// database, and a fresh assembled layer, input, solver state and result store.
Workspace CloneForWorker(const Workspace& ws, const UiServices& services);

}  // namespace tormel
