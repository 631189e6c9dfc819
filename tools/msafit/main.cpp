// tormel-msafit <RawData folder> <measured table> <diameter table>
// Fits MSA ion diameters to measured mean activity coefficients of single
// salts at 25 °C, solving each salt solution with the program's own
// calculation on the raw database (ion pairs included), prints the
// deviations before and after the fit and writes the diameter table the
// database converter compiles in.
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "core/database_files.h"
#include "core/ui_services.h"
#include "diameter_file.h"
#include "diameter_fit.h"
#include "salt_deviation.h"

namespace {

// The loader reads working copies (.D64): copy the raw files to a temporary
// folder first.
bool LoadRawDatabase(const std::string& rawFolder, tormel::Database& chem) {
    namespace fs = std::filesystem;
    std::error_code ec;
    const fs::path folder = fs::temp_directory_path(ec) / ("tormel_msafit_" + std::to_string(::getpid()));
    fs::create_directories(folder, ec);
    for (const char* base : tormel::kDatabaseBaseNames) {
        fs::copy_file(fs::path(rawFolder) / (std::string(base) + "RW64"), folder / (std::string(base) + "D64"),
                      fs::copy_options::overwrite_existing, ec);
        if (ec) return false;
    }
    tormel::UiServices ui;
    ui.showMessageBox = [](const tormel::MessageBoxRequest&) { return tormel::MessageBoxAnswer{}; };
    const auto error = tormel::LoadDatabase(chem, folder.string() + "/", ui);
    fs::remove_all(folder, ec);
    return !error;
}

void PrintTable(const char* title, const tormel::Database& chem, const std::vector<msafit::MeasuredSalt>& salts) {
    std::printf("%s (model/measured - 1, molarity scale, at molality:)\n", title);
    for (const msafit::MeasuredSalt& salt : salts) msafit::PrintDeviations(chem, salt);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: tormel-msafit <RawData folder> <measured table> <diameter table>\n");
        return 2;
    }
    tormel::Database chem;
    if (!LoadRawDatabase(argv[1], chem)) {
        std::fprintf(stderr, "tormel-msafit: cannot load the database in %s\n", argv[1]);
        return 1;
    }
    std::string error;
    const auto salts = msafit::ReadMeasuredSalts(argv[2], error);
    if (!salts) {
        std::fprintf(stderr, "tormel-msafit: %s\n", error.c_str());
        return 1;
    }
    for (const msafit::MeasuredSalt& salt : *salts)
        for (const std::string& ion : {salt.cation, salt.anion})
            if (chem.FindComponent(ion) < 0) {
                std::fprintf(stderr, "tormel-msafit: %s of %s is not in the database\n", ion.c_str(),
                             salt.formula.c_str());
                return 1;
            }
    for (const msafit::MeasuredSalt& salt : *salts) {
        const int32_t pair = chem.FindEquilibrium(msafit::PairName(salt));
        if (salt.fitsPair && (pair < 0 || chem.equilibria[pair].type != tormel::EquilibriumType::Complex)) {
            std::fprintf(stderr, "tormel-msafit: the ion pair %s of %s is not a complex of the database\n",
                         msafit::PairName(salt).c_str(), salt.formula.c_str());
            return 1;
        }
    }
    PrintTable("Before", chem, *salts);
    const std::vector<msafit::FittedIon> fitted = msafit::FitDiameters(chem, *salts);
    PrintTable("After", chem, *salts);
    std::printf("Diameters (Angstrom):\n");
    for (const msafit::FittedIon& ion : fitted)
        std::printf("  %-4s %.3f  worst %.1f %%\n", ion.component.c_str(), ion.diameter * 1e10,
                    100 * ion.worstDeviation);
    if (!msafit::WriteDiameterTable(argv[3], chem, fitted, error)) {
        std::fprintf(stderr, "tormel-msafit: %s\n", error.c_str());
        return 1;
    }
    return 0;
}
