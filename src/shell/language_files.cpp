#include "shell/language_files.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <set>

#include "core/ini_file.h"
#include "core/text_file.h"
#include "core/utf16.h"
#include "core/ini_file.h"
#include "core/language.h"
#include "core/messages.h"

namespace tormel {

namespace fs = std::filesystem;

namespace {

constexpr size_t kDisplayNameLimit = 259;

bool HasLanguageExtension(const fs::path& path) {
    std::string ext = path.extension().string();
    std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ext == ".lang";
}

void ShowLanguageCopied(const AppFolders& folders, const UiServices& ui) {
    Language language(folders.languageFile);
    ShowMessage(ui, language, LanguageText(language, "Options", "MsgLangCopied"), "", IconInformation);
}

// The language file that "LANG.INI" was copied from: the one with the same
// display name, else "0default.lang".
std::string ChosenLanguagePath(const AppFolders& folders) {
    const std::string installed = ReadLanguageDisplayName(folders.languageFile);
    for (const LanguageFile& f : ListLanguageFiles(LanguagesFolder(folders)))
        if (!installed.empty() && f.displayName == installed) return f.path;
    return DefaultLanguagePath(folders);
}

// True when `copy` has every section and key of `source`.
bool HoldsEveryKey(const IniFile& copy, const IniFile& source) {
    for (const std::string& section : source.Sections()) {
        std::set<std::string> present;
        for (const std::string& key : copy.Keys(section)) present.insert(FoldCase(key));
        for (const std::string& key : source.Keys(section))
            if (!present.count(FoldCase(key))) return false;
    }
    return true;
}

}  // namespace

std::string LanguagesFolder(const AppFolders& folders) { return folders.programFolder + "Languages/"; }

std::string DefaultLanguagePath(const AppFolders& folders) { return LanguagesFolder(folders) + "0default.lang"; }

std::string ReadLanguageDisplayName(const std::string& path) {
    auto text = ReadUtf16File(path);
    if (!text) return {};
    std::u16string_view line(*text);
    line = line.substr(0, std::min(line.find(u'\n'), kDisplayNameLimit));
    while (!line.empty() && (line.back() == u'\n' || line.back() == u'\r')) line.remove_suffix(1);
    return Utf16ToUtf8(line);
}

std::vector<LanguageFile> ListLanguageFiles(const std::string& languagesFolder) {
    std::vector<LanguageFile> files;
    std::error_code ec;
    for (fs::directory_iterator it(languagesFolder, ec), end; !ec && it != end; it.increment(ec)) {
        if (!it->is_regular_file(ec) || !HasLanguageExtension(it->path())) continue;
        files.push_back({it->path().string(), {}});
    }
    std::sort(files.begin(), files.end(), [](const LanguageFile& a, const LanguageFile& b) { return a.path < b.path; });
    for (LanguageFile& f : files) f.displayName = ReadLanguageDisplayName(f.path);
    return files;
}

bool InstallLanguageFile(const std::string& source, const AppFolders& folders) {
    auto bytes = ReadBinaryFile(source);
    if (!bytes || !WriteFileAtomically(folders.languageFile, *bytes)) return false;
    IniFile::ReadAgain(folders.languageFile);
    std::error_code ec;
    fs::file_time_type sourceTime = fs::last_write_time(source, ec);
    if (!ec) fs::last_write_time(folders.languageFile, sourceTime, ec);
    return true;
}

LanguageSetup EnsureLanguageFile(const AppFolders& folders, const UiServices& ui, const LanguageChooser& choose) {
    const std::string defaultPath = DefaultLanguagePath(folders);
    std::error_code ec;
    if (FileExists(folders.languageFile)) {
        if (!FileExists(defaultPath)) return LanguageSetup::Unchanged;
        fs::file_time_type installed = fs::last_write_time(folders.languageFile, ec);
        fs::file_time_type delivered = fs::last_write_time(defaultPath, ec);
        if (!ec && installed >= delivered) return RefreshIncompleteLanguageFile(folders, ui);
    }

    std::vector<LanguageFile> files = ListLanguageFiles(LanguagesFolder(folders));
    if (files.empty()) {
        // no language text exists to say it in; name the folder that was searched
        ShowPlainMessage(ui, "No language files found. Probably re-install is needed.\n" + LanguagesFolder(folders), "",
                         IconError);
        return LanguageSetup::NoLanguageFiles;
    }
    if (files.size() == 1) {
        InstallLanguageFile(defaultPath, folders);
        return LanguageSetup::Installed;
    }

    std::vector<std::string> names;
    for (const LanguageFile& f : files) names.push_back(f.displayName);
    int chosen = choose ? choose(names) : -1;
    bool validChoice = chosen >= 0 && static_cast<size_t>(chosen) < files.size();
    InstallLanguageFile(validChoice ? files[static_cast<size_t>(chosen)].path : defaultPath, folders);
    // only a user who chose is told; a run without windows prints results and problems only
    if (choose) ShowLanguageCopied(folders, ui);
    return LanguageSetup::Installed;
}

LanguageSetup RefreshIncompleteLanguageFile(const AppFolders& folders, const UiServices& ui) {
    const std::string source = ChosenLanguagePath(folders);
    if (!FileExists(source) || HoldsEveryKey(IniFile(folders.languageFile), IniFile(source)))
        return LanguageSetup::Unchanged;
    if (!InstallLanguageFile(source, folders)) return LanguageSetup::Unchanged;
    Language language(folders.languageFile);
    ShowMessage(ui, language,
                LanguageText(language, "Options", "MsgLangRefreshed") + "\n" + folders.languageFile + "\n" + source, "",
                IconWarning);
    return LanguageSetup::Refreshed;
}

bool ChangeLanguage(const AppFolders& folders, const UiServices& ui, const std::string& displayName) {
    for (const LanguageFile& f : ListLanguageFiles(LanguagesFolder(folders))) {
        if (f.displayName != displayName) continue;
        if (!InstallLanguageFile(f.path, folders)) return false;
        ShowLanguageCopied(folders, ui);
        return true;
    }
    return false;
}

}  // namespace tormel
