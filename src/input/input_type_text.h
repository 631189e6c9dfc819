#pragma once
// The texts by which input files name the input type of a component line.
#include <cstdint>
#include <optional>
#include <string_view>

#include "core/chemical_types.h"

namespace tormel {

// "(not specified; for OH only)", "(free concentration)", "(free activity)",
// "(total concentration)" or "(partial pressure)" for types 0..4; empty for
// any other value.
std::string_view InputTypeFileText(InputType inputType);

// The input type named by `text` (compared without regard to letter case);
// nullopt when it names none.
std::optional<InputType> InputTypeFromFileText(std::string_view text);

}  // namespace tormel
