#include "ui/output/reaction_definition_window.h"

#include "ui/main/not_available.h"

namespace tormel {

void ShowReactionDefinition(Workspace& ws, const ReactionDefinition& /*definition*/, QWidget* /*owner*/) {
    ShowNotAvailableYet(ws);
}

}  // namespace tormel
