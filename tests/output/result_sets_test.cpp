// Several result sets side by side: output files taken into a comparison
// each become a set; removing a set moves the later ones down intact;
// removing the last one, or closing, empties the store.
#include <gtest/gtest.h>

#include "output/build_other_info.h"
#include "output/output_file.h"
#include "output/result_set_list.h"
#include "result_test_support.h"

namespace tormel::test {
namespace {

// Three reference waters calculated and written as output files, and a
// comparison to take the files into.
struct ThreeOutputs : PreparedWorkspace {
    std::vector<std::string> paths;
    std::vector<ResultStore> alone;  // each file read on its own into set 0
    ResultStore store;               // the comparison's sets
    ComparisonList list;

    ThreeOutputs() {
        const char* cases[] = {"carbonate_soft_ph6", "co2_open_ph8", "seawater_major_ions"};
        for (int k = 0; k < 3; ++k) {
            EXPECT_TRUE(CalculateReferenceCase(ws, ReferenceCaseFile(cases[k]), k == 2 ? 2 : 1)) << cases[k];
            ws.results.sets[0].snapshot.input.description = std::string("Water ") + cases[k];
            paths.push_back(folder.File(std::string(cases[k]) + ".o64"));
            EXPECT_TRUE(WriteOutputFile(paths.back(), ws.results, 0));
            ResultStore read;
            EXPECT_FALSE(ReadOutputFile(paths.back(), read, 0).has_value());
            BuildOtherInfo(read, 0, MakeResultContext(ws));
            alone.push_back(std::move(read));
        }
    }
    // Takes the file at `path` into the comparison; the error when it is refused.
    std::optional<OutputFileError> Add(const std::string& path) {
        return AddToComparison(store, list, path, MakeResultContext(ws));
    }
    // Takes the three files into the comparison; false when one is refused.
    bool AddAll() {
        for (const std::string& path : paths)
            if (Add(path).has_value()) return false;
        return true;
    }
};

void ExpectSameReport(const ResultStore& expected, const ResultStore& actual, int32_t set) {
    for (int32_t b = 0; b < kInfoBlockCount; ++b) {
        const InfoBlock& x = expected.sets[0].otherInfo[b];
        const InfoBlock& y = actual.sets[set].otherInfo[b];
        EXPECT_EQ(x.title, y.title) << "block " << b;
        ASSERT_EQ(x.rowCount, y.rowCount) << "block " << b;
        for (int32_t r = 0; r < x.rowCount; ++r) {
            const InfoCell* p = x.FindCell(0, r);
            const InfoCell* q = y.FindCell(0, r);
            EXPECT_EQ(p ? p->text : "", q ? q->text : "") << "block " << b << " row " << r;
        }
    }
}

TEST(ResultSets, RemovingTheSecondOfThreeMovesTheThirdDownIntact) {
    ThreeOutputs t;
    ASSERT_TRUE(t.AddAll());
    ASSERT_EQ(t.store.SetCount(), 3);
    ASSERT_EQ(t.list.rows.size(), 3u);
    EXPECT_EQ(t.list.rows[2].number, "#3");
    EXPECT_EQ(t.list.rows[2].description, "Water seawater_major_ions");
    for (int32_t s = 0; s < 3; ++s) {
        ExpectSetsEqual(t.alone[s], 0, t.store, s);
        ExpectSameReport(t.alone[s], t.store, s);
    }

    RemoveFromComparison(t.store, t.list, 1);
    RemoveResultSet(t.store, 5);  // no such set
    ASSERT_EQ(t.store.SetCount(), 2);
    ExpectSetsEqual(t.alone[0], 0, t.store, 0);
    ExpectSetsEqual(t.alone[2], 0, t.store, 1);
    ExpectSameReport(t.alone[2], t.store, 1);
    // the store's arrays hold exactly the records of the two sets
    EXPECT_EQ(t.store.records.species.size(), t.alone[0].records.species.size() + t.alone[2].records.species.size());
    EXPECT_EQ(t.store.records.salts.size(), t.alone[2].records.salts.size());
    EXPECT_EQ(t.store.records.msaIons.size(), t.alone[2].records.msaIons.size());
    ASSERT_EQ(t.list.rows.size(), 2u);
    EXPECT_EQ(t.list.rows[1].number, "#2");
    EXPECT_EQ(t.list.rows[1].path, t.paths[2]);
    EXPECT_EQ(t.list.rows[1].description, "Water seawater_major_ions");

    RemoveFromComparison(t.store, t.list, 0);
    ASSERT_EQ(t.store.SetCount(), 1);
    ExpectSetsEqual(t.alone[2], 0, t.store, 0);
    EXPECT_EQ(t.list.rows[0].number, "#1");

    // the last one empties the store and the list
    RemoveFromComparison(t.store, t.list, 0);
    EXPECT_EQ(t.store.SetCount(), 1);
    EXPECT_EQ(t.store.sets[0].header.componentCount, 0);
    EXPECT_TRUE(t.store.records.components.empty());
    EXPECT_TRUE(t.store.records.species.empty());
    EXPECT_TRUE(t.store.sets[0].otherInfo[0].title.empty());
    EXPECT_FALSE(t.store.holdsLoadedOutput);
    EXPECT_TRUE(t.list.rows.empty());
}

TEST(ResultSets, RefusedFileLeavesStoreAndListAsTheyWere) {
    ThreeOutputs t;
    ASSERT_FALSE(t.Add(t.paths[0]).has_value());
    ASSERT_FALSE(t.Add(t.paths[1]).has_value());

    const std::string bad = t.folder.File("bad.o64");
    WriteBytes(bad, Utf16Bytes("Not an output file\nDo NOT manually edit this file\nFormat version: 1.3\n"));
    const std::optional<OutputFileError> error = t.Add(bad);
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->key, "ErrorOpen1");
    EXPECT_EQ(t.store.SetCount(), 2);
    EXPECT_EQ(t.list.rows.size(), 2u);
    ExpectSetsEqual(t.alone[1], 0, t.store, 1);

    // adding after the refusal takes the next number; long lists keep three characters
    ASSERT_FALSE(t.Add(t.paths[2]).has_value());
    EXPECT_EQ(t.list.rows[2].number, "#3");
    ExpectSetsEqual(t.alone[2], 0, t.store, 2);
    EXPECT_EQ(ComparisonNumber(42), "#42");
    EXPECT_EQ(ComparisonNumber(123), "#12");

    CloseComparison(t.store, t.list);
    EXPECT_EQ(t.store.SetCount(), 1);
    EXPECT_TRUE(t.store.records.reactions.empty());
    EXPECT_TRUE(t.list.rows.empty());
}

}  // namespace
}  // namespace tormel::test
