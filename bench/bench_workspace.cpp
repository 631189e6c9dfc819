#include "bench_workspace.h"

#include <unistd.h>

#include <filesystem>

#include "core/database_files.h"
#include "shell/headless_ui.h"

namespace tormel::bench {

namespace fs = std::filesystem;

BenchWorkspace::BenchWorkspace(const std::string& name) {
    root = (fs::temp_directory_path() / ("tormel-" + name + "-" + std::to_string(getpid()))).string() + "/";
    std::error_code ec;
    for (const char* folder : {"Data", "Input", "Output"}) fs::create_directories(root + folder, ec);
    const std::string source = TORMEL_SOURCE_DIR;
    for (const char* base : kDatabaseBaseNames)
        fs::copy_file(source + "/data/RawData/" + base + "RW64", root + "Data/" + base + "D64",
                      fs::copy_options::overwrite_existing, ec);
    ui = MakeHeadlessUi();
    ws = std::make_unique<Workspace>();
    ws->folders.workingFolder = ws->folders.programFolder = root;
    ws->folders.dataFolder = root + "Data/";
    ws->folders.inputFolder = root + "Input/";
    ws->folders.outputFolder = root + "Output/";
    ws->language = Language(source + "/data/Languages/0default.lang");
    ws->ui = &ui;
    Database db;
    loaded = !LoadDatabase(db, ws->folders.dataFolder, ui);
    ws->chem = ChemicalSystem(std::make_shared<const Database>(std::move(db)));
}

BenchWorkspace::~BenchWorkspace() {
    std::error_code ec;
    fs::remove_all(root, ec);
}

}  // namespace tormel::bench
