// "/print:" end to end: an example water is calculated into an output file,
// which is then printed without a dialog to a PDF beside it; the PDF's pages
// and text are checked with poppler's tools, and its pages are saved as PNG.
#include "ui/output/print_without_dialog.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <string>

#include <QPdfWriter>

#include "output/result_store.h"
#include "shell/command_line.h"
#include "shell/command_line_handler.h"
#include "shell/headless_ui.h"
#include "shell/startup.h"
#include "support/scoped_env.h"
#include "support/temp_folder.h"
#include "ui/output/result_print.h"

namespace tormel {
namespace {

std::string Shell(const std::string& command) {
    std::string out;
    if (FILE* pipe = popen(command.c_str(), "r")) {
        char buffer[4096];
        size_t n = 0;
        while ((n = fread(buffer, 1, sizeof buffer, pipe)) > 0) out.append(buffer, n);
        pclose(pipe);
    }
    return out;
}

bool HavePoppler() { return std::system("command -v pdftotext >/dev/null 2>&1 && command -v pdfinfo >/dev/null 2>&1") == 0; }

// Skips where poppler-utils is missing, but fails in CI, whose set-up installs it.
#define REQUIRE_POPPLER()                                                                           \
    do {                                                                                            \
        if (HavePoppler()) break;                                                                   \
        if (std::getenv("CI")) FAIL() << "poppler-utils (pdfinfo, pdftotext) must be installed in CI"; \
        GTEST_SKIP() << "poppler-utils (pdfinfo, pdftotext) not installed";                         \
    } while (0)

int PdfPages(const std::string& pdf) {
    const std::string info = Shell("pdfinfo '" + pdf + "' 2>/dev/null");
    const size_t at = info.find("Pages:");
    return at == std::string::npos ? -1 : std::atoi(info.c_str() + at + 6);
}

class PrintOutputFile : public testing::Test {
protected:
    void SetUp() override {
        env.Set(home.Path());
        output = home.File("hard water.o64");
        Workspace ws(ResolveFolders(), ui);
        StartupHooks hooks;
        hooks.offerGettingStarted = false;
        const StartupOutcome run = InitializeApplication(
            ws, NormaliseCommandLine({"/run:" TORMEL_SOURCE_DIR "/data/examples/hard_water.i64", output}), hooks, {});
        ASSERT_TRUE(run.endProcess);
        ASSERT_EQ(run.exitCode, 0);
        ASSERT_TRUE(std::filesystem::exists(output));
    }

    // Runs "/print:" as the desktop program does; answers what was printed
    // and how many components the tables list.
    PrintJobOutcome Print(const std::function<void(Settings&)>& configure, int* listed = nullptr) {
        Workspace ws(ResolveFolders(), ui);
        configure(ws.settings);
        StartupHooks hooks;
        hooks.offerGettingStarted = false;
        CommandLineServices services;
        PrintJobOutcome outcome;
        services.printOutput = [&](Workspace& w, const std::string& path) {
            outcome = PrintLoadedOutputWithoutDialog(w, path);
            if (listed) {
                *listed = 0;
                for (const ComponentResult& c : ViewSet(w.results, 0).components)
                    *listed += c.kind == ComponentType::Cation || c.kind == ComponentType::Ligand || c.kind == ComponentType::Gas;
            }
        };
        InitializeApplication(ws, NormaliseCommandLine({"/print:" + output}), hooks, services);
        return outcome;
    }

    test::TempFolder home;
    test::ScopedEnv env{"TORMEL64_HOME", std::nullopt};
    UiServices ui = MakeHeadlessUi();
    std::string output;
};

TEST_F(PrintOutputFile, WithoutPrinterWritesAllPagesToAPdfBesideTheOutputFile) {
    REQUIRE_POPPLER();
    int listed = 0;
    const PrintJobOutcome outcome = Print([](Settings&) {}, &listed);
    const std::string pdf = home.File("hard water.pdf");
    EXPECT_TRUE(outcome.toPdf);
    EXPECT_EQ(outcome.target, pdf);
    ASSERT_TRUE(std::filesystem::exists(pdf));
    ASSERT_GT(listed, 2);
    // With pie charts every component starts a page; "Other info" follows.
    EXPECT_GE(outcome.pages, listed + 1);
    EXPECT_EQ(PdfPages(pdf), outcome.pages);

    const std::string text = Shell("pdftotext -layout '" + pdf + "' - 2>/dev/null");
    for (const char* expected : {"Summary", "Details", "Fractions", "Species", "Other information", "General",
                                 "Ca", "Mg", "CO3", "Dissolved", "(intrinsic)", "hard water.o64"})
        EXPECT_NE(text.find(expected), std::string::npos) << expected;
    // pdftotext may drop the blanks around the slash
    EXPECT_TRUE(std::regex_search(text, std::regex("\\b1 ?/ ?" + std::to_string(outcome.pages) + "\\b")))
        << "page numbers n / N";
}

TEST_F(PrintOutputFile, PrintingChoicesShapeThePages) {
    REQUIRE_POPPLER();
    const int all = Print([](Settings&) {}).pages;
    // Tables only: components no longer start pages, so fewer pages.
    const PrintJobOutcome tablesOnly = Print([](Settings& s) {
        s.WriteSettingBool("Output", "PrintGraphs", false);
        s.WriteSettingBool("Output", "PrintOtherInfo", false);
        s.WriteSettingString("Output", "Printer", "results.PDF");
    });
    EXPECT_TRUE(tablesOnly.toPdf) << "a .pdf printer name prints to PDF";
    EXPECT_LT(tablesOnly.pages, all);
    std::string text = Shell("pdftotext '" + tablesOnly.target + "' - 2>/dev/null");
    EXPECT_EQ(text.find("Other information"), std::string::npos);
    EXPECT_EQ(text.find("Fractions"), std::string::npos);

    // Landscape with a larger font and nothing but the summaries.
    const PrintJobOutcome summaries = Print([](Settings& s) {
        s.WriteSettingBool("Output", "PrintDetails", false);
        s.WriteSettingBool("Output", "PrintGraphs", false);
        s.WriteSettingBool("Output", "PrintOtherInfo", false);
        s.WriteSettingInt("Output", "Orientation", 2);
        s.WriteSettingInt("Output", "PrintFontSize", 14);
    });
    EXPECT_LE(summaries.pages, tablesOnly.pages);
    text = Shell("pdftotext '" + summaries.target + "' - 2>/dev/null");
    EXPECT_EQ(text.find("log K (intrinsic)"), std::string::npos);
    EXPECT_NE(text.find("Summary"), std::string::npos);
    const std::string info = Shell("pdfinfo '" + summaries.target + "' 2>/dev/null");
    EXPECT_NE(info.find("842 x 595 pts (A4)"), std::string::npos) << "A4 landscape\n" << info;
}

TEST_F(PrintOutputFile, UnknownPrinterFallsBackToPdf) {
    const PrintJobOutcome outcome = Print([](Settings& s) { s.WriteSettingString("Output", "Printer", "No Such Printer 42"); });
    EXPECT_TRUE(outcome.toPdf);
    EXPECT_GT(outcome.pages, 0);
    EXPECT_TRUE(std::filesystem::exists(outcome.target));
}

TEST(PrintResultSet, AnEmptySetPrintsOnePage) {
    test::TempFolder folder;
    Workspace ws;
    QPdfWriter pdf(QString::fromStdString(folder.File("empty.pdf")));
    EXPECT_EQ(CountResultPages(pdf, ws, 0, PrintSettings{}, QStringLiteral("empty.o64")), 1);
    EXPECT_EQ(PrintResultSet(pdf, ws, 0, PrintSettings{}, QStringLiteral("empty.o64")), 1);
}

TEST(PdfPathBeside, ReplacesTheExtension) {
    EXPECT_EQ(PdfPathBeside("/a/b/water.o64"), "/a/b/water.pdf");
    EXPECT_EQ(PdfPathBeside("/a/b.c/water.sample.O64"), "/a/b.c/water.sample.pdf");
    EXPECT_EQ(PdfPathBeside("/a/noext"), "/a/noext.pdf");
}

}  // namespace
}  // namespace tormel
