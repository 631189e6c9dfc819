// The reference waters: each case of tests/data/reference is solved with the
// converted database and every listed concentration, the ionic strength, the
// pH, the saturation indices and the precipitated amounts are compared
// within the case's tolerance.
#include <gtest/gtest.h>

#include <cstdio>

#include "calc/json_reader.h"
#include "calc/real_database.h"
#include "calc/reference_case.h"

namespace tormel::test {

TEST(Reference, EveryCaseAgrees) {
    const ChemicalSystem* database = RealDatabase();
    ASSERT_NE(database, nullptr) << "the raw database files in data/RawData could not be loaded";
    const std::vector<std::string> files = ReferenceCaseFiles();
    ASSERT_FALSE(files.empty()) << "no case files in " << TORMEL_TEST_DATA << "/reference";
    for (const std::string& file : files) {
        std::string error;
        const auto reference = ReadJsonFile(file, &error);
        ASSERT_TRUE(reference.has_value()) << file << ": " << error;
        const ReferenceOutcome out = RunReferenceCase(*reference, *database, 1.000001);
        std::printf("[reference] %-24s %s iterations %4d  max relative deviation %.2e  max pH/SI deviation %.2e  "
                    "outside tolerance %d%s\n",
                    out.id.c_str(), out.solve.converged ? "converged" : "NOT CONVERGED", out.solve.iterations,
                    out.maxRelative, out.maxAbsolute, out.failures, out.hasSolids ? "  (precipitation)" : "");
        EXPECT_TRUE(out.setupError.empty()) << out.id << ": " << out.setupError;
        EXPECT_TRUE(out.solve.converged) << out.id << ": " << out.solve.message;
        EXPECT_FALSE(out.comparisons.empty()) << out.id;
        for (const Comparison& cmp : out.comparisons)
            EXPECT_TRUE(cmp.ok) << out.id << ": " << cmp.quantity << " ours " << cmp.ours << " expected "
                                << cmp.expected << " deviation " << cmp.deviation << " tolerance " << cmp.tolerance;
    }
}

}  // namespace tormel::test
