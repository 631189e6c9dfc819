// The output file: header checks, the optional blocks, the index shifts,
// old versions, and files that end early or hold garbage.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <limits>

#include "core/utf16.h"
#include "output/output_file.h"
#include "result_test_support.h"
#include "support/temp_folder.h"
#include "text_lines.h"

namespace tormel::test {
namespace {

std::optional<OutputFileError> Read(const std::string& text, ResultStore& store, int32_t set = 0,
                                    OutputReadReport* report = nullptr, InputProblem* current = nullptr,
                                    const UiServices* ui = nullptr) {
    return ReadOutputText(Utf8ToUtf16(text), store, set, current, ui, report);
}

// A set that switches every optional block on: organic matter (two lines per
// component, a component that is not reported), precipitation (a solid
// range), adsorption, MSA, a forced neutral solution and a fixed ionic
// strength; read from its golden copy.
ResultStore FullStore() {
    std::ifstream in(std::string(TORMEL_TEST_DATA) + "/golden/output_file_full.txt", std::ios::binary);
    ResultStore store;
    EXPECT_FALSE(Read(std::string(std::istreambuf_iterator<char>(in), {}), store).has_value());
    return store;
}

TEST(OutputFileHeader, RefusesForeignChangedAndUnversionedFilesWithoutTouchingTheStore) {
    const std::string body = "\ndescription\n0 0 0 0 0 0 0\n0\n";
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"TORMEL NEXT (64 bits) input file\nDo NOT manually edit this file\nFormat version: 1.3" + body, "ErrorOpen1"},
        {"TORMEL NEXT (64 bits) output file\nDo not manually edit this file\nFormat version: 1.3" + body, "ErrorOpen2"},
        {"TORMEL NEXT (64 bits) output file\nDo NOT manually edit this file\nFormat: 1.3" + body, "ErrorOpen3"},
        {"", "ErrorOpen1"},
    };
    for (const auto& [text, key] : cases) {
        ResultStore store = FullStore();
        const auto error = Read(text, store);
        ASSERT_TRUE(error.has_value()) << key;
        EXPECT_EQ(error->key, key);
        EXPECT_EQ(store.records.species.size(), 5u) << "a refused file leaves the store as it was";
        EXPECT_EQ(store.sets[0].header.iterationCount, 17);
    }
}

TEST(OutputFileHeader, VersionBelow11IsRefusedWithTheLineAnd11IsReadWithoutIonSizes) {
    ResultStore store;
    const auto error =
        Read("TORMEL NEXT (64 bits) output file\nDo NOT manually edit this file\nFormat version: 1.05\n", store);
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->key, "ErrorOpen4");
    EXPECT_EQ(OutputFileErrorText(Language(EnglishLanguageFile()), *error),
              "The format of this output file is too old to be read (Format version: 1.05).");

    // the same MSA set as version 1.1: five numbers per ion line
    std::string text = FormatOutputFile(FullStore(), 0);
    text.replace(text.find("Format version: 1.3"), 19, "Format version: 1.1");
    const size_t ion = text.find("\"Ca\" 2 ");
    const size_t end = text.find('\n', ion);
    const std::string ionLine = text.substr(ion, end - ion);
    text.replace(ion, end - ion, ionLine.substr(0, ionLine.rfind(" 6E-10")) + " ");
    OutputReadReport report;
    ASSERT_FALSE(Read(text, store, 0, &report).has_value());
    EXPECT_TRUE(report.complete);
    ASSERT_EQ(store.records.msaIons.size(), 1u);
    EXPECT_EQ(store.records.msaIons[0].ionSize, 0);
    EXPECT_DOUBLE_EQ(store.records.msaIons[0].gamma, 0.74);
    EXPECT_DOUBLE_EQ(store.sets[0].msa.delta, 0.99) << "the summary after the ions is read in step";

    // a version written as 1.11 counts as newer than 1.11 and has ion sizes
    std::string v111 = FormatOutputFile(FullStore(), 0);
    v111.replace(v111.find("Format version: 1.3"), 19, "Format version: 1.11");
    ASSERT_FALSE(Read(v111, store).has_value());
    EXPECT_DOUBLE_EQ(store.records.msaIons[0].ionSize, 6e-10);
}

TEST(OutputFileLayout, MatchesItsGoldenCopyAndReadsBack) {
    ResultStore store = FullStore();
    store.sets[0].snapshot.input.description = "  Full test water  ";
    const std::string text = FormatOutputFile(store, 0);
    // the layout as a whole: optional blocks, organic site lines, reaction indexes + 1, the model lines
    ExpectMatchesGolden(text, "output_file_full.txt");

    ResultStore back;
    InputProblem current;
    ASSERT_FALSE(Read(text, back, 0, nullptr, &current).has_value());
    ExpectSetsEqual(store, 0, back, 0);
    const SetView view = ViewSet(back, 0);
    EXPECT_EQ(view.species[0].reactionDefinition, -1);
    EXPECT_EQ(view.species[1].reactionDefinition, 0);
    EXPECT_EQ(view.gases[0].reactionDefinition, 2);
    EXPECT_EQ(view.species[1].charge, 0) << "charge is not kept in the file";
    EXPECT_EQ(view.species[1].literatureIndex, 0);
    EXPECT_EQ(back.sets[0].snapshot.input.description, "Full test water");
    EXPECT_EQ(back.sets[0].header.organicReference, store.sets[0].header.organicReference)
        << "the organic reference is a whole line and keeps its quotes";
    EXPECT_EQ(current.neutraliseCation, 12);
    EXPECT_EQ(current.neutraliseAnion, 40);
    EXPECT_TRUE(back.holdsLoadedOutput);
}

TEST(OutputFileLayout, AResultOfTheFallbackMarksItsIterationLineAndReadsBack) {
    ResultStore store = FullStore();
    const std::string plain = FormatOutputFile(store, 0);
    store.sets[0].header.fallbackIteration = 312;
    const std::string marked = FormatOutputFile(store, 0);
    const std::string line = "17 1 0.0123 0.004 0.0039";
    ASSERT_NE(plain.find("\n" + line + "\n"), std::string::npos);
    std::string expected = plain;
    expected.insert(expected.find("\n" + line + "\n") + 1 + line.size(), " fallback 312");
    EXPECT_EQ(marked, expected) << "the mark is all that changes";
    for (const auto& [text, iteration] : {std::pair{plain, 0}, std::pair{marked, 312}}) {
        ResultStore back = FullStore();
        back.sets[0].header.fallbackIteration = 99;
        ASSERT_FALSE(Read(text, back).has_value());
        EXPECT_EQ(back.sets[0].header.fallbackIteration, iteration);
        EXPECT_EQ(back.sets[0].header.cationCharge, 4e-3);
    }
}

TEST(OutputFileLayout, QuotedTextsOfEveryLengthUpToTheLimitReadBackExactly) {
    ResultStore store = FullStore();
    SetRecords records;
    for (size_t length : {0u, 1u, 258u, 259u}) {
        SpeciesResult s = MakeSpecies(SpeciesKind::ComplexSpecies, std::string(length, 'x') + "", 1e-9);
        if (length > 0) s.name.back() = 'y';
        s.literature = std::string(length, 'r');
        records.species.push_back(s);
    }
    SpeciesResult tooLong = MakeSpecies(SpeciesKind::ComplexSpecies, std::string(300, 'n'), 1e-9);
    records.species.push_back(tooLong);
    records.components.push_back(MakeComponent(ComponentType::Cation, "Na", 1e-3, 22.99, ""));
    StoreSetRecords(store, 0, std::move(records));
    store.sets[0].header.reportedComponentCount = 1;

    ResultStore back;
    ASSERT_FALSE(Read(FormatOutputFile(store, 0), back).has_value());
    const SetView view = ViewSet(back, 0);
    ASSERT_EQ(view.species.size(), 5u);
    for (size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(view.species[i].name, ViewSet(store, 0).species[i].name);
        EXPECT_EQ(view.species[i].literature, ViewSet(store, 0).species[i].literature);
    }
    EXPECT_EQ(view.species[4].name, std::string(259, 'n')) << "a longer text is cut to what the reader keeps";
    EXPECT_EQ(view.components[0].speciesList, "");
}

TEST(OutputFileReading, ShortOrDamagedFilesAreReadAsFarAsTheyGo) {
    const std::string text = FormatOutputFile(FullStore(), 0);
    // cut after the species block: components and species are there, the rest is cleared
    const size_t cut = text.find("General");
    ResultStore store;
    OutputReadReport report;
    ASSERT_FALSE(Read(text.substr(0, cut), store, 0, &report).has_value());
    EXPECT_FALSE(report.complete);
    EXPECT_GT(report.stoppedAtLine, 10);
    EXPECT_EQ(ViewSet(store, 0).species.size(), 5u);
    EXPECT_EQ(store.sets[0].header.iterationCount, 0);
    EXPECT_EQ(ViewSet(store, 0).componentInfos.size(), ViewSet(store, 0).components.size());

    // garbage after the header and absurd counts
    for (const std::string& tail : {std::string("\n\xC3\xA4\xC3\xB6 garbage \"\"\"\n"),
                                    std::string("desc\n1 1 1 1 1 2000000000 2000000000\n\"a\" \"b\"\n"),
                                    std::string("desc\n0 0 0 0 0 -5 3\n-7\n"),
                                    std::string("desc\n0 0 1 0 0 0 0\n0\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n0 0\n0 0\n0 0\n"
                                                "0 0\n0 0\n0 0\n0 0\n1 0 1 0 0\n 1\n0\n0\n -5 2000000000\n")}) {
        ResultStore damaged = FullStore();
        const std::string file =
            "TORMEL NEXT (64 bits) output file\nDo NOT manually edit this file\nFormat version: 1.3\n" + tail;
        OutputReadReport r;
        EXPECT_FALSE(Read(file, damaged, 0, &r).has_value());
        EXPECT_FALSE(r.complete);
        EXPECT_EQ(damaged.SetCount(), 1);
        EXPECT_LE(damaged.records.components.size(), file.size());
    }
}

TEST(OutputFileReading, DamageAnywhereIsFoundWithItsLine) {
    const std::string text = FormatOutputFile(FullStore(), 0);
    const std::vector<std::string> lines = Lines(text);
    const int last = static_cast<int>(lines.size());  // 1-based number of the last line
    const size_t lastLine = text.rfind('\n', text.size() - 2) + 1;
    // (damaged text, line where reading must stop)
    const std::vector<std::pair<std::string, int>> cases = {
        {text.substr(0, text.size() - 8), last},                   // cut inside the last quoted note
        {text.substr(0, lastLine), last},                          // the last reaction missing
        {text + "trailing words\n", last + 1},                    // more than the file's fields
        {text.substr(0, lastLine) + "1 garbage\n", last},         // a field that is not a number
    };
    for (const auto& [damaged, line] : cases) {
        ResultStore store;
        OutputReadReport report;
        ASSERT_FALSE(Read(damaged, store, 0, &report).has_value());
        EXPECT_FALSE(report.complete) << damaged.substr(damaged.size() - 40);
        EXPECT_EQ(report.stoppedAtLine, line) << damaged.substr(damaged.size() - 40);
    }
    ResultStore store;
    OutputReadReport report;
    ASSERT_FALSE(Read(text + "\n  \n", store, 0, &report).has_value());
    EXPECT_TRUE(report.complete) << "blank lines at the end are no damage";
}

TEST(OutputFileReading, AKindCodeThatNamesNoKindStopsTheReadingAtItsLine) {
    const std::string text = FormatOutputFile(FullStore(), 0);
    // (the field's text as written, a code that names no kind there)
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"\"Ca\" \"Ca\" \"\" 1 ", "8"},  // component types are 1 to 7
        {"\"Calcite\" 8 ", "73"},         // species kinds are 1 to 72
        {"\"Calcite\" 8 ", "0"},
    };
    for (const auto& [field, code] : cases) {
        const size_t at = text.find(field);
        ASSERT_NE(at, std::string::npos) << field;
        const int line = 1 + static_cast<int>(std::count(text.begin(), text.begin() + static_cast<long>(at), '\n'));
        std::string damaged = text;
        damaged.replace(at + field.size() - 2, 1, code);
        ResultStore store;
        OutputReadReport report;
        ASSERT_FALSE(Read(damaged, store, 0, &report).has_value());
        EXPECT_FALSE(report.complete) << field << code;
        EXPECT_EQ(report.stoppedAtLine, line) << field << code;
    }
}

TEST(OutputFileLayout, AnAbsentComponentsSaturationIsAWordThatReadsBackAsMinusInfinity) {
    ResultStore store = FullStore();
    const double minusInfinity = -std::numeric_limits<double>::infinity();
    store.records.species[3].saturationValue = minusInfinity;  // the precipitated-solid range
    SolidSaturation check;
    check.name = "Fluorite";
    check.saturationIndex = minusInfinity;
    check.logK = 10.5;
    check.conditionalLogK = 10.4;
    SetRecords records = store.records;  // set 0 is the only set
    records.solidChecks.push_back(check);
    StoreSetRecords(store, 0, std::move(records));

    const std::string text = FormatOutputFile(store, 0);
    EXPECT_EQ(text.find("INF"), std::string::npos);
    EXPECT_NE(text.find("\"Fluorite\" absent 10.5 10.4 0 \"\"\n"), std::string::npos);
    EXPECT_NE(text.find(" 4 4 \n absent\n"), std::string::npos);
    ResultStore back;
    OutputReadReport report;
    ASSERT_FALSE(Read(text, back, 0, &report).has_value());
    EXPECT_TRUE(report.complete);
    ASSERT_EQ(ViewSet(back, 0).solidChecks.size(), 1u);
    EXPECT_EQ(ViewSet(back, 0).solidChecks[0].saturationIndex, minusInfinity);
    EXPECT_EQ(ViewSet(back, 0).species[3].saturationValue, minusInfinity);
    EXPECT_EQ(FormatOutputFile(back, 0), text);
}

TEST(OutputFileReading, AComparisonSetLeavesTheSetsBeforeItAlone) {
    ResultStore store = FullStore();
    ResultStore other = FullStore();
    other.sets[0].snapshot.input.description = "second";
    const std::string text = FormatOutputFile(other, 0);
    ASSERT_FALSE(Read(text, store, 1).has_value());
    ASSERT_FALSE(Read(text, store, 2).has_value());
    EXPECT_EQ(store.SetCount(), 3);
    EXPECT_EQ(store.sets[0].snapshot.input.description, "Full test water");
    EXPECT_EQ(store.sets[2].snapshot.input.description, "second");
    EXPECT_EQ(RecordIndex(store, KindSpecies, 2, 0), 10);
    EXPECT_EQ(FormatOutputFile(store, 0), FormatOutputFile(FullStore(), 0));
    // reading set 1 again drops the sets behind it and keeps set 0
    ASSERT_FALSE(Read(text, store, 1).has_value());
    EXPECT_EQ(store.SetCount(), 2);
    EXPECT_EQ(store.records.species.size(), 10u);
    EXPECT_EQ(FormatOutputFile(store, 0), FormatOutputFile(FullStore(), 0));
    // set 0 replaces the whole store
    ASSERT_FALSE(Read(text, store, 0).has_value());
    EXPECT_EQ(store.SetCount(), 1);
    EXPECT_EQ(store.records.species.size(), 5u);
}

TEST(OutputFileReading, AnAdsorptionLinkedFlagIsReportedAndReadingGoesOn) {
    std::string text = FormatOutputFile(FullStore(), 0);
    text.replace(text.find("\n0\n2 1.0001"), 3, "\n1\n");
    RecordingUi ui;
    ResultStore store;
    OutputReadReport report;
    ASSERT_FALSE(Read(text, store, 0, &report, nullptr, &ui.services).has_value());
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].caption, "message");
    EXPECT_EQ(ui.messages[0].lines.at(0), "grid 6 ads linked");
    EXPECT_TRUE(report.complete);
    EXPECT_EQ(ViewSet(store, 0).reactions.size(), 3u);
}

TEST(OutputFileWriting, GoesThroughATemporaryFileAndKeepsTheOldFileOnFailure) {
    TempFolder folder;
    const std::string path = folder.File("result.o64");
    ASSERT_TRUE(WriteOutputFile(path, FullStore(), 0));
    const auto bytes = ReadBinaryFile(path);
    ASSERT_TRUE(bytes.has_value());
    EXPECT_EQ(bytes->substr(0, 4), std::string("\xFF\xFET\0", 4));
    EXPECT_NE(bytes->find(std::string("\r\0\n\0", 4)), std::string::npos);
    FileError error;
    EXPECT_FALSE(WriteOutputFile(folder.File("missing/result.o64"), FullStore(), 0, &error));
    EXPECT_FALSE(error.message.empty());
    const auto missing = ReadOutputFile(folder.File("none.o64"), *std::make_unique<ResultStore>(), 0);
    ASSERT_TRUE(missing.has_value());
    EXPECT_EQ(missing->key, "ErrorFileMissing");
    EXPECT_EQ(OutputFileErrorText(Language(EnglishLanguageFile()), *missing),
              "The output file does not exist:\n" + folder.File("none.o64"));
}

TEST(OutputFileLayout, WholeLineTextsKeepTheirLimitsAndStayOnTheirLines) {
    ResultStore store = FullStore();
    ResultSet& set = store.sets[0];
    set.snapshot.input.description = std::string(258, 'd');
    set.otherInfo[0].title = std::string(258, 't');
    set.otherInfo[0].longText = "first\nsecond";
    set.otherInfo[1].title = std::string(300, 'u');
    set.header.organicReference = std::string(8190, 'o');
    store.records.species[0].literatureIndex = 0;
    store.records.species[0].literature = "line\r\nbreak";
    ResultStore back;
    OutputReadReport report;
    ASSERT_FALSE(ReadOutputText(Utf8ToUtf16(FormatOutputFile(store, 0)), back, 0, nullptr, nullptr, &report));
    EXPECT_TRUE(report.complete);
    EXPECT_EQ(back.sets[0].snapshot.input.description, std::string(258, 'd'));
    EXPECT_EQ(back.sets[0].otherInfo[0].title, std::string(258, 't'));
    EXPECT_EQ(back.sets[0].otherInfo[0].longText, "first second");
    EXPECT_EQ(back.sets[0].otherInfo[1].title, std::string(258, 'u'));
    EXPECT_EQ(back.sets[0].header.organicReference, std::string(8190, 'o'));
    EXPECT_EQ(back.records.species[0].literature, "line  break");
    EXPECT_EQ(ViewSet(back, 0).reactions.size(), 3u);
}

}  // namespace
}  // namespace tormel::test
