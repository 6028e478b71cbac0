#include "ports/decoding.h"

#include <algorithm>
#include <exception>
#include <new>
#include <utility>

#include "base/run_time_error.h"
#include "pictures/alpha.h"
#include "ports/decoding_work.h"

namespace lumidex {
namespace {

// Leaves the processor's other thread and the memory alone for some dozens of cycles.
void PauseInLoop() {
#if defined(__x86_64__) || defined(__i386__)
  __builtin_ia32_pause();
#elif defined(__aarch64__)
  asm volatile("isb");
#endif
}

// As the program's own drawings are, and most icons: made anew before anybody notices. Where what is painted
// are other pixels than the picture's own, those are not worth their memory.
bool IsSoonMadeAnew(const Picture& picture) {
  const Size size = picture.GetSize();
  return !picture.IsScalable() && std::int64_t{size.width} * size.height <= 1 << 18;
}

}  // namespace

DecodingService::DecodingService(const FileSystem& files, std::size_t budget)
    : files_(files), budget_(budget) {}

DecodingService::~DecodingService() = default;

// Held for less time than it takes to fall asleep and to be woken.
std::unique_lock<std::mutex> DecodingService::Lock() const {
  // About a hundred microseconds, which falling asleep and being woken takes at worst.
  constexpr int tries = 2000;
  std::unique_lock lock(mutex_, std::try_to_lock);
  for (int i = 0; i < tries && !lock; ++i) {
    PauseInLoop();
    static_cast<void>(lock.try_lock());
  }
  if (!lock) lock.lock();
  return lock;
}

std::unique_ptr<DecodingService::Showing> DecodingService::Show(const Picture& picture, Size size,
                                                                DecodingPriority priority, Ready ready) {
  auto order = std::make_shared<Order>(picture, size, priority, std::move(ready));
  auto showing = std::make_unique<Showing>(*this, order);
  const Pixels pixels = picture.ReadyToShow(size);
  if (!pixels.IsEmpty() && !(pixels.Format() == PixelFormat::Argb)) {
    order->state = DecodingState::Decoded;
    order->ready(pixels);
    return showing;
  }
  {
    const auto lock = Lock();
    if (priority == DecodingPriority::Screen) StopOtherSizes(*order);
    orders_.push_back(order);
    hasWaitingOrder_ = true;
  }
  Woken(true);
  return showing;
}

void DecodingService::StopOtherSizes(const Order& order) {
  const Size full = order.picture.GetSize();
  const auto within = [&](Size size) {
    return Size{std::min(size.width, full.width), std::min(size.height, full.height)};
  };
  for (const auto& reading : running_) {
    if (reading->extent == DecodingExtent::Shown && reading->size.width > 0 &&
        reading->opened.picture == order.picture && within(reading->size) != within(order.size))
      reading->stop.request_stop();
  }
}

std::shared_ptr<DecodingService::Order> DecodingService::TakeOrder() {
  const auto lock = Lock();
  std::shared_ptr<Order> first;
  for (const auto& order : orders_) {
    if (!order->isRunning && (!first || order->priority < first->priority)) first = order;
  }
  if (first) first->isRunning = true;
  hasWaitingOrder_ = std::ranges::any_of(orders_, [](const auto& order) { return !order->isRunning; });
  return first;
}

void DecodingService::Run(Order& order) {
  Pixels pixels;
  try {
    pixels = order.picture.PixelsToShow(order.size, order.stop.get_token());
    if (pixels.Format() == PixelFormat::Argb && IsSoonMadeAnew(order.picture)) order.picture.LetGoOfShown();
    pixels = Premultiplied(std::move(pixels));
  } catch (const RunTimeError&) {
    // There is nothing to show then.
  } catch (const std::bad_alloc&) {
  } catch (...) {
    if (OnUnexpected) OnUnexpected(std::current_exception());
  }
  {
    const auto lock = Lock();
    std::erase_if(orders_, [&](const auto& other) { return other.get() == &order; });
    if (order.stop.stop_requested()) return;
    order.state = pixels.IsEmpty() ? DecodingState::Failed : DecodingState::Decoded;
  }
  order.ready(pixels);
}

void DecodingService::Withdraw(const std::shared_ptr<Order>& order) {
  {
    const auto lock = Lock();
    order->stop.request_stop();
    if (!order->isRunning) std::erase(orders_, order);
    // What was read ahead for showing it is of no use either.
    for (const auto& reading : running_) {
      if (reading->isTaken && reading->opened.picture == order->picture && !IsToBeShown(order->picture))
        reading->stop.request_stop();
    }
    StopUnwanted();
  }
  Woken(false);
}

bool DecodingService::IsToBeShown(const Picture& picture) const {
  return std::ranges::any_of(
      orders_, [&](const auto& order) { return !order->stop.stop_requested() && order->picture == picture; });
}

bool DecodingService::RunNextShowing() {
  const std::shared_ptr<Order> order = TakeOrder();
  if (order) Run(*order);
  return order != nullptr;
}

bool DecodingService::RunNext(bool isIdle) {
  if (RunNextShowing()) return true;
  const Taken taken = TakeReadings(isIdle);
  if (taken.readings.empty()) return false;
  if (taken.readings.front()->extent == DecodingExtent::Header) {
    ReadHeaders(taken.readings);
  } else {
    Run(taken.readings.front());
  }
  return true;
}

void DecodingService::StopAll() {
  const auto lock = Lock();
  ends_ = true;
  std::erase_if(orders_, [](const auto& order) { return !order->isRunning; });
  for (const auto& order : orders_) order->stop.request_stop();
  for (const auto& reading : running_) reading->stop.request_stop();
}

DecodingService::Showing::Showing(DecodingService& service, std::shared_ptr<Order> order)
    : service_(service), order_(std::move(order)) {}

DecodingService::Showing::~Showing() {
  if (State() == DecodingState::HeaderKnown) service_.Withdraw(order_);
}

DecodingState DecodingService::Showing::State() const {
  return order_->state;
}

}  // namespace lumidex
