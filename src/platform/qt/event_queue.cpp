#include "platform/qt/event_queue.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>
#include <QMetaObject>
#include <QThread>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace lumidex {

void QtEventQueue::ServePending() {
  QCoreApplication::processEvents();
}

void QtEventQueue::Wait(int milliseconds) {
  // The timer only wakes the loop; without it a quiet desktop would block for ever.
  QTimer wake;
  wake.setSingleShot(true);
  wake.setTimerType(Qt::PreciseTimer);
  wake.start(milliseconds);
  QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void QtEventQueue::RunUntil(const std::function<bool()>& done) {
  if (done()) return;
  QEventLoop loop;
  const auto look = [&] {
    if (done()) loop.quit();
  };
  // Both ends of every turn of this loop and of those nested in it, so that it ends as soon as it may.
  const auto* dispatcher = QAbstractEventDispatcher::instance();
  QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &loop, look);
  QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &loop, look);
  loop.exec();
}

void QtEventQueue::Stall() {
  QThread::msleep(50);
}

// One period at a time: Qt's own repeating timers do not fire inside their own tick, which may serve events.
struct QtEventQueue::Ticking {
  QTimer* timer;
  std::int64_t period;
  std::int64_t due;
  Work tick;
  int running = 0;

  void AwaitNext() {
    const std::int64_t now = Milliseconds();
    due += period;
    // Periods that were missed are merged into one.
    if (due <= now) due = now + period;
    timer->start(static_cast<int>(due - now));
  }
  static std::int64_t Milliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
  }
};

TimerId QtEventQueue::StartTimer(int milliseconds, Work tick) {
  const TimerId id = ++lastTimer_;
  auto timer = std::make_unique<QTimer>();
  timer->setTimerType(Qt::PreciseTimer);
  timer->setSingleShot(true);
  const auto ticking = std::make_shared<Ticking>(
      Ticking{timer.get(), std::max(1, milliseconds), Ticking::Milliseconds(), std::move(tick)});
  QObject::connect(timer.get(), &QTimer::timeout, &receiver_, [this, ticking] {
    // The copy keeps the work alive when it stops its own timer.
    const auto running = ticking;
    running->AwaitNext();
    if (running->running >= mostNestedTicks) return;
    ++running->running;
    Guard(running->tick);
    --running->running;
  });
  ticking->AwaitNext();
  timers_.emplace(id, std::move(timer));
  return id;
}

void QtEventQueue::StopTimer(TimerId timer) {
  const auto found = timers_.find(timer);
  if (found == timers_.end()) return;
  found->second->stop();
  // Not deleted at once: it may be the sender of the very signal that is being served.
  found->second.release()->deleteLater();
  timers_.erase(found);
}

void QtEventQueue::Post(Work work) {
  QMetaObject::invokeMethod(
      &receiver_, [this, work = std::move(work)] { Guard(work); }, Qt::QueuedConnection);
}

void QtEventQueue::EndProcess(int exitCode) {
  std::fflush(nullptr);
  std::_Exit(exitCode);
}

}  // namespace lumidex
