#include "controls/ranges.h"

#include <algorithm>
#include <utility>

#include "base/run_time_error.h"

namespace lumidex {

RangeControl::RangeControl(Form& owner, std::string name, int min, int max, int value)
    : Control(owner, std::move(name)),
      Min(*this, "Min", min, ruled<int, nullptr, &KeepInside>),
      Max(*this, "Max", max, ruled<int, nullptr, &KeepInside>),
      Value(*this, "Value", value, ruled<int, &RefuseOutside, &Fire>) {}

void RangeControl::RefuseOutside(Element& owner, const int& value) {
  const auto& range = static_cast<RangeControl&>(owner);
  // A scroll bar may run backwards, with Min above Max.
  const auto [low, high] = std::minmax(range.Min.Get(), range.Max.Get());
  if (value < low || value > high) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
}

void RangeControl::KeepInside(Element& owner) {
  auto& range = static_cast<RangeControl&>(owner);
  range.Value = range.Within(range.Value);
}

int RangeControl::Within(int value) const {
  const auto [low, high] = std::minmax(Min.Get(), Max.Get());
  return std::clamp(value, low, high);
}

void RangeControl::UserSet(int value) {
  if (UserMayAct()) Value = Within(value);
}

void RangeControl::UserDrag(int value) {
  if (!UserMayAct()) return;
  if (!beforeDrag_) beforeDrag_ = Value.Get();
  Value.SetQuietly(Within(value));
  OnScroll();
}

void RangeControl::UserDrop() {
  const std::optional<int> before = std::exchange(beforeDrag_, std::nullopt);
  if (before && !(Value == *before)) OnChange();
}

}  // namespace lumidex
