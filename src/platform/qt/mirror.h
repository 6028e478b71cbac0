#pragma once
// The tie between a control and its widget: after the control has changed, its state is pushed into the
// widget, once for each turn of the event loop however often it changed.

#include <QObject>
#include <QPointer>
#include <functional>
#include <vector>

#include "controls/element.h"
#include "ports/event_queue.h"

namespace lumidex {

class Mirror;

// The mirrors of one window that have something to push.
class PushQueue final : public QObject {
 public:
  explicit PushQueue(EventQueue& events) : events_(events) {}
  void Add(Mirror& mirror);
  // Pushes everything that waits, now.
  void Flush();
  bool event(QEvent* event) override;

 private:
  friend class Mirror;
  void Push(Mirror& mirror);

  EventQueue& events_;
  std::vector<QPointer<Mirror>> waiting_;
  bool posted_ = false;
};

class Mirror final : public QObject {
 public:
  // Ends with the widget, whose child it is, or with the element, whichever goes first. `push` reads the
  // element and writes the widget; it is run here for the first time. What it writes must not look like a
  // user's gesture; what it raises comes to the program's report.
  Mirror(PushQueue& queue, Element& element, QObject* widget, std::function<void()> push);
  // One that nothing but MarkChanged leads to: its push comes behind all that are waiting then.
  Mirror(PushQueue& queue, QObject* widget, std::function<void()> push);

  void MarkChanged();
  bool IsWaiting() const { return waiting_; }

 private:
  friend class PushQueue;
  QPointer<PushQueue> queue_;
  std::function<void()> push_;
  Connection changes_, end_;
  bool waiting_ = false;
};

}  // namespace lumidex
