// Under a user locale with a decimal comma (which Qt makes the process
// locale) the results show the comma while files keep the point.
#include <gtest/gtest.h>

#include "support/comma_locale.h"
#include "support/scoped_env.h"
#include "ui/desktop_fixture.h"

namespace tormel {
namespace {

TEST(DesktopLocale, CommaShownPointWritten) {
    test::ScopedEnv environment("LC_ALL", "de_DE.UTF-8");
    test::CommaLocale comma;
    if (!comma.active()) GTEST_SKIP() << "no locale with a decimal comma installed";
    test::StartedDesktop fixture;
    EXPECT_EQ(fixture.Ws().decimalSeparator.symbol, ",");

    fixture.Window().ReceiveHandover(275, QString::fromStdString(fixture.ExampleInput()));
    const std::string copy = fixture.Ws().folders.inputFolder + "copy.i64";
    fixture.Window().Services().askFileName = [&](bool, const QString&, const std::string&) {
        return std::optional<std::string>(copy);
    };
    fixture.Window().DispatchCommand(1116);
    const std::string written = test::ReadUtf16Text(copy);
    EXPECT_NE(written.find("Ca: 0.002 "), std::string::npos) << written;
    EXPECT_NE(written.find("Convergence criterion: 1.0001"), std::string::npos);
}

}  // namespace
}  // namespace tormel
