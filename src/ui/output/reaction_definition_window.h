#pragma once
// The small window that draws one reaction with its equilibrium-constant
// expression, log K, note and literature reference.
#include <QWidget>

#include "output/result_records.h"
#include "ui/output/reaction_layout.h"

namespace tormel {

struct Workspace;

// Creates the window when it does not exist (owned by owner) and shows the
// definition; with the window open, replaces the shown definition.
void ShowReactionDefinition(Workspace& ws, const ReactionDefinition& definition, QWidget* owner);

class ReactionDefinitionWindow : public QWidget {
public:
    ReactionDefinitionWindow(Workspace& ws, QWidget* owner);
    void Show(const ReactionDefinition& definition);
    const ReactionDefinition& Shown() const { return definition_; }
    const ReactionLayout& Layout() const { return layout_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Workspace& ws_;
    ReactionDefinition definition_;
    ReactionFonts fonts_;
    ReactionLayout layout_;
};

// The open window, or null.
ReactionDefinitionWindow* OpenReactionDefinitionWindow();

}  // namespace tormel
