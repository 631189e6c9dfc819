#pragma once
// The small window that draws one reaction with its equilibrium-constant
// expression, log K, note and literature reference.
class QWidget;

namespace tormel {

struct Workspace;
struct ReactionDefinition;

// Creates the window when it does not exist (owned by owner) and shows the
// definition; with the window open, replaces the shown definition.
void ShowReactionDefinition(Workspace& ws, const ReactionDefinition& definition, QWidget* owner);

}  // namespace tormel
