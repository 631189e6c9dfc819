// tormel-cli: the program without windows, for scripts and cluster nodes.
//
//   tormel-cli /run:water.i64 [result.o64]    calculate one input file (or .csv, .xml: an export)
//   tormel-cli /batch:jobs.txt [--jobs N]     calculate every job of a batch file
//   tormel-cli result.o64                     show the result tables of an output file
//   tormel-cli water.i64                      read and check an input file
//   tormel-cli --database | --list WHAT       what the database holds
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "core/c_number.h"
#include "core/chemical_system.h"
#include "core/language.h"
#include "output/printed_tables.h"
#include "shell/app_folders.h"
#include "shell/database_startup.h"
#include "shell/database_summary.h"
#include "shell/headless_ui.h"
#include "shell/language_files.h"
#include "shell/startup.h"

namespace {

using namespace tormel;

const char* kUsage =
    "Usage: tormel-cli /run:INPUT.i64 [OUTPUT.o64]\n"
    "       tormel-cli /batch:BATCHFILE [--jobs N]\n"
    "       tormel-cli FILE.o64 [--wide] | FILE.i64\n"
    "       tormel-cli --database | --list components|equilibria|literature\n"
    "  /run:      calculate one input file; the results go to OUTPUT (default: the\n"
    "             input's name with .o64 in the output folder); an OUTPUT ending in\n"
    "             .csv or .xml gets the tab-separated text or the XML spreadsheet\n"
    "  /batch:    calculate every job of a batch file (one \"input output\" per line);\n"
    "             problems are written to batch_log.txt\n"
    "  --jobs N   calculate N jobs of a batch at the same time (at most one per\n"
    "             hardware thread)\n"
    "  FILE.o64   print the result tables of an output file, within 120 columns:\n"
    "             the literature as numbered keys, the references below each\n"
    "             component; --wide prints each reference on its species' line;\n"
    "             a damaged or incomplete file is reported, with exit code 1\n"
    "  FILE.i64   read an input file and report its consistency checks\n"
    "  --run, --batch, --print (as --run FILE or --run=FILE) are the same as the switches.\n"
    "  Names without a folder are taken from the input and output folders.\n";

// --database and --list: the database summary and listings.
int DatabaseCommand(const std::string& command, const std::string& what, const char* argv0) {
    AppFolders folders = ResolveFolders(argv0);
    UiServices ui = MakeHeadlessUi();
    if (!ReachWorkingFolders(folders, ui, true) || !ReachLanguageFile(folders, ui, nullptr, true)) return 1;
    Language language(folders.languageFile);

    ChemicalSystem chem;
    DatabaseStartupResult startup = PrepareDatabase(chem, folders, language, ui);
    if (startup.outcome != DatabaseStartup::Loaded) return 1;

    std::string text;
    if (command == "--database") {
        text = DatabaseSummary(chem.db(), folders.dataFolder);
        if (startup.refreshed) text = "Working copies refreshed from " + folders.programFolder + "RawData/\n" + text;
    } else if (what == "components") {
        text = ComponentListing(chem.db());
    } else if (what == "equilibria") {
        text = EquilibriumListing(chem.db());
    } else {
        text = LiteratureListing(chem.db());
    }
    std::fputs(text.c_str(), stdout);
    return 0;
}

// Removes "--jobs N" / "--jobs=N" from the arguments; 0 when absent, -1 when malformed.
int TakeJobCount(std::vector<std::string>& arguments) {
    for (size_t i = 0; i < arguments.size(); ++i) {
        std::string value;
        size_t taken = 1;
        if (arguments[i] == "--jobs" && i + 1 < arguments.size()) {
            value = arguments[i + 1];
            taken = 2;
        } else if (arguments[i].rfind("--jobs=", 0) == 0) {
            value = arguments[i].substr(7);
        } else if (arguments[i] == "--jobs") {
            return -1;
        } else {
            continue;
        }
        arguments.erase(arguments.begin() + static_cast<std::ptrdiff_t>(i),
                        arguments.begin() + static_cast<std::ptrdiff_t>(i + taken));
        const int jobs = StrToIntPlatform(value);
        return jobs >= 1 ? jobs : -1;
    }
    return 0;
}

// Removes "--wide" from the arguments; true when it was there.
bool TakeWide(std::vector<std::string>& arguments) {
    const auto it = std::find(arguments.begin(), arguments.end(), "--wide");
    if (it == arguments.end()) return false;
    arguments.erase(it);
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.empty()) return DatabaseCommand("--database", "", argv[0]);
    const std::string& first = arguments.front();
    if (first == "--help" || first == "-h") {
        std::fputs(kUsage, stdout);
        return 0;
    }
    if (first == "--database" || first == "--list") {
        const std::string what = arguments.size() > 1 ? arguments[1] : "";
        const bool known = first == "--database" || what == "components" || what == "equilibria" || what == "literature";
        if (!known || arguments.size() > (first == "--database" ? 1u : 2u)) {
            std::fprintf(stderr, "tormel-cli: unknown arguments\n%s", kUsage);
            return 1;
        }
        return DatabaseCommand(first, what, argv[0]);
    }

    const bool wide = TakeWide(arguments);
    const int jobs = TakeJobCount(arguments);
    if (jobs < 0) {
        std::fprintf(stderr, "tormel-cli: --jobs needs a number of 1 or more\n%s", kUsage);
        return 1;
    }
    const CommandLine line = NormaliseCommandLine(arguments);
    const CommandLineAction action = ClassifyCommandLine(line);
    if (action == CommandLineAction::OpenFile) {
        const std::string path = CommandLineArgument(line, 1);
        if (!HasExtension(path, ".i64") && !HasExtension(path, ".o64")) {
            std::fprintf(stderr, "tormel-cli: %s is neither an input (.i64) nor an output file (.o64)\n%s",
                         path.c_str(), kUsage);
            return 1;
        }
    }

    const UiServices ui = MakeHeadlessUi();
    Workspace ws(ResolveFolders(argv[0]), ui);
    StartupHooks hooks;
    hooks.offerGettingStarted = false;
    hooks.headless = true;
    CommandLineServices services;
    bool shown = false;
    services.showOutput = [&shown, wide](Workspace& shownWs) {
        shown = true;
        const std::string tables = PrintedResultTables(shownWs.results, 0, MakeResultContext(shownWs), wide);
        std::fputs(tables.c_str(), stdout);
    };
    services.batch.jobs = std::max(jobs, 1);
    if (isatty(STDERR_FILENO)) {
        services.batch.progress = [](const BatchProgress& p) {
            std::fprintf(stderr, "[%d/%d] %s%s\n", p.finished, p.total, p.line.c_str(), p.failed ? "  (see the log)" : "");
        };
    }
    const StartupOutcome outcome = InitializeApplication(ws, line, hooks, services);
    if (outcome.endProcess) return outcome.exitCode;
    SaveSettingsAndShutDown(ws, hooks);
    // an output file that could not be read whole has been reported
    if (action == CommandLineAction::OpenFile && HasExtension(CommandLineArgument(line, 1), ".o64") && !shown) return 1;
    return outcome.exitCode;
}
