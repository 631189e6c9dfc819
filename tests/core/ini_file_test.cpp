#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <thread>
#include <string>
#include <vector>

#include "core/text_file.h"
#include "core/utf16.h"
#include "core/ini_file.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

using test::TempFolder;
using test::Utf16Bytes;
using test::WriteBytes;

TEST(ShellIniFile, ReadsNeverCreateTheFileAndTheFirstWriteStartsWithTheBom) {
    TempFolder tmp;
    IniFile ini(tmp.File("TORMEL64.INI"));

    EXPECT_EQ(ini.ReadString("Options", "Remember-Units", "1"), "1");
    EXPECT_TRUE(ini.Sections().empty());
    EXPECT_FALSE(ini.Exists());
    EXPECT_FALSE(std::filesystem::exists(tmp.File("TORMEL64.INI")));

    ASSERT_TRUE(ini.WriteString("Options", "Remember-Units", "0"));
    EXPECT_TRUE(ini.Exists());
    EXPECT_EQ(*ReadBinaryFile(ini.Path()), Utf16Bytes("[Options]\nRemember-Units=0\n"));
    EXPECT_EQ(ini.ReadString("Options", "Remember-Units", "1"), "0");

    // A delete on a missing file creates it empty: the byte-order mark only.
    IniFile other(tmp.File("OTHER.INI"));
    EXPECT_TRUE(other.DeleteSection("Options"));
    EXPECT_EQ(*ReadBinaryFile(other.Path()), std::string("\xFF\xFE"));
}

TEST(ShellIniFile, SectionAndKeyNamesIgnoreLetterCase) {
    TempFolder tmp;
    IniFile ini(tmp.File("a.ini"));
    ASSERT_TRUE(ini.WriteString("Options", "Remember-Units", "0"));
    EXPECT_EQ(ini.ReadString("OPTIONS", "remember-units", "x"), "0");

    // Writing under another spelling replaces the key, keeping its first spelling.
    ASSERT_TRUE(ini.WriteString("options", "REMEMBER-UNITS", "1"));
    EXPECT_EQ(test::ReadUtf16Text(ini.Path()), "[Options]\nRemember-Units=1\n");

    ASSERT_TRUE(ini.WriteString("Ölwerte", "Äquivalent", "2"));
    EXPECT_EQ(ini.ReadString("ÖLWERTE", "äQUIVALENT", "x"), "2");
    EXPECT_EQ(ini.Sections(), (std::vector<std::string>{"Options", "Ölwerte"}));
}

TEST(ShellIniFile, ReadsTrimBlanksDropQuotesAndIgnoreLinesOutsideSections) {
    TempFolder tmp;
    const std::string path = tmp.File("lang.ini");
    WriteBytes(path, Utf16Bytes("English (UK)\n"
                                "orphan=before any section\n"
                                "  [ Tools ]  \n"
                                "  Init  =   Initializing...   \n"
                                "Quoted=\"  padded  \"\n"
                                "Single='x'\n"
                                "Mismatch=\"abc'\n"
                                "Lone=\"\n"
                                ";Comment=not a key\n"
                                "Empty=\n"
                                "Twice=first\n"
                                "Twice=second\n"
                                "[Other]\n"
                                "Init=other section\n"));
    IniFile ini(path);
    EXPECT_EQ(ini.ReadString("Tools", "Init", "d"), "Initializing...");
    EXPECT_EQ(ini.ReadString("Tools", "Quoted", "d"), "  padded  ");
    EXPECT_EQ(ini.ReadString("Tools", "Single", "d"), "x");
    EXPECT_EQ(ini.ReadString("Tools", "Mismatch", "d"), "\"abc'");
    EXPECT_EQ(ini.ReadString("Tools", "Lone", "d"), "\"");
    EXPECT_EQ(ini.ReadString("Tools", "Empty", "d"), "");
    EXPECT_EQ(ini.ReadString("Tools", "Twice", "d"), "first");
    EXPECT_EQ(ini.ReadString("Tools", ";Comment", "d"), "d");
    EXPECT_EQ(ini.ReadString("Other", "Init", "d"), "other section");
    EXPECT_EQ(ini.ReadString("Tools", "orphan", "d"), "d");
    EXPECT_EQ(ini.ReadString("Missing", "Init", "d"), "d");
    EXPECT_EQ(ini.ReadString("Tools", "Missing", "d"), "d");
    EXPECT_EQ(ini.Keys("tools"),
              (std::vector<std::string>{"Init", "Quoted", "Single", "Mismatch", "Lone", "Empty", "Twice"}));
}

TEST(ShellIniFile, ReadsAreCutToTheGivenNumberOfCharacters) {
    TempFolder tmp;
    IniFile ini(tmp.File("a.ini"));
    // "€" is one UTF-16 unit, "𝄞" two: a cut never splits the pair.
    ASSERT_TRUE(ini.WriteString("S", "K", "ab€𝄞cd"));
    EXPECT_EQ(ini.ReadString("S", "K", "", 3), "ab€");
    EXPECT_EQ(ini.ReadString("S", "K", "", 4), "ab€");
    EXPECT_EQ(ini.ReadString("S", "K", "", 5), "ab€𝄞");
    EXPECT_EQ(ini.ReadString("S", "missing", "default", 3), "def");
}

TEST(ShellIniFile, WritesKeepEveryOtherLine) {
    TempFolder tmp;
    const std::string path = tmp.File("a.ini");
    WriteBytes(path, Utf16Bytes("; settings of the program\n"
                                "[Options]\n"
                                "Unknown=kept\n"
                                "ColorBackGr=1\n"
                                "\n"
                                "[Units]\n"
                                "; a comment in a section\n"
                                "NumDec=5\n"));
    IniFile ini(path);
    ASSERT_TRUE(ini.WriteString("Options", "ColorBackGr", "2"));
    ASSERT_TRUE(ini.WriteString("Options", "VertBarLeft", "175"));
    ASSERT_TRUE(ini.WriteString("Output", "TableStyle", "0"));
    ASSERT_TRUE(ini.WriteString("Units", "Order", "line\nbreak"));
    EXPECT_EQ(test::ReadUtf16Text(path),
              "; settings of the program\n"
              "[Options]\n"
              "Unknown=kept\n"
              "ColorBackGr=2\n"
              "VertBarLeft=175\n"
              "\n"
              "[Units]\n"
              "; a comment in a section\n"
              "NumDec=5\n"
              "Order=line break\n"
              "[Output]\n"
              "TableStyle=0\n");

    ASSERT_TRUE(ini.DeleteKey("units", "numdec"));
    ASSERT_TRUE(ini.DeleteSection("OPTIONS"));
    EXPECT_EQ(test::ReadUtf16Text(path),
              "; settings of the program\n"
              "[Units]\n"
              "; a comment in a section\n"
              "Order=line break\n"
              "[Output]\n"
              "TableStyle=0\n");
    EXPECT_EQ(ini.ReadString("Options", "Unknown", "gone"), "gone");
    EXPECT_EQ(ini.ReadString("Units", "NumDec", "3"), "3");
}

// (writes replace the file whole, leaving no temporary files: CoreTextFile checks that)
TEST(ShellIniFile, AFileInAMissingFolderCannotBeWritten) {
    TempFolder tmp;
    IniFile nowhere(tmp.File("missing/TORMEL64.INI"));
    EXPECT_FALSE(nowhere.WriteString("Options", "A", "1"));
    EXPECT_EQ(nowhere.ReadString("Options", "A", "d"), "d");
}

TEST(ShellIniFile, ReadsSeeWritesThroughOtherObjectsAndDiskChangesAfterReadAgain) {
    TempFolder tmp;
    const std::string path = tmp.File("a.ini");
    IniFile reader(path);
    IniFile writer(path);
    EXPECT_EQ(reader.ReadString("S", "K", "d"), "d");
    ASSERT_TRUE(writer.WriteString("S", "K", "1"));
    EXPECT_EQ(reader.ReadString("S", "K", "d"), "1");

    // A change made by anything else stays unseen until the file is read again.
    WriteBytes(path, Utf16Bytes("[S]\nK=2\n"));
    EXPECT_EQ(reader.ReadString("S", "K", "d"), "1");
    IniFile::ReadAgain(path);
    EXPECT_EQ(reader.ReadString("S", "K", "d"), "2");
    EXPECT_EQ(IniFile(path).ReadString("S", "K", "d"), "2");

    std::filesystem::remove(path);
    IniFile::ReadAgain(tmp.File("other.ini"));  // another file: this one is kept
    EXPECT_EQ(reader.ReadString("S", "K", "d"), "2");
    IniFile::ReadAgain(path);
    EXPECT_EQ(reader.ReadString("S", "K", "d"), "d");
}

TEST(ShellIniFile, LookupsFromSeveralThreadsWhileAnotherObjectWrites) {
    TempFolder tmp;
    const std::string path = tmp.File("a.ini");
    IniFile writer(path);
    ASSERT_TRUE(writer.WriteString("S", "K", "old"));
    const IniFile reader(path);
    std::atomic<int> unexpected{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&] {
            for (int i = 0; i < 2000; ++i) {
                const std::string value = reader.ReadString("s", "k", "missing");
                if (value != "old" && value != "new") ++unexpected;
            }
        });
    for (int i = 0; i < 20; ++i) writer.WriteString("S", "K", i % 2 ? "old" : "new");
    for (std::thread& t : threads) t.join();
    EXPECT_EQ(unexpected.load(), 0);
}

TEST(ShellIniFile, FoldCaseComparesAccentedLetters) {
    EXPECT_TRUE(EqualIgnoringCase("/home/Müller/Input/A.i64", "/HOME/MÜLLER/input/a.I64"));
    EXPECT_FALSE(EqualIgnoringCase("/home/a.i64", "/home/a.i6"));
    EXPECT_FALSE(EqualIgnoringCase("Müller", "Muller"));
}

}  // namespace
}  // namespace tormel
