#include "platform/qt/mirror.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <utility>

#include "platform/qt/guarded.h"

namespace lumidex {

int YieldInRoutine::depth_ = 0;
YieldInRoutine::Clock::duration YieldInRoutine::served_{};
std::vector<QPointer<PushQueue>> YieldInRoutine::postponed_;

YieldInRoutine::YieldInRoutine() : since_(Clock::now()) {
  ++depth_;
  std::erase_if(postponed_, [](const QPointer<PushQueue>& queue) {
    if (queue && !queue->IsFrameOver()) return false;
    if (queue) queue->Post();
    return true;
  });
}

YieldInRoutine::~YieldInRoutine() {
  if (--depth_ == 0) served_ += Clock::now() - since_;
}

YieldInRoutine::Clock::duration YieldInRoutine::Frame() {
  using namespace std::chrono_literals;
  constexpr int share = 40;
  return std::clamp<Clock::duration>(share * served_, 16ms, 100ms);
}

void YieldInRoutine::PushPostponed() {
  for (const auto& queue : std::exchange(postponed_, {})) {
    if (queue && queue->posted_) queue->Flush();
  }
}

void PushQueue::Add(Mirror& mirror) {
  (mirror.isLast_ ? last_ : waiting_).emplace_back(&mirror);
  if (!posted_) Post();
}

void PushQueue::Post() {
  posted_ = true;
  QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
}

bool PushQueue::IsFrameOver() const {
  return YieldInRoutine::Clock::now() - flushed_ >= YieldInRoutine::Frame();
}

void PushQueue::Flush() {
  posted_ = false;
  flushed_ = YieldInRoutine::Clock::now();
  YieldInRoutine::BeginFrame();
  // A push can lead to another one, as a resize that the program answers with a layout.
  while (!waiting_.empty() || !last_.empty()) PushAll(waiting_.empty() ? last_ : waiting_);
}

void PushQueue::PushAll(Mirrors& mirrors) {
  const auto batch = std::exchange(mirrors, {});
  for (const auto& mirror : batch) {
    if (!mirror) continue;
    mirror->SetWaiting(false);
    Push(*mirror);
  }
}

void PushQueue::Push(Mirror& mirror) {
  RunGuarded(events_, mirror.push_);
}

bool PushQueue::event(QEvent* event) {
  if (event->type() != QEvent::User) return QObject::event(event);
  if (!posted_) return true;
  if (YieldInRoutine::IsUnderWay() && !IsFrameOver()) {
    YieldInRoutine::Postpone(*this);
  } else {
    Flush();
  }
  return true;
}

Mirror::Mirror(PushQueue& queue, Element& element, QObject* widget, std::function<void()> push)
    : QObject(widget), isLast_(false), queue_(&queue), push_(std::move(push)) {
  changes_ = element.Changed.Connect([this] { MarkChanged(); });
  end_ = element.Ended.Connect([this] { delete this; });
  queue.Push(*this);
}

Mirror::Mirror(PushQueue& queue, QObject* widget, std::function<void()> push)
    : QObject(widget), isLast_(true), queue_(&queue), push_(std::move(push)) {}

void Mirror::MarkChanged() {
  if (waiting_ || !queue_) return;
  SetWaiting(true);
  queue_->Add(*this);
}

void Mirror::SetWaiting(bool waits) {
  waiting_ = waits;
  changes_.Rest(waits);
}

}  // namespace lumidex
