#include "controls/ranges.h"

#include <algorithm>

#include "base/run_time_error.h"

namespace lumidex {

RangeControl::RangeControl(Form& owner, std::string name, int min, int max, int value)
    : Control(owner, std::move(name)),
      Min(*this, min),
      Max(*this, max),
      Value(*this, value, &RefuseOutside, &Fire) {}

void RangeControl::VisitProperties(const PropertyVisitor& visit) {
  Control::VisitProperties(visit);
  visit("Min", Min);
  visit("Max", Max);
  visit("Value", Value);
  visit("SmallChange", SmallChange);
  visit("LargeChange", LargeChange);
}

void RangeControl::RefuseOutside(Element& owner, const int& value) {
  const auto& range = static_cast<RangeControl&>(owner);
  // A scroll bar may run backwards, with Min above Max.
  const auto [low, high] = std::minmax(range.Min.Get(), range.Max.Get());
  if (value < low || value > high) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
}

void RangeControl::UserSet(int value) {
  if (!UserMayAct()) return;
  const auto [low, high] = std::minmax(Min.Get(), Max.Get());
  Value = std::clamp(value, low, high);
}

}  // namespace lumidex
