// The example waters shipped in data/examples: the example batch names every
// one of them, and the batch calculates them all into readable output files.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/text_file.h"
#include "core/utf16.h"
#include "output/output_file.h"
#include "output/result_test_support.h"
#include "shell/command_line.h"
#include "shell/command_line_handler.h"

namespace tormel::test {
namespace {

namespace fs = std::filesystem;

const fs::path kExamples = fs::path(TORMEL_SOURCE_DIR) / "data" / "examples";

std::vector<std::string> ExampleInputs() {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(kExamples))
        if (entry.path().extension() == ".i64") names.push_back(entry.path().filename().string());
    return names;
}

TEST(BundledExamples, TheBatchCalculatesEveryExample) {
    const std::vector<std::string> inputs = ExampleInputs();
    ASSERT_GE(inputs.size(), 3u);
    const std::string batch = ReadUtf16Text((kExamples / "example_batch.txt").string());
    for (const std::string& name : inputs) EXPECT_NE(batch.find(name), std::string::npos) << name << " not in the batch";

    PreparedWorkspace p;
    for (const fs::directory_entry& entry : fs::directory_iterator(kExamples))
        fs::copy_file(entry.path(), fs::path(p.ws.folders.inputFolder) / entry.path().filename());
    const CommandLineOutcome outcome =
        HandleCommandLine(p.ws, NormaliseCommandLine({"/batch:example_batch.txt"}), CommandLineServices{});
    EXPECT_EQ(outcome.exitCode, 0);

    int outputs = 0;
    bool organicBinding = false;
    for (const fs::directory_entry& entry : fs::directory_iterator(p.ws.folders.outputFolder)) {
        if (entry.path().extension() != ".o64") continue;
        ++outputs;
        ResultStore store;
        ASSERT_FALSE(ReadOutputFile(entry.path().string(), store, 0).has_value()) << entry.path();
        for (const SpeciesResult& s : ViewSet(store, 0).species)
            if (IsOrganicKind(s.kind) && s.concentration > 0) organicBinding = true;
    }
    EXPECT_EQ(outputs, static_cast<int>(inputs.size()));
    EXPECT_TRUE(organicBinding) << "one example binds metals to dissolved organic matter";
}

}  // namespace
}  // namespace tormel::test
