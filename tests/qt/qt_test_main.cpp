// Runs the tests of the front end without a display. Whatever Qt has to complain about fails the test in
// which it happens.

#include <gtest/gtest.h>

#include <QApplication>

namespace {

void FailOnMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtDebugMsg || type == QtInfoMsg) return;
  // The screen that nobody sees can't do these two and says so at every window.
  if (text.contains("This plugin does not support")) return;
  ADD_FAILURE() << "Qt says: " << text.toStdString();
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  QApplication application(argc, argv);
  QApplication::setStyle("Fusion");
  QApplication::setQuitOnLastWindowClosed(false);
  qInstallMessageHandler(&FailOnMessage);
  return RUN_ALL_TESTS();
}
