#include "core/shared_text.h"

#include <ostream>

namespace tormel {

const std::string& SharedText::Empty() {
    static const std::string empty;
    return empty;
}

std::ostream& operator<<(std::ostream& out, const SharedText& text) { return out << text.str(); }

}  // namespace tormel
