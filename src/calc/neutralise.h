#pragma once
// The neutral-solution calculation: the total of one chosen cation or anion
// is adjusted until the solved solution carries no net charge.
#include <cstdint>
#include <string>

#include "calc/calc_context.h"

namespace tormel {

struct NeutraliseOutcome {
    bool assembled = false;
    std::string refusal;     // the assembly's warning for the user when it refused
    bool neutral = false;    // cation and anion charge agree within the criterion; results built
    bool cancelled = false;  // the user cancelled a solve: no results
    int32_t passes = 0;      // adjustment passes made (0: neutral at the first solve)
    SolveResult solve;       // the last solve
    std::string message;     // why it ended without results (other than a cancel); empty otherwise
};

// Runs the calculation of the input problem with the neutralising cation
// and anion it names, shows its progress in the neutralisation window of
// the UI services, writes the adjusted total into the assembled layer (and,
// for a first estimate or an ion that joins the system, into the ion's input
// value), and builds the results once the solution is neutral.
NeutraliseOutcome Neutralise(CalcContext& ctx);

}  // namespace tormel
