#include "controls/control_array.h"

#include <algorithm>

#include "base/run_time_error.h"
#include "controls/form.h"

namespace lumidex {

ControlArrayBase::ControlArrayBase(Form& owner, std::string_view name, int first, int last)
    : owner_(owner), name_(name), designFirst_(first), designLast_(last) {
  for (int index = first; index <= last; ++index) indexes_.push_back(index);
  owner.Add(*this);
}

ControlArrayBase::~ControlArrayBase() {
  owner_.Remove(*this);
}

bool ControlArrayBase::Has(int index) const {
  return std::ranges::binary_search(indexes_, index);
}

std::size_t ControlArrayBase::PlaceOf(int index) const {
  const auto found = std::ranges::lower_bound(indexes_, index);
  if (found == indexes_.end() || *found != index) RaiseSubscript();
  return static_cast<std::size_t>(found - indexes_.begin());
}

std::size_t ControlArrayBase::Insert(int index) {
  if (index < 0 || Has(index)) throw RunTimeError(ErrorNumber::InvalidCall);
  const auto place = indexes_.insert(std::ranges::lower_bound(indexes_, index), index);
  return static_cast<std::size_t>(place - indexes_.begin());
}

std::size_t ControlArrayBase::Erase(int index) {
  const std::size_t place = PlaceOf(index);
  if (index >= designFirst_ && index <= designLast_) throw RunTimeError(ErrorNumber::InvalidCall);
  indexes_.erase(indexes_.begin() + static_cast<std::ptrdiff_t>(place));
  return place;
}

void ControlArrayBase::Resemble(Control& element, const Control& first) {
  if (&element == &first) return;
  PropertyBase* own = element.FirstProperty();
  for (const PropertyBase* its = first.FirstProperty(); its; its = its->Next(), own = own->Next()) {
    own->TakeFrom(*its);
  }
  element.Visible.SetQuietly(false);
}

void ControlArrayBase::Announce(Control& element) {
  element.Owner().ControlAdded.Emit(element);
}

}  // namespace lumidex
