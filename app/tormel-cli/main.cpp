// tormel-cli: the program without windows, for scripts and cluster nodes.
#include <cstdio>
#include <cstring>
#include <string>

#include "core/chemical_system.h"
#include "shell/app_folders.h"
#include "shell/database_startup.h"
#include "shell/database_summary.h"
#include "shell/headless_ui.h"
#include "core/language.h"
#include "shell/language_files.h"

namespace {

const char* kUsage =
    "Usage: tormel-cli [--database | --list components|equilibria|literature]\n"
    "  --database   load the database and print what it holds (the default)\n"
    "  --list WHAT  list the components, equilibria or literature references\n";

}  // namespace

int main(int argc, char** argv) {
    using namespace tormel;
    std::string command = argc > 1 ? argv[1] : "--database";
    std::string what = argc > 2 ? argv[2] : "";
    bool known = command == "--database" ||
                 (command == "--list" && (what == "components" || what == "equilibria" || what == "literature"));
    if (command == "--help" || command == "-h") {
        std::fputs(kUsage, stdout);
        return 0;
    }
    if (!known) {
        std::fprintf(stderr, "tormel-cli: unknown arguments\n%s", kUsage);
        return 1;
    }

    AppFolders folders = ResolveFolders(argv[0]);
    CreateWorkingFolders(folders);
    UiServices ui = MakeHeadlessUi();
    if (EnsureLanguageFile(folders, ui, nullptr) == LanguageSetup::NoLanguageFiles) return 0;
    Language language(folders.languageFile);

    ChemicalSystem chem;
    DatabaseStartupResult startup = PrepareDatabase(chem, folders, language, ui);
    if (startup.outcome != DatabaseStartup::Loaded) return 1;

    std::string text;
    if (command == "--database") {
        text = DatabaseSummary(chem, folders.dataFolder);
        if (startup.refreshed) text = "Working copies refreshed from " + folders.programFolder + "RawData/\n" + text;
    } else if (what == "components") {
        text = ComponentListing(chem);
    } else if (what == "equilibria") {
        text = EquilibriumListing(chem);
    } else {
        text = LiteratureListing(chem);
    }
    std::fputs(text.c_str(), stdout);
    return 0;
}
