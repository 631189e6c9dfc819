// Places in the assembly that belong to the organic model and to
// precipitation. They run at their step of the assembly and add nothing until
// those models are built; the solver then sees a system without organic
// components and without solids.
#include "calc/assembly_work.h"

namespace tormel {

void PrepareOrganicModel(AssemblyWork& /*work*/) {}

void AddOrganicSpecies(AssemblyWork& /*work*/) {}

void AddSolidSpecies(AssemblyWork& work) {
    // no solid species yet: an empty solid range
    work.chem.solidSpeciesRange = {};
}

bool CheckSolidTotals(AssemblyWork& /*work*/) { return true; }

}  // namespace tormel
