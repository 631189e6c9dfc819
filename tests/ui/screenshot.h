#pragma once
// Pictures of the windows for a person to look at: taken by
// scripts/screenshots.sh under Xvfb (TORMEL_SCREENSHOTS=1), skipped otherwise.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QWidget>
#include <string>

namespace tormel::test {

inline bool ScreenshotsWanted() { return qgetenv("TORMEL_SCREENSHOTS") == "1"; }

inline std::string ScreenshotLanguage() {
    return qgetenv("TORMEL_SCREENSHOT_LANG") == "de" ? "deutsch.lang" : "0default.lang";
}

// The file of picture `name` in the screenshot folder, which is created.
inline QString ScreenshotPath(const QString& name, const QString& extension = QStringLiteral(".png")) {
    const QByteArray dir = qgetenv("TORMEL_SCREENSHOT_DIR");
    const QString folder = dir.isEmpty() ? QString::fromLatin1(TORMEL_SCREENSHOT_DIR) : QString::fromLocal8Bit(dir);
    QDir().mkpath(folder);
    return folder + QLatin1Char('/') + name + QString::fromLocal8Bit(qgetenv("TORMEL_SCREENSHOT_SUFFIX")) + extension;
}

// Shows the widget, lets it paint and saves it as picture `name`.
inline void SaveScreenshot(QWidget* widget, const QString& name) {
    widget->show();
    for (int i = 0; i < 10; ++i) QApplication::processEvents();
    ASSERT_TRUE(widget->grab().save(ScreenshotPath(name))) << name.toStdString();
}

}  // namespace tormel::test
