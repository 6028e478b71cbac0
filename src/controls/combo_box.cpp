#include "controls/combo_box.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"

namespace lumidex {

std::optional<std::string> ComboBox::ReadProperty(std::string_view name) {
  if (name == "ListCount") return Number(ListCount());
  if (name == "ListIndex") return Number(ListIndex());
  if (const auto index = Argument(name, "List")) return List(*index);
  return Control::ReadProperty(name);
}

bool ComboBox::WriteProperty(std::string_view name, std::string_view text) {
  if (name != "ListIndex") return Control::WriteProperty(name, text);
  SetListIndex(ToInt32(Val(text)));
  return true;
}

void ComboBox::KeepDesign() {
  Control::KeepDesign();
  design_ = items_;
}

void ComboBox::RestoreDesign() {
  Control::RestoreDesign();
  items_ = design_;
  chosen_ = -1;
  Changed.Emit();
}

void ComboBox::AddItem(std::string text, int index) {
  if (index < -1 || index > ListCount()) throw RunTimeError(ErrorNumber::InvalidCall);
  items_.insert(index < 0 ? items_.end() : items_.begin() + index, std::move(text));
  if (index >= 0 && chosen_ >= index) ++chosen_;
  Changed.Emit();
}

void ComboBox::RemoveItem(int index) {
  if (index < 0 || index >= ListCount()) throw RunTimeError(ErrorNumber::InvalidCall);
  items_.erase(items_.begin() + index);
  if (chosen_ == index) {
    chosen_ = -1;
  } else if (chosen_ > index) {
    --chosen_;
  }
  Changed.Emit();
}

void ComboBox::Clear() {
  items_.clear();
  chosen_ = -1;
  Changed.Emit();
}

std::string ComboBox::List(int index) const {
  if (index < 0 || index >= ListCount()) return {};
  return items_[static_cast<std::size_t>(index)];
}

int ComboBox::ListIndex() const {
  return chosen_ >= 0 && Text == List(chosen_) ? chosen_ : -1;
}

void ComboBox::SetListIndex(int index) {
  if (index < -1 || index >= ListCount()) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
  if (index == ListIndex()) return;
  chosen_ = index;
  Text.SetQuietly(List(index));
  OnClick();
}

void ComboBox::UserSelect(int index) {
  if (index < 0 || index >= ListCount() || !UserMayAct()) return;
  chosen_ = index;
  Text.SetQuietly(List(index));
  OnClick();
}

}  // namespace lumidex
