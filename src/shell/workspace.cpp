#include "shell/workspace.h"

#include "calc/neutralise.h"
#include "input/solvable_input.h"
#include "output/build_results.h"

namespace tormel {

Workspace::Workspace(AppFolders appFolders, const UiServices& services)
    : folders(std::move(appFolders)),
      settings(folders.settingsFile),
      language(folders.languageFile),
      ui(&services) {}

const UiServices& Workspace::Ui() const {
    static const UiServices none;
    return ui ? *ui : none;
}

ResultContext MakeResultContext(Workspace& ws) {
    LoadOutputOptions(ws.outputOptions, ws.settings);
    return ResultContext{ws.language, ws.outputOptions, ws.decimalSeparator};
}

CalculationOutcome CalculateInput(Workspace& ws, bool showProgress) {
    // values no solve can start from are refused here, naming the field
    if (std::string refusal = UnsolvableInputText(ws.input, ws.chem.db(), ws.language); !refusal.empty()) {
        CalculationOutcome refused;
        refused.solve.message = std::move(refusal);
        return refused;
    }
    CalcContext calc(ws.chem, ws.input, ws.solver, &ws.Ui());
    const Language& language = ws.language;
    calc.text = [&language](std::string_view section, std::string_view key) {
        return LanguageText(language, section, key);
    };
    calc.buildResults = [&ws](CalcContext& finished) {
        ResultContext context = MakeResultContext(ws);
        BuildResults(finished, ws.results, context);
    };
    CalculationOutcome outcome;
    if (!ws.input.forceNeutral) {
        outcome = RunCalculation(calc, showProgress);
    } else {
        // a neutral solution: the chosen ion's total is adjusted over several solves
        NeutraliseOutcome neutral = Neutralise(calc);
        outcome = CalculationOutcome{neutral.assembled, std::move(neutral.refusal), neutral.solve};
        if (!neutral.neutral && !neutral.cancelled) {
            outcome.solve.converged = false;
            if (!neutral.message.empty()) outcome.solve.message = neutral.message;
        }
    }
    if (!outcome.refusal.empty()) ShowPlainMessage(ws.Ui(), outcome.refusal, "", IconWarning);
    return outcome;
}

Workspace CloneForWorker(const Workspace& ws, const UiServices& services) {
    Workspace worker;
    worker.folders = ws.folders;
    worker.settings = ws.settings;
    worker.language = ws.language;
    worker.chem = ChemicalSystem(ws.chem.database);  // the same database, nothing assembled
    worker.outputOptions = ws.outputOptions;
    worker.decimalSeparator = ws.decimalSeparator;
    worker.ui = &services;
    worker.uiReady = ws.uiReady;
    return worker;
}

}  // namespace tormel
