#pragma once
// The check for updates, at start-up and from the options dialog: fetches
// the list of available files from the web site and, when something is
// newer or missing, shows the updates window.
class QWidget;

namespace tormel {

struct Workspace;

// Runs the check and any updates window to its end. Answers 1 when a setup
// program was started (this program saves it and tells where instead, so
// here always 0).
int RunUpdateCheck(Workspace& ws, QWidget* owner);

}  // namespace tormel
