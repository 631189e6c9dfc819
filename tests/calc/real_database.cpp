#include "real_database.h"

#include <filesystem>
#include <memory>
#include <unistd.h>

#include "core/database_files.h"

namespace tormel::test {

namespace {

size_t loaderMessages = 0;

std::unique_ptr<ChemicalSystem> Load() {
    namespace fs = std::filesystem;
    const fs::path raw = fs::path(TORMEL_SOURCE_DIR) / "data" / "RawData";
    std::error_code ec;
    const fs::path folder = fs::temp_directory_path(ec) / ("tormel_calc_db_" + std::to_string(::getpid()));
    fs::create_directories(folder, ec);
    for (const char* base : kDatabaseBaseNames) {
        fs::copy_file(raw / (std::string(base) + "RW64"), folder / (std::string(base) + "D64"),
                      fs::copy_options::overwrite_existing, ec);
        if (ec) return nullptr;
    }
    Database db;
    UiServices ui;  // the loader's warnings are only counted
    ui.showMessageBox = [](const MessageBoxRequest&) {
        ++loaderMessages;
        return MessageBoxAnswer{};
    };
    const auto error = LoadDatabase(db, folder.string() + "/", ui);
    fs::remove_all(folder, ec);
    if (error) return nullptr;
    return std::make_unique<ChemicalSystem>(std::make_shared<const Database>(std::move(db)));
}

}  // namespace

const ChemicalSystem* RealDatabase() {
    static const std::unique_ptr<ChemicalSystem> chem = Load();
    return chem.get();
}

size_t RealDatabaseMessages() {
    RealDatabase();
    return loaderMessages;
}

}  // namespace tormel::test
