// The update check and the documents against a web site served on 127.0.0.1.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTreeWidget>
#include <QLabel>
#include <QPushButton>
#include <QTcpServer>
#include <filesystem>
#include <fstream>

#include "output/export_rows.h"
#include "ui/desktop_fixture.h"
#include "ui/loopback_site.h"
#include "updates/open_document.h"
#include "updates/update_check.h"
#include "updates/updates_window.h"

namespace tormel {
namespace {

namespace fs = std::filesystem;

struct UpdatesTest : ::testing::Test {
    test::DesktopFixture fixture;
    test::LoopbackSite site;
    void SetUp() override {
        ASSERT_FALSE(fixture.Start().endProcess);
        fixture.Ws().settings.WriteSettingString("Links", "UpdateSite", site.Address());
    }
    std::string LastMessage() const {
        if (fixture.boxes.empty()) return "(none)";
        std::string text;
        for (const std::string& line : fixture.boxes.back().lines) text += line;
        return text;
    }
    std::string Text(const char* section, const char* key) { return LanguageText(fixture.Ws().language, section, key); }
};

// (which rows the list gives is UpdateList's matter)
TEST_F(UpdatesTest, ListOfTheSiteShowsItsRowsInTheWindow) {
    test::TempFolder program;
    fs::create_directories(program.File("RawData"));
    fixture.Ws().folders.programFolder = program.Path();
    site.Serve("avlbl64.txt", test::Utf16Text(QStringLiteral("TORMEL64.EXE,99.0.0.1\nEQUILIB.RW64,1.2\n")));

    std::vector<QStringList> rows;
    test::WhenWindowShows(QStringLiteral("FrmUpdates"), [&](QWidget* window) {
        auto* list = window->findChild<QTreeWidget*>(QStringLiteral("updateList"));
        for (int r = 0; r < list->topLevelItemCount(); ++r) {
            QStringList row;
            for (int c = 0; c < 4; ++c) row << list->topLevelItem(r)->text(c);
            rows.push_back(row);
        }
        window->close();
    });
    EXPECT_EQ(RunUpdateCheck(fixture.Ws(), &fixture.Window()), 0);
    const QString version = QString::fromStdString(ProgramFileVersion());
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0], (QStringList{"TORMEL64.EXE", "Program", "Version " + version, "Version 99.0.0.1"}));
    EXPECT_EQ(rows[1], (QStringList{"EQUILIB.RW64", "Database file", "not installed", "Version 1.2"}));
    EXPECT_TRUE(fixture.boxes.empty());
}

TEST_F(UpdatesTest, InstallSavesTheSetupProgramAndSaysWhere) {
    site.Serve("setup64.exe", "MZ setup");
    UpdatesWindow window(fixture.Ws(), {{"TORMEL64.EXE", "Program", "Version 0.1", "Version 9.0"}}, &fixture.Window());
    window.Install();
    EXPECT_EQ(site.Requests("setup64.exe"), 1);
    EXPECT_TRUE(window.Access()->text().endsWith(QStringLiteral("/setup64.exe"))) << window.Access()->text().toStdString();
    EXPECT_FALSE(window.InstallButton()->isEnabled());
    site.Remove("setup64.exe");
    UpdatesWindow failing(fixture.Ws(), {}, &fixture.Window());
    failing.Install();
    EXPECT_EQ(LastMessage(), Text("Updates", "ErrorDownLoad"));
}

TEST_F(UpdatesTest, UnreachableSiteOrMalformedListSaysNoVersionInformation) {
    site.Serve("avlbl64.txt", "TORMEL64.EXE,99.0.0.1\r\n");  // not UTF-16
    EXPECT_EQ(RunUpdateCheck(fixture.Ws(), &fixture.Window()), 0);
    ASSERT_EQ(fixture.boxes.size(), 1u);
    EXPECT_EQ(fixture.boxes[0].icon, IconWarning);
    EXPECT_EQ(LastMessage(), Text("Updates", "NoVerInfo"));

    QTcpServer closed;
    closed.listen(QHostAddress::LocalHost);
    const std::string unreachable = "http://127.0.0.1:" + std::to_string(closed.serverPort()) + "/";
    closed.close();
    fixture.Ws().settings.WriteSettingString("Links", "UpdateSite", unreachable);
    EXPECT_EQ(RunUpdateCheck(fixture.Ws(), &fixture.Window()), 0);
    ASSERT_EQ(fixture.boxes.size(), 2u);
    EXPECT_EQ(LastMessage(), Text("Updates", "NoVerInfo"));
}

TEST_F(UpdatesTest, DocumentIsFetchedOnceAndAgainOnlyWhenItsSignatureIsNewer) {
    Workspace& ws = fixture.Ws();
    ws.settings.WriteSettingBool("Options", "Check_Updates", true);
    site.Serve("manual64.pdf", "%PDF-1.4 first");
    site.Serve("manual64.pdf.dtsig", test::Utf16Text(QStringLiteral("2000-01-01\n")));
    const std::string path = ws.folders.documentsFolder + "manual64.pdf";

    OpenDocument(ws, &fixture.Window(), "manual64.pdf");
    OpenDocument(ws, &fixture.Window(), "manual64.pdf");
    EXPECT_EQ(site.Requests("manual64.pdf"), 1);
    EXPECT_EQ(site.Requests("manual64.pdf.dtsig"), 1);  // the first opening needs no signature
    ASSERT_EQ(fixture.links.size(), 2u);
    EXPECT_EQ(fixture.links[1], "file://" + path);

    site.Serve("manual64.pdf", "%PDF-1.4 second");
    site.Serve("manual64.pdf.dtsig", test::Utf16Text(QStringLiteral("9999-12-31\n")));
    OpenDocument(ws, &fixture.Window(), "manual64.pdf");
    EXPECT_EQ(site.Requests("manual64.pdf"), 2);

    ws.settings.WriteSettingBool("Options", "Check_Updates", false);
    OpenDocument(ws, &fixture.Window(), "manual64.pdf");
    EXPECT_EQ(site.Requests("manual64.pdf.dtsig"), 2);  // no network access with the check off
    EXPECT_TRUE(fixture.boxes.empty()) << LastMessage();

    test::TempFolder program;  // a program folder that ships no documents
    ws.folders.programFolder = program.Path();
    OpenDocument(ws, &fixture.Window(), "document64.pdf");  // not on the site
    EXPECT_EQ(LastMessage(), Text("TOOLS", "DocDownLError") + " document64.pdf");
    EXPECT_EQ(fixture.links.size(), 4u);

    // without a web site, the copy shipped with the program is opened
    fs::create_directories(program.File("Documents"));
    std::ofstream(program.File("Documents/document64.pdf"), std::ios::binary) << "%PDF-1.4 shipped";
    ws.settings.WriteSettingString("Links", "UpdateSite", "");
    fixture.boxes.clear();
    OpenDocument(ws, &fixture.Window(), "document64.pdf");
    EXPECT_TRUE(fixture.boxes.empty()) << LastMessage();
    EXPECT_EQ(test::ReadBytes(ws.folders.documentsFolder + "document64.pdf"), "%PDF-1.4 shipped");
}

}  // namespace
}  // namespace tormel
