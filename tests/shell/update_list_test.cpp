// Which rows the updates window shows for the list of files on the web site.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "input/test_language.h"
#include "shell/file_date.h"
#include "shell/update_list.h"
#include "support/temp_folder.h"

namespace tormel::test {

namespace fs = std::filesystem;

TEST(UpdateList, NormalisedVersionsCompareAsText) {
    const std::pair<const char*, const char*> cases[] = {
        {"0.2.1.12", "0000.0002.0001.0012"}, {"0.2.1.9", "0000.0002.0001.0009"},
        {"12345.1", "1234.0001"},            {"1.2.3.4.5", "0001.0002.0003.0004."}};
    for (const auto& [version, normalised] : cases) EXPECT_EQ(NormalisedVersion(version), normalised) << version;
    EXPECT_GT(NormalisedVersion("0.2.1.12"), NormalisedVersion("0.2.1.9"));
}

TEST(UpdateList, RowsForNewerAndMissingFilesOnly) {
    TempFolder program;
    fs::create_directories(program.File("RawData"));
    WriteBytes(program.File("RawData/COMPON.RW64"), Utf16Bytes("Contents: Components\nVersion: 1.5\nNumber of records: 3\n"));
    WriteBytes(program.File("TORMEL64.CHM"), "help");
    WriteBytes(program.File("readme.txt"), "text");
    const std::string helpDate = FileDateText(program.File("TORMEL64.CHM"), DateZone::Local);
    const InstalledFiles installed{program.Path(), "0.2.1.9"};

    const std::vector<std::string> list = {
        "TORMEL64.EXE,0.2.1.12",  // newer program
        "tormel64.exe,0.2.1.9",   // the same version
        "COMPON.RW64,1.5",        // the same data version
        "EQUILIB.RW64,1.0",       // missing raw data file
        "COMPON.RW64,1.6",        // newer data
        "TORMEL64.CHM," + helpDate,  // help of the same day
        "TORMEL64.CHM,9999-01-01",
        "readme.txt,2.0",         // unknown extension, present
        "notes.txt,2.0",          // unknown extension, missing
        "",
    };
    std::vector<std::string> shown;
    for (const UpdateRow& row : UpdateRows(list, installed, English()))
        shown.push_back(row.fileName + "|" + row.fileType + "|" + row.current + "|" + row.available);
    EXPECT_EQ(shown, (std::vector<std::string>{
                         "TORMEL64.EXE|Program|Version 0.2.1.9|Version 0.2.1.12",
                         "EQUILIB.RW64|Database file|not installed|Version 1.0",
                         "COMPON.RW64|Database file|Version 1.5|Version 1.6",
                         "TORMEL64.CHM|Help file|Date " + helpDate + "|Date 9999-01-01",
                         "notes.txt||not installed|Version 2.0",
                     }));
}

TEST(UpdateList, DocumentDateIsTheStoredDay) {
    TempFolder folder;
    const std::string path = folder.File("manual64.pdf");
    EXPECT_EQ(FileDateText(path, DateZone::Utc), "");
    WriteBytes(path, "%PDF");
    const std::chrono::sys_seconds noon{std::chrono::sys_days{std::chrono::year{2024} / std::chrono::March / 5} +
                                        std::chrono::hours{12}};
    fs::last_write_time(path, fs::file_time_type::clock::from_sys(noon));
    const std::string date = FileDateText(path, DateZone::Utc);
    EXPECT_EQ(date, "2024-03-05");
}

}  // namespace tormel::test
