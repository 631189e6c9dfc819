#pragma once
// The language files delivered with the program ("Languages/*.lang" below the
// program folder, "0default.lang" being English) and the working copy
// "LANG.INI" that all lookups read.
#include <functional>
#include <string>
#include <vector>

#include "core/ui_services.h"
#include "shell/app_folders.h"

namespace tormel {

struct LanguageFile {
    std::string path;
    std::string displayName;  // line 1 of the file
};

// programFolder + "Languages/"
std::string LanguagesFolder(const AppFolders& folders);
// LanguagesFolder + "0default.lang"
std::string DefaultLanguagePath(const AppFolders& folders);

// The first line of a language file (at most 259 characters, line feeds
// stripped at both ends); empty when the file cannot be read.
std::string ReadLanguageDisplayName(const std::string& path);

// The files of `languagesFolder` whose extension is ".lang" in any letter
// case, sorted by file name so that every listing gives the same order.
std::vector<LanguageFile> ListLanguageFiles(const std::string& languagesFolder);

// Copies a language file to "LANG.INI" byte for byte, replacing it, and gives
// the copy the source's last-write time. False when the copy failed.
bool InstallLanguageFile(const std::string& source, const AppFolders& folders);

// Asks the user to choose among the display names (the language-selection
// window); answers the chosen position or -1 for Cancel.
using LanguageChooser = std::function<int(const std::vector<std::string>& displayNames)>;

enum class LanguageSetup {
    Unchanged,        // "LANG.INI" is not older than "0default.lang"
    Installed,        // a language file was copied to "LANG.INI"
    NoLanguageFiles,  // nothing to install; the caller ends the process (exit code 0)
    Refreshed,        // "LANG.INI" lacked keys of its language file and was copied again
};

// Start-up: keeps "LANG.INI" when it is not older than "0default.lang" (also
// when "0default.lang" is missing) and holds every key of its language file
// (RefreshIncompleteLanguageFile); otherwise installs "0default.lang" when it
// is the only language file, or lets the user choose with `choose` (Cancel,
// or no chooser as in the command line, installs "0default.lang") and, when
// there is a chooser, shows Options/"MsgLangCopied" in the new language.
// Without any language file it shows the fixed message "No language files
// found. Probably re-install is needed." and the languages folder (error
// icon) and answers NoLanguageFiles. A failed copy is not
// reported: lookups then answer their defaults.
LanguageSetup EnsureLanguageFile(const AppFolders& folders, const UiServices& ui, const LanguageChooser& choose);

// A "LANG.INI" that lacks a section or key of the language file it was
// copied from (found by its display name; "0default.lang" when none matches,
// as for a damaged first line) is copied again from that file, and
// Options/"MsgLangRefreshed" with both paths is shown with the warning icon;
// answers Refreshed then, else Unchanged. EnsureLanguageFile runs it on a
// "LANG.INI" that is not older than "0default.lang".
LanguageSetup RefreshIncompleteLanguageFile(const AppFolders& folders, const UiServices& ui);

// Installs the first language file whose display name equals `displayName`
// exactly and shows Options/"MsgLangCopied" in the new language. False when no
// file matches (nothing happens then) or the copy failed.
bool ChangeLanguage(const AppFolders& folders, const UiServices& ui, const std::string& displayName);

}  // namespace tormel
