#include "core/language.h"

#include "core/utf16.h"

namespace tormel {

std::string LanguageText(const Language& language, std::string_view section, std::string_view key) {
    return LanguageTextOr(language, section, key, "");
}

std::string LanguageTextOr(const Language& language, std::string_view section, std::string_view key,
                           std::string_view def) {
    if (language.Path().empty()) return std::string(def);
    return language.File().ReadString(section, key, def, kLanguageTextLimit);
}

std::shared_ptr<const IniFile::Table> LanguageTexts(const Language& language, const IniFile::KeyList& list) {
    return language.File().ReadTable(list);
}

int LanguageTextLength(const Language& language, std::string_view section, std::string_view key) {
    return static_cast<int>(Utf16Length(LanguageText(language, section, key)));
}

}  // namespace tormel
