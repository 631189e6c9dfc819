// A second start hands its file to the running program, which refuses it
// while busy.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <thread>

#include "ui/desktop_fixture.h"

namespace tormel {
namespace {

// Sends from another thread while this one serves the running instance.
int HandOver(const std::string& path) {
    int answer = -1;
    std::thread sender([&] { answer = SendHandover(QString::fromStdString(path), 275, test::TestInstanceName(), 5000); });
    while (answer < 0) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    sender.join();
    return answer;
}

TEST(SingleInstance, HandoverOpensTheFileAndIsRefusedWhileBusy) {
    test::StartedDesktop fixture;
    ASSERT_TRUE(fixture.session->Server().IsListening());
    const std::string input = fixture.ExampleInput();

    fixture.Ws().uiReady = false;
    EXPECT_EQ(HandOver(input), 0) << "busy: refused";
    EXPECT_EQ(fixture.Window().StatusText(), "Input data: program defaults");

    fixture.Ws().uiReady = true;
    EXPECT_EQ(HandOver(input), 1);
    EXPECT_EQ(fixture.Window().StatusText().toStdString(), "Input data: " + input);
    EXPECT_EQ(fixture.Ws().input.currentInputFile, input);

    EXPECT_EQ(HandOver(fixture.Ws().folders.inputFolder + "notes.csv"), 1) << "other files are taken and ignored";
    EXPECT_EQ(fixture.Ws().input.currentInputFile, input);
    EXPECT_EQ(fixture.Window().ReceiveHandover(276, QStringLiteral("x.i64")), 0) << "another data code";

}

TEST(SingleInstance, MessageCarriesCodeByteCountAndZeroTerminatedPath) {
    const QByteArray message = HandoverMessage(275, QStringLiteral("a.i64"));
    ASSERT_EQ(message.size(), 8 + 12);
    EXPECT_EQ(static_cast<unsigned char>(message[0]) | static_cast<unsigned char>(message[1]) << 8, 275);
    EXPECT_EQ(message[4], 12) << "(5 characters + 1) * 2 bytes";
    EXPECT_EQ(message[8], 'a');
    EXPECT_EQ(message[18], 0);
    EXPECT_EQ(message[19], 0);
}

}  // namespace
}  // namespace tormel
