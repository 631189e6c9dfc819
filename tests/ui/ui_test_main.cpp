// The desktop tests need one application object for the whole run.
#include <gtest/gtest.h>

#include <QApplication>
#include <clocale>

int main(int argc, char** argv) {
    // listing the tests (test discovery) runs without a display too
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
