#pragma once
// Lookups in the working copy of the chosen language file ("LANG.INI"): every
// text the user sees is found by section and key, both compared without
// regard to letter case. Line 1 of a language file is its display name and
// stands before the first section, so lookups never see it.
#include <memory>
#include <string>
#include <string_view>

#include "core/ini_file.h"

namespace tormel {

// The longest text a lookup returns.
constexpr size_t kLanguageTextLimit = 8191;

// The language file that lookups read. The file is read once and kept in
// memory; installing a language copy (InstallLanguageFile) has it read again,
// so a language chosen while the program runs is seen by the next lookup.
// Copies share what was read, and lookups may come from several threads.
class Language {
public:
    // No file: every lookup answers its default.
    Language() : ini_("") {}
    explicit Language(std::string iniPath) : ini_(std::move(iniPath)) {}

    const std::string& Path() const { return ini_.Path(); }
    const IniFile& File() const { return ini_; }

private:
    IniFile ini_;
};

// The text of the key, or the empty text when the key, its section or the
// file is missing.
std::string LanguageText(const Language& language, std::string_view section, std::string_view key);

// The text of the key, or `def` when the key, its section or the file is
// missing.
std::string LanguageTextOr(const Language& language, std::string_view section, std::string_view key,
                           std::string_view def);

// The texts of a fixed list of keys, each as LanguageText answers it, looked
// up together and kept until the file is read again (see IniFile::ReadTable;
// `list` cuts its texts to kLanguageTextLimit).
std::shared_ptr<const IniFile::Table> LanguageTexts(const Language& language, const IniFile::KeyList& list);

// The length of the text in UTF-16 code units (the unit the file counts in).
int LanguageTextLength(const Language& language, std::string_view section, std::string_view key);

}  // namespace tormel
