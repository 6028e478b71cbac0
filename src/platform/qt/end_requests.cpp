#include "platform/qt/end_requests.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <utility>

namespace lumidex {
namespace {

constexpr std::array signals{SIGTERM, SIGHUP, SIGINT};

EndRequests* present = nullptr;
std::array<int, 2> pipeEnds{-1, -1};
std::atomic<bool> asked{false};

// May do next to nothing: the event thread is told through a pipe.
void WhenSignalled(int) {
  asked = true;
  const int before = errno;
  const char byte = 0;
  // Full, it has told already.
  [[maybe_unused]] const ssize_t written = write(pipeEnds[1], &byte, 1);
  errno = before;
}

}  // namespace

EndRequests::EndRequests(std::function<void()> end, std::function<void()> save)
    : end_(std::move(end)), save_(std::move(save)) {
  present = this;
  asked = false;
  if (pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) == 0) {
    auto* notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
      std::array<char, 16> bytes{};
      while (read(pipeEnds[0], bytes.data(), bytes.size()) > 0) {
      }
      end_();
    });
    struct sigaction action {};
    action.sa_handler = &WhenSignalled;
    action.sa_flags = SA_RESTART;
    for (const int signal : signals) sigaction(signal, &action, nullptr);
  }
  connect(
      qApp, &QGuiApplication::commitDataRequest, this, [this](QSessionManager&) { save_(); },
      Qt::DirectConnection);
  qApp->installEventFilter(this);
  // The connection to the display ends the process by itself when it breaks.
  static const bool watches = std::atexit(&EndRequests::WhenLeaving) == 0;
  static_cast<void>(watches);
}

EndRequests::~EndRequests() {
  present = nullptr;
  for (const int signal : signals) std::signal(signal, SIG_DFL);
  for (int& end : pipeEnds) {
    if (end >= 0) close(end);
    end = -1;
  }
}

bool EndRequests::IsAsked() {
  return asked;
}

bool EndRequests::eventFilter(QObject* watched, QEvent* event) {
  if (watched != qApp || event->type() != QEvent::Quit) return false;
  end_();
  return true;
}

void EndRequests::WhenLeaving() {
  if (!present) return;
  // Saving could leave once more.
  std::exchange(present, nullptr)->save_();
  // Threads of the program still run: what they use is not taken away under them.
  std::_Exit(EXIT_FAILURE);
}

}  // namespace lumidex
