#include <gtest/gtest.h>

#include "core/database_files.h"
#include "support/recording_ui.h"
#include "support/synthetic_database.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

using test::TempFolder;
using test::Utf16Bytes;
using test::WriteBytes;

const char* kHeader = "Contents: test\nVersion: 1\nNumber of records: ";

// Replaces one working copy of a valid synthetic set with crafted text.
struct CraftedDatabase {
    TempFolder dir;
    test::RecordingUi ui;
    Database chem;
    CraftedDatabase() { test::WriteSyntheticWorkingCopies(test::SyntheticDatabase(), dir.Path()); }
    std::optional<DatabaseError> LoadWith(int position, const std::string& text) {
        WriteBytes(WorkingCopyPath(dir.Path(), position), Utf16Bytes(text));
        return LoadDatabase(chem, dir.Path(), ui.services);
    }
};

TEST(CoreDatabaseErrors, MissingWorkingCopyNamesTheFile) {
    CraftedDatabase db;
    std::remove(WorkingCopyPath(db.dir.Path(), DbLiterature).c_str());
    auto error = LoadDatabase(db.chem, db.dir.Path(), db.ui.services);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->path, WorkingCopyPath(db.dir.Path(), DbLiterature));
    EXPECT_NE(error->Describe().find("LIT_REF.D64"), std::string::npos);
    EXPECT_EQ(db.chem.ComponentCount(), 0) << "a failed load leaves no half database";
}

// A crafted file and what the error must name: the record, a part of the
// message and the line ("" and 0 where the case does not pin them).
struct Crafted {
    int position;
    std::string text;
    const char* record;
    const char* message;
    int line;
};

TEST(CoreDatabaseErrors, CraftedFilesNameTheRecordFieldAndLine) {
    const std::string h = kHeader;
    const Crafted cases[] = {
        {DbComponents, h + "3\n\"H\" 1 1 1.008 0\n\"OH\" 3 -1 17 0\n", "component 3", "ends before", 0},
        {DbComponents, h + "2\n\"H\" 1 1 1.008 0\n\"Ca\" 1 2", "component 2 (\"Ca\")", "molar mass", 5},
        {DbComponents, h + "2\n\"H\" 1 1 1.008 0\n\"Ca 1 2 40 0\n", "", "closing quote", 0},
        // a huge count is refused before anything is allocated
        {DbEquilibria, h + "2000000000\n\"H2O\" 1 0 14 0 0 -2 0 0 2 1 1 1 2\n", "", "larger than the file", 3},
        {DbEquilibria, h + "1\n\"H2O\" 1 0 14 0 0 -2 0 1 2 1 1 1 99\n", "", "component number 99", 0},
        {DbEquilibria, h + "1\n\"H2O\" 1 0 14 0 0 -2 0 77 2 1 1 1 2\n", "", "literature reference 77", 0},
        {DbLiterature, h + "9\nfirst\nsecond\n", "reference 3", "", 0},
        {DbModel6, "a\nb\nc\n1.5 nA\n2.5 nB\n", "fulvic parameter 3", "", 0},
    };
    for (const Crafted& c : cases) {
        SCOPED_TRACE(c.text);
        CraftedDatabase db;
        auto error = db.LoadWith(c.position, c.text);
        ASSERT_TRUE(error);
        if (*c.record) { EXPECT_EQ(error->record, c.record); }
        EXPECT_NE(error->message.find(c.message), std::string::npos) << error->message;
        if (c.line) { EXPECT_EQ(error->line, c.line); }
    }
}

TEST(CoreDatabaseErrors, GarbageBytesGiveAnErrorNotACrash) {
    CraftedDatabase db;
    std::string garbage;
    for (int i = 0; i < 4096; ++i) garbage += static_cast<char>((i * 7919) % 256);
    WriteBytes(WorkingCopyPath(db.dir.Path(), DbEquilibria), garbage);
    EXPECT_TRUE(LoadDatabase(db.chem, db.dir.Path(), db.ui.services));
}

TEST(CoreDatabaseFormats, TypeSpecificFieldsAreOnlyPresentWhereTheyBelong) {
    // gas and redox-solid components carry no charge; an organic one its model code
    Database chem;
    TempFolder dir;
    WriteBytes(dir.File("c.D64"), Utf16Bytes(std::string(kHeader) +
                                             "5\n\"H\" 1 1 1.008 9E-10\n\"OH\" 3 -1 17.007 3.5E-10\n"
                                             "\"MnO2(s)\" 5 86.94\n\"CO2(g)\" 6\n\"HA7\" 7 0 4\n"));
    ASSERT_FALSE(ReadComponentFile(chem, dir.File("c.D64")));
    EXPECT_EQ(chem.components[2].charge, 0);
    EXPECT_EQ(chem.components[2].molarMass, 86.94);
    EXPECT_EQ(chem.components[3].charge, 0);
    EXPECT_EQ(chem.components[3].type, ComponentType::Gas);
    EXPECT_EQ(chem.components[4].organicModel, Model7);
    EXPECT_EQ(chem.components[4].ionDiameter, 0);
    // enthalpy flag 0: no enthalpy field; flag 1: one real follows
    WriteBytes(dir.File("e.D64"), Utf16Bytes(std::string(kHeader) +
                                             "2\n\"H2O\" 1 0 -14 0 0 -2 0 0 2 1 1 1 2\n"
                                             "\"OH2\" 2 -1 3.5 0 0 0 1 -5000.5 4E-10 0 1 1 2\n"));
    ASSERT_FALSE(ReadEquilibriumFile(chem, dir.File("e.D64")));
    EXPECT_FALSE(chem.equilibria[0].hasEnthalpy);
    EXPECT_TRUE(chem.equilibria[1].hasEnthalpy);
    EXPECT_EQ(chem.equilibria[1].enthalpy, -5000.5);
    EXPECT_EQ(chem.equilibria[1].complexDiameter, 4e-10);
    EXPECT_EQ(chem.equilibria[1].literatureRef, -1);
    EXPECT_EQ(chem.Coefficient(1, 1), 1);
}

}  // namespace
}  // namespace tormel
