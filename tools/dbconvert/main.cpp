// tormel-dbconvert <minteq.v4.dat> <output folder>
// Converts the MINTEQA2 v4 data into COMPON.RW64, EQUILIB.RW64, LIT_REF.RW64,
// MODEL_5.RW64, MODEL_6.RW64, MODEL_7.RW64 and conversion-report.md.
#include <cstdio>
#include <filesystem>
#include <string>

#include "conversion.h"
#include "core/database_files.h"
#include "core/text_file.h"
#include "minteq_file.h"
#include "report.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: tormel-dbconvert <minteq.v4.dat> <output folder>\n");
        return 2;
    }
    const std::string source = argv[1];
    std::string folder = argv[2];
    auto bytes = tormel::ReadBinaryFile(source);
    if (!bytes) {
        std::fprintf(stderr, "tormel-dbconvert: cannot read %s\n", source.c_str());
        return 1;
    }
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    if (!folder.empty() && folder.back() != '/') folder += '/';

    dbconvert::MinteqData data = dbconvert::ParseMinteqText(*bytes);
    dbconvert::ConversionResult result = dbconvert::ConvertMinteq(data);

    tormel::FileError error;
    if (!tormel::WriteDatabaseFiles(result.chem, folder, "RW64", result.headers, result.descriptions, &error)) {
        std::fprintf(stderr, "tormel-dbconvert: %s: %s\n", error.path.c_str(), error.message.c_str());
        return 1;
    }
    std::string reportText =
        dbconvert::FormatConversionReport(result, std::filesystem::path(source).filename().string());
    if (!tormel::WriteFileAtomically(folder + "conversion-report.md", reportText, &error)) {
        std::fprintf(stderr, "tormel-dbconvert: %s: %s\n", error.path.c_str(), error.message.c_str());
        return 1;
    }
    std::printf("%zu components, %zu equilibria, %zu literature references; %zu items left out (see %s)\n",
                result.chem.components.size(), result.chem.equilibria.size(), result.chem.literature.size(),
                result.report.skipped.size(), (folder + "conversion-report.md").c_str());
    return 0;
}
