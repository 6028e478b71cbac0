#pragma once
// The list control: plain, sorted, or with a check box before each entry. Single selection.

#include "controls/control.h"

namespace lumidex {

enum class ListStyle { Plain, Sorted, CheckBoxes };

struct ListChange {
  enum class Kind { Inserted, Removed, Replaced, Selection, Ticks } kind;
  int position = -1;
};

class ListBox final : public Control {
 public:
  // Positions are signed 16-bit, so this is the most a list can hold.
  static constexpr int Capacity = 32767;

  ListBox(Form& owner, std::string name, ListStyle style = ListStyle::Plain);

  std::string_view Kind() const override { return "ListBox"; }
  // Also ListCount, ListIndex, Text, List(n) and Selected(n).
  std::optional<std::string> ReadProperty(std::string_view name) override;
  bool WriteProperty(std::string_view name, std::string_view text) override;
  bool CanTakeFocus() const override { return true; }
  // The entries that stand in the list by design come back with the rest.
  void KeepDesign() override;
  void RestoreDesign() override;

  Property<std::int32_t> BackColor{*this, "BackColor", -1};
  ListStyle Style() const { return style_; }

  // Appends, or inserts before `index` (0 to the count); a sorted list finds the place itself. The 32,768th
  // entry raises OutOfMemory, an index outside raises InvalidCall. An insertion above the selection moves it
  // along.
  void AddItem(std::string text, int index = -1);
  // Raises InvalidCall outside. Removing the selected entry leaves no selection, without an event.
  void RemoveItem(int index);
  void Clear();

  std::int16_t ListCount() const;
  // Empty outside the list, so List(ListIndex()) can always be read.
  std::string List(int index) const;
  std::string Text() const { return List(ListIndex()); }

  // -1 when there is none. Writing fires Click when, and only when, the selection changes; a position outside
  // raises InvalidPropertyValue.
  std::int16_t ListIndex() const;
  void SetListIndex(int index);
  // The selected flag, or the tick in a list with check boxes. Raises InvalidCall outside.
  bool Selected(int index) const;
  void SetSelected(int index, bool selected);

  Event<> OnClick, OnDblClick;
  Event<int> OnItemCheck;

  // A click or an arrow key of the user: always fires Click.
  void UserSelect(int index);
  void UserDoubleClick();
  void UserTick(int index, bool ticked);

  Signal<ListChange> ItemsChanged;

 private:
  struct Item {
    std::string text;
    bool ticked = false;
  };
  // Brings the entries that were added to a sorted list into their places: adding alone costs no shifting.
  void Settle() const;
  void CheckPosition(int index) const;

  ListStyle style_;
  mutable std::vector<Item> items_;
  mutable std::vector<Item> unsettled_;
  mutable int selected_ = -1;
  std::vector<Item> design_;
};

}  // namespace lumidex
