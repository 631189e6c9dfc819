// Runs the converter on the MINTEQA2 v4 data when both are at hand: two runs
// give byte-identical files, and these are the files shipped in
// data/RawData (so the shipped database is never stale). The source data
// are not part of the repository: set TORMEL_MINTEQ_DAT or keep them at
// ../shared/data/minteq.v4.dat beside the source tree; otherwise the test
// is skipped.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "core/text_file.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

std::string MinteqPath() {
    if (const char* env = std::getenv("TORMEL_MINTEQ_DAT")) return env;
    return std::string(TORMEL_SOURCE_DIR) + "/../shared/data/minteq.v4.dat";
}

const char* const kFiles[] = {"COMPON.RW64", "EQUILIB.RW64", "LIT_REF.RW64", "MODEL_5.RW64",
                              "MODEL_6.RW64", "MODEL_7.RW64", "conversion-report.md"};

TEST(DbConvertRun, IsDeterministicAndReproducesTheShippedFiles) {
    const std::string exe = std::string(TORMEL_PROGRAM_DIR) + "tormel-dbconvert";
    const std::string source = MinteqPath();
    if (!std::filesystem::exists(exe) || !std::filesystem::exists(source))
        GTEST_SKIP() << "needs " << exe << " and " << source;
    test::TempFolder first, second;
    for (const auto* dir : {&first, &second}) {
        std::string command = "\"" + exe + "\" \"" + source + "\" \"" + dir->Path() + "\" > /dev/null";
        ASSERT_EQ(std::system(command.c_str()), 0) << command;
    }
    const std::string shipped = std::string(TORMEL_SOURCE_DIR) + "/data/RawData/";
    for (const char* name : kFiles) {
        auto a = ReadBinaryFile(first.File(name));
        auto b = ReadBinaryFile(second.File(name));
        auto c = ReadBinaryFile(shipped + name);
        ASSERT_TRUE(a && b && c) << name;
        EXPECT_EQ(*a, *b) << name << " differs between two runs";
        EXPECT_EQ(*a, *c) << name << " differs from data/RawData; run tormel-dbconvert again";
    }
}

TEST(DbConvertRun, RejectsWrongUsageAndMissingInput) {
    const std::string exe = std::string(TORMEL_PROGRAM_DIR) + "tormel-dbconvert";
    if (!std::filesystem::exists(exe)) GTEST_SKIP() << "needs " << exe;
    test::TempFolder dir;
    std::string noArgs = "\"" + exe + "\" > /dev/null 2>&1";
    EXPECT_NE(std::system(noArgs.c_str()), 0);
    std::string missing = "\"" + exe + "\" \"" + dir.File("absent.dat") + "\" \"" + dir.Path() + "\" > /dev/null 2>&1";
    EXPECT_NE(std::system(missing.c_str()), 0);
    EXPECT_FALSE(FileExists(dir.File("COMPON.RW64")));
}

}  // namespace
}  // namespace tormel
