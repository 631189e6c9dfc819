#pragma once
// Whether input (.i64) and output (.o64) files open in this program from the
// file manager, as the freedesktop tools answer, and the options page's text
// about it.
#include <string>

#include "core/language.h"

namespace tormel {

struct AssociationState {
    bool input = false;   // .i64
    bool output = false;  // .o64
};

// Asks `xdg-mime query default` for both types: associated when the default
// application is the program's desktop entry. Both false when the tool is
// missing.
AssociationState QueryFileAssociations();

// Options/"Txt3-1" to "Txt3-6" put together for the state.
std::string AssociationText(const Language& language, AssociationState state);

}  // namespace tormel
