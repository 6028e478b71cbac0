#pragma once
// The browser port: web pages are shown by a program of its own, started when the first page is asked for and
// ended when its window goes. Its faults stay its own.

#include <qwindowdefs.h>

#include <QObject>
#include <QProcess>
#include <QSize>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/signal.h"
#include "ports/services.h"

namespace lumidex {

class QtBrowser final : public QObject, public Browser {
 public:
  // Refused: nobody's pages are shown to the administrator's account.
  enum class State { Idle, Running, Missing, Ended, Refused };

  // `program` is the path of the program for web pages; `environment` stands in its environment besides ours.
  explicit QtBrowser(QString program, QStringList environment = {});
  ~QtBrowser() override;

  // Never raise: where pages can't be shown, none is busy, and all are called so.
  void Navigate(int browser, const std::string& address) override;
  bool Busy(int browser) const override;
  std::string LocationName(int browser) const override;

  State GetState() const { return state_; }
  // Whether pages can be shown inside of our windows; else they stand in windows of their own.
  static bool PagesAreInside();
  // Where the browser was sent last.
  std::string Address(int browser) const;
  // Puts its page into a window of ours, of so many device pixels.
  void Place(int browser, WId window, QSize devicePixels);
  // For pages in windows of their own.
  void Show(int browser, bool shown);
  // Ends the program; the next page starts it anew.
  void End();

  Signal<> StateChanged;

 private:
  struct Page {
    QString address, title;
    bool busy = false;
  };
  Page& PageOf(int browser);
  const Page* Find(int browser) const;
  bool Start();
  void Say(const QString& line);
  void Hear(const QString& line);
  void SetState(State state);
  bool IsWithoutPages() const { return state_ != State::Idle && state_ != State::Running; }

  const QString program_;
  const QStringList environment_;
  std::unique_ptr<QProcess> process_;
  std::vector<Page> pages_;
  State state_ = State::Idle;
};

}  // namespace lumidex
