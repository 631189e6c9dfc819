#pragma once
// The language files delivered with the program, read in place.
#include <string>

#include "core/language.h"

namespace tormel::test {

inline std::string DeliveredLanguagePath(const std::string& fileName) {
    return std::string(TORMEL_SOURCE_DIR) + "/data/Languages/" + fileName;
}

inline Language English() { return Language(DeliveredLanguagePath("0default.lang")); }
inline Language German() { return Language(DeliveredLanguagePath("deutsch.lang")); }

}  // namespace tormel::test
