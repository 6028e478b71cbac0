#pragma once
// The tie between a control and its widget: after the control has changed, its state is pushed into the
// widget, once for each turn of the event loop however often it changed.

#include <QObject>
#include <QPointer>
#include <chrono>
#include <functional>
#include <vector>

#include "controls/element.h"
#include "ports/event_queue.h"

namespace lumidex {

class Mirror;
class PushQueue;

// Stands while events are served in the midst of a routine. A routine that goes through thousands of files
// yields far more often than a screen can show anything: windows are then brought up to date with each frame
// instead of with each yield, and where painting takes its time the frames are longer, so that the routine
// has most of it. What the user does is shown at once all the same.
class YieldInRoutine {
 public:
  YieldInRoutine();
  ~YieldInRoutine();
  YieldInRoutine(const YieldInRoutine&) = delete;
  YieldInRoutine& operator=(const YieldInRoutine&) = delete;

  static bool IsUnderWay() { return depth_ > 0; }
  // The queue's turn comes in the first yield of the next frame, or when the routine has ended.
  static void Postpone(PushQueue& queue) { postponed_.emplace_back(&queue); }
  static void PushPostponed();

 private:
  friend class PushQueue;
  using Clock = std::chrono::steady_clock;
  // How long a frame is, by what the last ones took.
  static Clock::duration Frame();
  static void BeginFrame() { served_ = {}; }

  static int depth_;
  static Clock::duration served_;  // the time that yields took since the last frame began
  Clock::time_point since_;
  static std::vector<QPointer<PushQueue>> postponed_;
};

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
  friend class YieldInRoutine;
  using Mirrors = std::vector<QPointer<Mirror>>;

  void Post();
  bool IsFrameOver() const;
  void PushAll(Mirrors& mirrors);
  void Push(Mirror& mirror);

  EventQueue& events_;
  YieldInRoutine::Clock::time_point flushed_{};
  Mirrors waiting_, last_;
  bool posted_ = false;
};

class Mirror final : public QObject {
 public:
  // Ends with the widget, whose child it is, or with the element, whichever goes first. `push` reads the
  // element and writes the widget; it is run here for the first time. What it writes must not look like a
  // user's gesture; what it raises comes to the program's report.
  Mirror(PushQueue& queue, Element& element, QObject* widget, std::function<void()> push);
  // One that nothing but MarkChanged leads to: its push comes behind those of all elements, and so finds what
  // came of them together.
  Mirror(PushQueue& queue, QObject* widget, std::function<void()> push);

  void MarkChanged();
  bool IsWaiting() const { return waiting_; }

 private:
  friend class PushQueue;
  void SetWaiting(bool waits);

  const bool isLast_;
  QPointer<PushQueue> queue_;
  std::function<void()> push_;
  Connection changes_, end_;
  bool waiting_ = false;
};

}  // namespace lumidex
