#include "shell/database_information.h"

#include <filesystem>

#include "core/database_files.h"

namespace tormel {

DatabaseInformation BuildDatabaseInformation(const AppFolders& folders, const Language& language) {
    auto text = [&](const char* key) { return LanguageText(language, "DB_ABOUT", key); };
    std::error_code error;
    const bool ownData = std::filesystem::exists(folders.dataFolder + "UserData64.ini", error);

    DatabaseInformation info;
    info.text = text("EditLine1") + "\n" + folders.programFolder + "RawData.\n" + text("EditLine2") + "\n" +
                folders.dataFolder + "UserData64.ini.\n" + (ownData ? std::string() : text("EditLine3a")) + " " +
                text("EditLine4a") + "\n" + folders.dataFolder + " " + text("EditLine4b");

    const char* rowKeys[] = {"Contents", "NumTot", "NumOrig", "NumModif", "NumAdded", "Version"};
    for (int row = 0; row < 6; ++row) info.cells[row][0] = text(rowKeys[row]);
    for (int f = 0; f < 6; ++f) {
        const int column = f + 1;
        info.headings[column] = std::string(kDatabaseBaseNames[f]) + "RAW/D64";
        const auto header = ReadDatabaseHeader(WorkingCopyPath(folders.dataFolder, f));
        if (!header) continue;
        info.cells[InfoContents][column] = header->contents;
        info.cells[InfoVersion][column] = header->versionText;
        info.cells[InfoNumTot][column] = header->countText;
        if (!ownData) {
            info.cells[InfoNumOrig][column] = header->countText;
            info.cells[InfoNumModif][column] = "0";
            info.cells[InfoNumAdded][column] = "0";
        }
    }
    return info;
}

}  // namespace tormel
