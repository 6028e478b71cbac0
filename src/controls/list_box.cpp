#include "controls/list_box.h"

#include <algorithm>

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"

namespace lumidex {
namespace {

// Sorts what comes in stretches that are in order each, as files do that are found folder by folder: the
// stretches are put in order, and only those that reach into each other are looked at entry by entry. Keeps
// the order of equals.
template <class Item, class Before>
void SortRuns(std::vector<Item>& items, const Before& before) {
  struct Run {
    std::size_t begin, end;
  };
  std::vector<Run> runs;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i == 0 || before(items[i], items[i - 1])) runs.push_back({i, i});
    runs.back().end = i + 1;
  }
  if (runs.size() > items.size() / 4) {
    std::ranges::stable_sort(items, before);
    return;
  }
  std::ranges::stable_sort(runs, [&](Run a, Run b) { return before(items[a.begin], items[b.begin]); });
  std::vector<Item> ordered;
  ordered.reserve(items.size());
  for (Run& run : runs) {
    const std::size_t begin = ordered.size();
    for (std::size_t i = run.begin; i < run.end; ++i) ordered.push_back(std::move(items[i]));
    run = {begin, ordered.size()};
  }
  items = std::move(ordered);
  const auto at = [&](std::size_t place) { return items.begin() + static_cast<std::ptrdiff_t>(place); };
  for (; runs.size() > 1; runs.resize((runs.size() + 1) / 2)) {
    for (std::size_t i = 0; i + 1 < runs.size(); i += 2) {
      const std::size_t middle = runs[i].end, end = runs[i + 1].end;
      if (before(items[middle], items[middle - 1])) {
        std::inplace_merge(at(runs[i].begin), at(middle), at(end), before);
      }
      runs[i / 2] = {runs[i].begin, end};
    }
    if (runs.size() % 2 == 1) runs[runs.size() / 2] = runs.back();
  }
}

}  // namespace
ListBox::ListBox(Form& owner, std::string name, ListStyle style)
    : Control(owner, std::move(name)), style_(style) {}

std::optional<std::string> ListBox::ReadProperty(std::string_view name) {
  if (name == "ListCount") return Number(ListCount());
  if (name == "ListIndex") return Number(ListIndex());
  if (name == "Text") return Text();
  if (const auto index = Argument(name, "List")) return List(*index);
  if (const auto index = Argument(name, "Selected")) return Selected(*index) ? "True" : "False";
  return Control::ReadProperty(name);
}

bool ListBox::WriteProperty(std::string_view name, std::string_view text) {
  if (name == "ListIndex") {
    SetListIndex(ToInt32(Val(text)));
    return true;
  }
  if (const auto index = Argument(name, "Selected")) {
    SetSelected(*index, text == "True");
    return true;
  }
  return Control::WriteProperty(name, text);
}

void ListBox::KeepDesign() {
  Control::KeepDesign();
  Settle();
  design_ = items_;
}

void ListBox::RestoreDesign() {
  Control::RestoreDesign();
  Clear();
  if (design_.empty()) return;
  items_ = design_;
  ItemsChanged.Emit({ListChange::Kind::Replaced});
}

void ListBox::CheckPosition(int index) const {
  if (index < 0 || index >= ListCount()) throw RunTimeError(ErrorNumber::InvalidCall);
}

void ListBox::AddItem(std::string text, int index) {
  const int count = ListCount();
  if (count >= Capacity) throw RunTimeError(ErrorNumber::OutOfMemory);
  if (index < -1 || index > count) throw RunTimeError(ErrorNumber::InvalidCall);
  if (style_ == ListStyle::Sorted) {
    unsettled_.push_back({std::move(text)});
    // One notice until somebody looks: a search adds thousands before the window is drawn again.
    if (unsettled_.size() == 1) ItemsChanged.Emit({ListChange::Kind::Replaced});
    return;
  }
  if (index == -1) index = count;
  items_.insert(items_.begin() + index, {std::move(text)});
  if (selected_ >= index) ++selected_;
  ItemsChanged.Emit({ListChange::Kind::Inserted, index});
}

void ListBox::RemoveItem(int index) {
  Settle();
  CheckPosition(index);
  items_.erase(items_.begin() + index);
  if (selected_ == index) {
    selected_ = -1;
  } else if (selected_ > index) {
    --selected_;
  }
  ItemsChanged.Emit({ListChange::Kind::Removed, index});
}

void ListBox::Clear() {
  if (items_.empty() && unsettled_.empty()) return;
  items_.clear();
  unsettled_.clear();
  selected_ = -1;
  ItemsChanged.Emit({ListChange::Kind::Replaced});
}

std::int16_t ListBox::ListCount() const {
  return static_cast<std::int16_t>(items_.size() + unsettled_.size());
}

std::string ListBox::List(int index) const {
  Settle();
  if (index < 0 || index >= ListCount()) return {};
  return items_[static_cast<std::size_t>(index)].text;
}

std::int16_t ListBox::ListIndex() const {
  if (selected_ >= 0) Settle();
  return static_cast<std::int16_t>(selected_);
}

void ListBox::SetListIndex(int index) {
  Settle();
  if (index < -1 || index >= ListCount()) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
  if (index == selected_) return;
  selected_ = index;
  ItemsChanged.Emit({ListChange::Kind::Selection, index});
  OnClick();
}

bool ListBox::Selected(int index) const {
  Settle();
  CheckPosition(index);
  if (style_ == ListStyle::CheckBoxes) return items_[static_cast<std::size_t>(index)].ticked;
  return index == selected_;
}

void ListBox::SetSelected(int index, bool selected) {
  Settle();
  CheckPosition(index);
  if (style_ == ListStyle::CheckBoxes) {
    Item& item = items_[static_cast<std::size_t>(index)];
    if (item.ticked == selected) return;
    item.ticked = selected;
    ItemsChanged.Emit({ListChange::Kind::Ticks, index});
    OnItemCheck(index);
  } else if (selected) {
    SetListIndex(index);
  } else if (index == selected_) {
    SetListIndex(-1);
  }
}

void ListBox::UserSelect(int index) {
  if (!UserMayAct()) return;
  Settle();
  if (index < 0 || index >= ListCount()) return;
  if (index != selected_) {
    selected_ = index;
    ItemsChanged.Emit({ListChange::Kind::Selection, index});
  }
  OnClick();
}

void ListBox::UserDoubleClick() {
  if (UserMayAct()) OnDblClick();
}

void ListBox::UserTick(int index, bool ticked) {
  if (UserMayAct()) SetSelected(index, ticked);
}

void ListBox::Settle() const {
  if (unsettled_.empty()) return;
  const auto before = [](const Item& a, const Item& b) { return CompareText(a.text, b.text) < 0; };
  SortRuns(unsettled_, before);
  if (items_.empty()) return items_.swap(unsettled_);
  const auto first = static_cast<std::ptrdiff_t>(items_.size());
  if (selected_ >= 0) {
    const Item& selected = items_[static_cast<std::size_t>(selected_)];
    const auto place = std::ranges::lower_bound(unsettled_, selected, before);
    selected_ += static_cast<int>(place - unsettled_.begin());
  }
  items_.insert(items_.end(), std::make_move_iterator(unsettled_.begin()),
                std::make_move_iterator(unsettled_.end()));
  unsettled_.clear();
  std::inplace_merge(items_.begin(), items_.begin() + first, items_.end(), before);
}

}  // namespace lumidex
