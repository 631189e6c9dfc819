#include <gtest/gtest.h>

#include <filesystem>

#include "core/text_file.h"
#include "core/utf16.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

using test::TempFolder;
using test::Utf16Bytes;
using test::WriteBytes;

TEST(CoreTextFile, ReadsWithAndWithoutByteOrderMark) {
    TempFolder dir;
    WriteBytes(dir.File("bom.txt"), Utf16Bytes("Ca\nCO3\n", true));
    WriteBytes(dir.File("plain.txt"), Utf16Bytes("Ca\nCO3\n", false));
    EXPECT_EQ(ReadUtf16File(dir.File("bom.txt")), u"Ca\nCO3\n");
    EXPECT_EQ(ReadUtf16File(dir.File("plain.txt")), u"Ca\nCO3\n");
}

TEST(CoreTextFile, LoneCarriageReturnAndOddTrailingByteSurvive) {
    TempFolder dir;
    std::string bytes = Utf16Bytes("a", true) + std::string("\r\0b\0", 4) + "x";
    WriteBytes(dir.File("odd.txt"), bytes);
    EXPECT_EQ(ReadUtf16File(dir.File("odd.txt")), u"a\rb");
}

TEST(CoreTextFile, MissingFileIsAnErrorNamingThePath) {
    TempFolder dir;
    FileError error;
    EXPECT_FALSE(ReadUtf16File(dir.File("none.txt"), &error));
    EXPECT_EQ(error.path, dir.File("none.txt"));
    EXPECT_FALSE(error.message.empty());
    EXPECT_FALSE(ReadUtf16File(dir.Path()));  // a folder is not a file
}

TEST(CoreTextFile, WritesBomAndCrLfAndRoundTripsNonAscii) {
    TempFolder dir;
    // a character outside the BMP, and ASCII runs ending on and off eight-byte
    // boundaries, before and after line feeds and other characters
    const std::string text = "Zürich µg/L \xF0\x9F\x92\xA7\nline 2\n12345678\nabcdefgh12345678\n\n1234567\n"
                             "0123456789abcdefµ01234567µ\nx";
    ASSERT_TRUE(WriteUtf16File(dir.File("out.txt"), std::string_view(text)));
    auto bytes = ReadBinaryFile(dir.File("out.txt"));
    ASSERT_TRUE(bytes);
    EXPECT_EQ(*bytes, Utf16Bytes(text, true));
    EXPECT_EQ(Utf16ToUtf8(*ReadUtf16File(dir.File("out.txt"))), text);
    // a new file takes a different way from a replaced one: both leave only the file
    ASSERT_TRUE(WriteUtf16File(dir.File("out.txt"), std::string_view("new\n")));
    EXPECT_EQ(ReadUtf16File(dir.File("out.txt")), u"new\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.Path()), {}), 1);
}

TEST(CoreTextFile, FailedWriteKeepsTheOldFileAndLeavesNoTemporary) {
    TempFolder dir;
    ASSERT_TRUE(WriteUtf16File(dir.File("keep.txt"), std::string_view("old\n")));
    FileError error;
    EXPECT_FALSE(WriteUtf16File(dir.File("missing/folder.txt"), std::string_view("x"), &error));
    EXPECT_NE(error.message.find("cannot create"), std::string::npos);
    // a folder in the way of the target: the rename fails, the old content is untouched
    std::filesystem::create_directory(dir.File("blocked"));
    EXPECT_FALSE(WriteUtf16File(dir.File("blocked"), std::string_view("x")));
    EXPECT_EQ(ReadUtf16File(dir.File("keep.txt")), u"old\n");
    int entries = 0;
    for (auto& entry : std::filesystem::directory_iterator(dir.Path())) entries += entry.path().filename() != "" ? 1 : 0;
    EXPECT_EQ(entries, 2);  // keep.txt and the folder, no temporary files
}

TEST(CoreUtf16, InvalidUtf8BecomesReplacementCharacters) {
    EXPECT_EQ(Utf8ToUtf16("a\xFF" "b"), u"a\uFFFDb");
    EXPECT_EQ(Utf8ToUtf16("\xC3"), u"\uFFFD");  // truncated sequence
    EXPECT_EQ(Utf16ToUtf8(u"\xD800x"), "\xEF\xBF\xBDx");  // unpaired surrogate
    EXPECT_EQ(Utf16Length("\xF0\x9F\x92\xA7" "a"), 3u);
}

}  // namespace
}  // namespace tormel
