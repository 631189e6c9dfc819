// Feeds arbitrary bytes to the database readers: they must report an error or
// read something, never crash or hang.
#include <unistd.h>

#include <cstdint>
#include <string>

#include "core/database.h"
#include "core/database_files.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace tormel;
    static const std::string path = "/tmp/tormel-fuzz-db-" + std::to_string(getpid());
    if (!WriteFileAtomically(path, std::string_view(reinterpret_cast<const char*>(data), size))) return 0;
    Database chem;
    if (!ReadComponentFile(chem, path)) ReadEquilibriumFile(chem, path);
    Database other;
    // equilibria against a small valid component table, so pairs get checked
    other.components.resize(5);
    other.components[0].type = ComponentType::Cation;
    ReadEquilibriumFile(other, path);
    ReadLiteratureFile(other, path);
    ReadModelFile(other, Model6, path);
    ReadDatabaseHeader(path);
    return 0;
}
