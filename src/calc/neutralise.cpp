#include "calc/neutralise.h"

#include <cmath>

#include "calc/assemble_system.h"
#include "calc/compare.h"
#include "calc/run_calculation.h"
#include "calc/solver.h"
#include "calc/solver_options.h"
#include "core/c_number.h"

namespace tormel {

namespace {

// The neutralisation window: open from the start to the end of the
// calculation, whichever way it ends.
class NeutraliseWindow {
public:
    explicit NeutraliseWindow(const CalcContext& ctx) : ui_(ctx.ui) {}
    ~NeutraliseWindow() {
        if (ui_ && ui_->closeNeutralise) ui_->closeNeutralise();
    }
    NeutraliseWindow(const NeutraliseWindow&) = delete;
    NeutraliseWindow& operator=(const NeutraliseWindow&) = delete;

    void Show() const {
        if (ui_ && ui_->showNeutralise) ui_->showNeutralise(text);
    }
    NeutraliseWindowText text;

private:
    const UiServices* ui_;
};

// One of the two ions that may be adjusted.
struct Ion {
    int32_t component = 0;
    double initialTotal = 0;
    std::string name;
};

bool HasSystemComponent(const ChemicalSystem& chem, int32_t component) {
    return chem.placement[component].systemIndex > 0;
}

SystemComponent& SystemComponentOf(ChemicalSystem& chem, int32_t component) {
    return chem.systemComponents[chem.placement[component].systemIndex];
}

Ion Prepare(const ChemicalSystem& chem, int32_t component) {
    Ion ion;
    ion.component = component;
    if (HasSystemComponent(chem, component)) {
        const SystemComponent& sc = chem.systemComponents[chem.placement[component].systemIndex];
        ion.initialTotal = sc.givenValue;
        ion.name = sc.name;
    } else {
        ion.name = chem.db().components[component].name;
    }
    return ion;
}

// One solve with the totals as they now stand. The net charge of the given
// totals is taken afresh: the passes change the totals, and the proton
// balance's charge test must see the totals it solves.
SolveResult SolveOnce(CalcContext& ctx) {
    ctx.state.inputChargeExcess = InputChargeExcess(ctx.chem, ctx.input);
    SolveResult result = SolveEquilibrium(ctx, true);
    SpeciesChargeSums(ctx.chem, TablesFor(ctx.chem, ctx.state.tables).charged, ctx.state.cationCharge,
                      ctx.state.anionCharge);
    return result;
}

// With a proton balance the given totals alone tell the charge: the ion
// that evens them out gets the difference before the first solve. An ion
// already in the system keeps its assembled total for that solve; one that
// is not joins it with the estimate as its input value.
AssemblyResult FirstEstimate(CalcContext& ctx, const Ion& cation, const Ion& anion, double criterion) {
    ChemicalSystem& chem = ctx.chem;
    double positive = 0, negative = 0;
    for (const SystemComponent& sc : chem.systemComponents) {
        if (sc.type == ComponentType::Cation) positive += sc.givenValue * sc.charge;
        if (sc.type == ComponentType::Ligand) negative -= sc.givenValue * sc.charge;
    }
    if (RelativelyEqual(positive, negative, criterion)) return {true, {}};
    const Ion& ion = positive > negative ? anion : cation;
    double& inputValue = ctx.input.components[ion.component].inputValue;
    const double d = (positive - negative) / -chem.db().components[ion.component].charge;
    if (HasSystemComponent(chem, ion.component)) {
        inputValue += d;
        return {true, {}};
    }
    inputValue = d;
    return AssembleSystem(ctx);
}

std::string PassLine(const CalcContext& ctx, int32_t pass) {
    return ctx.Text("NeutralCalc", "NeutrLbl1") + " " + std::to_string(pass);
}

}  // namespace

NeutraliseOutcome Neutralise(CalcContext& ctx) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    const double criterion = ctx.input.convergenceCriterion;
    NeutraliseOutcome out;
    NeutraliseWindow window(ctx);
    window.text = {ctx.Text("NeutralCalc", "NeutrCaption1") + " (?)", PassLine(ctx, 1), ""};
    window.Show();

    const int32_t count = chem.db().ComponentCount();
    for (int32_t k : {ctx.input.neutraliseCation, ctx.input.neutraliseAnion})
        if (k <= 0 || k >= count || chem.db().components[k].charge == 0) {
            out.message = "no charged cation and anion chosen to neutralise with";
            return out;
        }
    AssemblyResult assembly = AssembleSystem(ctx);
    if (!assembly) {
        out.refusal = std::move(assembly.refusal);
        return out;
    }
    out.assembled = true;
    st.inputChargeExcess = InputChargeExcess(chem, ctx.input);
    Ion cation = Prepare(chem, ctx.input.neutraliseCation);
    Ion anion = Prepare(chem, ctx.input.neutraliseAnion);
    window.text.caption = ctx.Text("NeutralCalc", "NeutrCaption1") + " " + cation.name + " " +
                          ctx.Text("NeutralCalc", "NeutrCaption2") + " " + anion.name;
    window.Show();

    if (chem.systemComponents[0].balanceKind == InputType::TotalConc) {
        assembly = FirstEstimate(ctx, cation, anion, criterion);
        if (!assembly) {
            out.assembled = false;
            out.refusal = std::move(assembly.refusal);
            return out;
        }
    }
    out.solve = SolveOnce(ctx);
    int32_t pass = 1;
    while (!st.abortRequested && out.solve.converged &&
           !RelativelyEqual(st.cationCharge, st.anionCharge, criterion)) {
        if (out.passes >= kSolverOptions.maxNeutralisePasses) {
            out.message = "not neutral after " + std::to_string(out.passes) + " passes, residual charge " +
                          FormatC("%.3E", st.cationCharge - st.anionCharge) + " eq/L";
            return out;
        }
        const Ion& ion = st.cationCharge > st.anionCharge ? anion : cation;
        const double d = (st.cationCharge - st.anionCharge) / -chem.db().components[ion.component].charge;
        if (HasSystemComponent(chem, ion.component)) {
            SystemComponent& sc = SystemComponentOf(chem, ion.component);
            const double damping = pass > 1 ? 1 / std::sqrt(pass - 1.0) : 1.0;
            if (sc.givenValue + d < 0)
                sc.givenValue /= 10;
            else
                sc.givenValue += d * damping;
        } else {
            ctx.input.components[ion.component].inputValue = d / std::sqrt(static_cast<double>(pass));
            assembly = AssembleSystem(ctx);
            if (!assembly) {
                out.assembled = false;
                out.refusal = std::move(assembly.refusal);
                return out;
            }
        }
        ++pass;
        ++out.passes;
        const SystemComponent& adjusted = SystemComponentOf(chem, ion.component);
        window.text.line1 = PassLine(ctx, pass);
        window.text.line2 = ctx.Text("NeutralCalc", "NeutrLbl2") + " " +
                            FormatC("%9.4E M", adjusted.givenValue - ion.initialTotal) + " " + adjusted.name;
        window.Show();
        out.solve = SolveOnce(ctx);
    }
    out.cancelled = st.abortRequested;
    if (out.cancelled) return out;
    if (!out.solve.converged) {
        out.message = out.solve.message;
        return out;
    }
    out.neutral = true;
    PostProcess(ctx);
    st.resultExists = true;
    if (ctx.buildResults) ctx.buildResults(ctx);
    return out;
}

}  // namespace tormel
