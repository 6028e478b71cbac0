// Runs the tests of the front end without a display. Whatever Qt has to complain about fails the test in
// which it happens.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>

namespace {

void FailOnMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtDebugMsg || type == QtInfoMsg) return;
  // The screen that nobody sees can't do these two and says so at every window.
  if (text.contains("This plugin does not support")) return;
  ADD_FAILURE() << "Qt says: " << text.toStdString();
}

// The fonts of tests are those of the project, whatever the machine has. LUMIDEX_TEST_FONT names another than
// the usual one.
void UseOwnFonts() {
  const QString name = qEnvironmentVariable("LUMIDEX_TEST_FONT", "usual");
  const QString file = QDir::current().absoluteFilePath("tests/fonts/" + name + ".conf");
  if (!QFile::exists(file)) qFatal("There is no %s: tests run in the top folder.", qPrintable(file));
  qputenv("FONTCONFIG_FILE", QFile::encodeName(file));
}

// The usual screen has 800 x 800 pixels. LUMIDEX_TEST_SCREEN=large has more, for tests of scaled windows.
void UseOwnScreen() {
  QByteArray platform("offscreen");
  if (qEnvironmentVariable("LUMIDEX_TEST_SCREEN") == "large")
    platform += ":configfile=tests/qt/large_screen.json";
  qputenv("QT_QPA_PLATFORM", platform);
}

}  // namespace

int main(int argc, char** argv) {
  UseOwnFonts();
  UseOwnScreen();
  testing::InitGoogleTest(&argc, argv);
  QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  QApplication application(argc, argv);
  QApplication::setStyle("Fusion");
  QApplication::setQuitOnLastWindowClosed(false);
  qInstallMessageHandler(&FailOnMessage);
  return RUN_ALL_TESTS();
}
