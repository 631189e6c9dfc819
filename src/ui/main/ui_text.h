#pragma once
// Language-file texts as Qt strings.
#include <QString>
#include <string>
#include <string_view>

#include "core/language.h"

namespace tormel {

inline QString Q(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

inline std::string S(const QString& text) { return text.toStdString(); }

inline QString LangQ(const Language& language, std::string_view section, std::string_view key) {
    return Q(LanguageText(language, section, key));
}

inline QString LangQOr(const Language& language, std::string_view section, std::string_view key,
                       std::string_view def) {
    return Q(LanguageTextOr(language, section, key, def));
}

}  // namespace tormel
