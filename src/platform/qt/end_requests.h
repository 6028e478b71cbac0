#pragma once
// Ends of the program that come from outside: a signal, the end of the session, the loss of the display.

#include <QObject>
#include <functional>

namespace lumidex {

class EndRequests final : public QObject {
 public:
  // `end` runs on the event thread, as soon as events are served, when the program is to end: on the signals
  // TERM, HUP and INT, and when the session's manager says so. `save` runs when the session is about to end,
  // and when the display is lost: then the process is leaving and must do nothing more with windows. There is
  // one at a time.
  EndRequests(std::function<void()> end, std::function<void()> save);
  ~EndRequests() override;

  // A signal has come: for loops that serve no events.
  static bool IsAsked();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static void WhenLeaving();

  std::function<void()> end_;
  std::function<void()> save_;
};

}  // namespace lumidex
