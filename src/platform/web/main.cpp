// lumidex-browser: shows web pages for the viewer, which starts it and speaks to it over its standard input
// and output. It ends when that input does, so never later than the viewer.

#include <unistd.h>

#include <QApplication>
#include <QSocketNotifier>
#include <array>
#include <cstdlib>

#include "platform/web/pages.h"

namespace {

void Say(const QString& line) {
  const QByteArray bytes = line.toUtf8() + '\n';
  // A viewer that is gone can't be told; the end of the input follows.
  [[maybe_unused]] const ssize_t written =
      write(STDOUT_FILENO, bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

// The engine has no sandbox for root, and pages of others without one are a danger: only who has said himself
// that he does without it gets them.
bool IsUnsafe() {
  return geteuid() == 0 && qEnvironmentVariableIntValue("QTWEBENGINE_DISABLE_SANDBOX") == 0 &&
         !qgetenv("QTWEBENGINE_CHROMIUM_FLAGS").contains("--no-sandbox");
}

}  // namespace

int main(int argc, char** argv) {
  if (IsUnsafe()) {
    Say(QStringLiteral("refused"));
    return EXIT_FAILURE;
  }
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Lumidex"));
  QApplication::setQuitOnLastWindowClosed(false);
  lumidex::Pages pages(&Say);
  QByteArray received;
  QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
    std::array<char, 4096> block;
    const ssize_t count = read(STDIN_FILENO, block.data(), block.size());
    if (count <= 0) return QApplication::quit();
    received.append(block.data(), static_cast<qsizetype>(count));
    for (qsizetype end = received.indexOf('\n'); end >= 0; end = received.indexOf('\n')) {
      const QString line = QString::fromUtf8(received.left(end));
      received.remove(0, end + 1);
      pages.Obey(line);
    }
  });
  return QApplication::exec();
}
