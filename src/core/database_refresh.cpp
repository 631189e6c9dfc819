#include "core/database_files.h"

namespace tormel {

bool RefreshDatabase(const std::string& dataFolder, const std::string& programFolder) {
    for (int position = 0; position < 6; ++position) {
        std::string working = WorkingCopyPath(dataFolder, position);
        if (!FileExists(working)) return true;
        auto workingHeader = ReadDatabaseHeader(working);
        auto shippedHeader = ReadDatabaseHeader(ShippedCopyPath(programFolder, position));
        if (!shippedHeader) return true;
        float workingVersion = workingHeader ? workingHeader->version : 0.0f;
        if (shippedHeader->version > workingVersion) return true;
    }
    return false;
}

bool CopyRawData(const std::string& dataFolder, const std::string& programFolder) {
    if (FileExists(dataFolder + "UserData.INI")) return true;
    for (int position = 0; position < 6; ++position) {
        auto bytes = ReadBinaryFile(ShippedCopyPath(programFolder, position));
        if (!bytes) return false;
        if (!WriteFileAtomically(WorkingCopyPath(dataFolder, position), *bytes)) return false;
    }
    return true;
}

}  // namespace tormel
