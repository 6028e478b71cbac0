#include "platform/qt/event_queue.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QCursor>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMetaObject>
#include <QThread>
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <mutex>
#include <utility>

#include "base/start_thread.h"
#include "platform/qt/end_requests.h"
#include "platform/qt/mirror.h"

namespace lumidex {
namespace {

// Serves paints until `isDone`, which waits for at most so long, answers true. What the user does and what
// the timers bring stays where it is; whatever else comes is kept by those who would serve it.
void PaintUntil(const std::function<bool(std::chrono::milliseconds)>& isDone) {
  using std::chrono::milliseconds;
  constexpr milliseconds unnoticed{30}, between{10}, untilBusySign{500};
  if (isDone(unnoticed)) return;
  QElapsedTimer passed;
  passed.start();
  bool isSignShown = false;
  do {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers |
                                    QEventLoop::X11ExcludeTimers);
    if (!isSignShown && passed.elapsed() >= untilBusySign.count()) {
      isSignShown = true;
      QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
  } while (!isDone(between));
  if (isSignShown) QGuiApplication::restoreOverrideCursor();
}

// Since some moment.
std::int64_t Milliseconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

// The same to the tick of the system's clock, where that is faster to ask than the exact time.
std::int64_t RoughMilliseconds() {
#ifdef CLOCK_MONOTONIC_COARSE
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
#else
  return Milliseconds();
#endif
}

}  // namespace

QtEventQueue::QtEventQueue() {
  // The routine has ended, or waits in a loop of its own.
  if (const auto* dispatcher = QAbstractEventDispatcher::instance()) {
    QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &receiver_,
                     [] { YieldInRoutine::PushPostponed(); });
  }
}

void QtEventQueue::ServePending() {
  // To ask the window system costs more than most routines do between two yields. Nobody can tell whether an
  // event came within this time or behind it.
  constexpr std::int64_t unnoticed = 4;
  const bool isPosted = isPosted_ && isPosted_.exchange(false);
  if (!isPosted && served_ && RoughMilliseconds() < *served_ + unnoticed) return;
  const YieldInRoutine yield;
  QCoreApplication::processEvents();
  served_ = RoughMilliseconds();
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
    // Once only: it wakes the loops further in, which would never rest while this one waits for their end.
    if (loop.isRunning() && done()) loop.quit();
  };
  // Both ends of every turn of this loop and of those nested in it, so that it ends as soon as it may.
  const auto* dispatcher = QAbstractEventDispatcher::instance();
  QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &loop, look);
  QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &loop, look);
  loop.exec();
}

void QtEventQueue::Stall() {
  if (EndRequests::IsAsked()) EndProcess(0);
  QThread::msleep(50);
}

void QtEventQueue::RunAside(const Work& work) {
  if (isAside_) return work();
  std::mutex mutex;
  std::condition_variable changed;
  bool isDone = false;
  std::exception_ptr error;
  const auto thread = StartThread([&] {
    try {
      work();
    } catch (...) {
      error = std::current_exception();
    }
    const std::scoped_lock lock(mutex);
    isDone = true;
    changed.notify_one();
  });
  if (!thread) return work();
  isAside_ = true;
  PaintUntil([&](std::chrono::milliseconds time) {
    std::unique_lock lock(mutex);
    return changed.wait_for(lock, time, [&] { return isDone; });
  });
  isAside_ = false;
  for (Work& waiting : std::exchange(waiting_, {})) Post(std::move(waiting));
  if (error) std::rethrow_exception(error);
}

void QtEventQueue::Serve(const Work& work) {
  if (isAside_) {
    waiting_.push_back(work);
  } else {
    Guard(work);
  }
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
};

TimerId QtEventQueue::StartTimer(int milliseconds, Work tick) {
  const TimerId id = ++lastTimer_;
  auto timer = std::make_unique<QTimer>();
  timer->setTimerType(Qt::PreciseTimer);
  timer->setSingleShot(true);
  const auto ticking = std::make_shared<Ticking>(
      Ticking{timer.get(), std::max(1, milliseconds), Milliseconds(), std::move(tick)});
  QObject::connect(timer.get(), &QTimer::timeout, &receiver_, [this, ticking] {
    // The copy keeps the work alive when it stops its own timer.
    const auto running = ticking;
    running->AwaitNext();
    if (isAside_ || running->running >= mostNestedTicks) return;
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
  isPosted_ = true;
  QMetaObject::invokeMethod(
      &receiver_, [this, work = std::move(work)] { Serve(work); }, Qt::QueuedConnection);
}

void QtEventQueue::EndProcess(int exitCode) {
  // What the last work serves is not the program's any more.
  isAside_ = true;
  if (BeforeEnd) BeforeEnd();
  std::fflush(nullptr);
  std::_Exit(exitCode);
}

}  // namespace lumidex
