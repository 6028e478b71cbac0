#include "pictures/pace.h"

#include <utility>

namespace lumidex {
namespace {

thread_local Pace* innermost = nullptr;

}  // namespace

Pace::Pace(std::function<void()> pause) : pause_(std::move(pause)), outer_(std::exchange(innermost, this)) {}

Pace::~Pace() {
  innermost = outer_;
}

void Pace::Pause() {
  if (innermost) innermost->pause_();
}

}  // namespace lumidex
