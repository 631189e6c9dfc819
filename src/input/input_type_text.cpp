#include "input/input_type_text.h"

#include <array>

#include "core/chemical_types.h"
#include "input/value_text.h"

namespace tormel {

namespace {

constexpr std::array<std::string_view, 5> kTypeTexts = {
    "(not specified; for OH only)", "(free concentration)", "(free activity)", "(total concentration)",
    "(partial pressure)",
};

}  // namespace

std::string_view InputTypeFileText(InputType inputType) {
    const size_t index = static_cast<size_t>(CodeOf(inputType));
    if (index >= kTypeTexts.size()) return {};
    return kTypeTexts[index];
}

std::optional<InputType> InputTypeFromFileText(std::string_view text) {
    for (size_t i = 0; i < kTypeTexts.size(); ++i)
        if (EqualsIgnoreCase(text, kTypeTexts[i])) return static_cast<InputType>(i);
    return std::nullopt;
}

}  // namespace tormel
