// Every reference water, calculated, written as an output file and read back
// into a second set, gives the same records as far as the file keeps them.
#include <gtest/gtest.h>

#include <filesystem>

#include "calc/reference_case.h"
#include "output/output_file.h"
#include "result_test_support.h"

namespace tormel::test {
namespace {

void RoundTrip(const std::string& file, int32_t model) {
    const std::string id = std::filesystem::path(file).stem().string();
    SCOPED_TRACE(id + (model == 1 ? " (Davies)" : " (MSA)"));
    CalculatedWorkspace c(file, model);
    ASSERT_TRUE(c.ok);

    const std::string path = c.folder.File(id + ".o64");
    ASSERT_TRUE(WriteOutputFile(path, c.ws.results, 0));
    ResultStore& store = c.ws.results;
    const auto error = ReadOutputFile(path, store, 1);
    ASSERT_FALSE(error.has_value()) << error->key;
    ASSERT_EQ(store.SetCount(), 2);
    ExpectSetsEqual(store, 0, store, 1);
}

TEST(OutputRoundTrip, EveryReferenceCaseReadsBackAsWritten) {
    const std::vector<std::string> files = ReferenceCaseFiles();
    ASSERT_FALSE(files.empty());
    for (const std::string& file : files) RoundTrip(file, 1);
}

TEST(OutputRoundTrip, MsaResultsKeepSaltsIonsAndIonSizes) {
    for (const char* id : {"seawater_major_ions", "carbonate_hard_ph8_3", "co2_open_ph8"})
        RoundTrip(ReferenceCaseFile(id), 2);
}

}  // namespace
}  // namespace tormel::test
