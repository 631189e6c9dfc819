#include "core/database.h"

namespace tormel {

int32_t OrganicParameterCount(int32_t modelCode) {
    switch (modelCode) {
        case Model5: return kModel5ParameterCount;
        case Model6: return kModel6ParameterCount;
        case Model7: return kModel7ParameterCount;
        default: return 0;
    }
}

int32_t Database::FindComponent(std::string_view name) const {
    for (size_t i = 0; i < components.size(); ++i)
        if (components[i].name == name) return static_cast<int32_t>(i);
    return -1;
}

int32_t Database::FindEquilibrium(std::string_view name) const {
    for (size_t i = 0; i < equilibria.size(); ++i)
        if (equilibria[i].name == name) return static_cast<int32_t>(i);
    return -1;
}

}  // namespace tormel
