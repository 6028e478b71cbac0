#pragma once
// A text box with a list to choose its text from.

#include <vector>

#include "controls/control.h"

namespace lumidex {

class ComboBox final : public Control {
 public:
  ComboBox(Form& owner, std::string name, std::string text = {})
      : Control(owner, std::move(name)),
        Text(*this, "Text", std::move(text), ruled<std::string, nullptr, &Fire>) {}
  std::string_view Kind() const override { return "ComboBox"; }
  // Also ListCount, ListIndex and List(n).
  std::optional<std::string> ReadProperty(std::string_view name) override;
  bool WriteProperty(std::string_view name, std::string_view text) override;
  bool CanTakeFocus() const override { return true; }
  // The entries that stand in the list by design come back with the rest.
  void KeepDesign() override;
  void RestoreDesign() override;

  // A new text fires Change.
  Property<std::string> Text;
  Event<> OnChange, OnClick;

  // Appends, or inserts before `index`. An index outside raises InvalidCall.
  void AddItem(std::string text, int index = -1);
  // Raises InvalidCall outside.
  void RemoveItem(int index);
  void Clear();
  int ListCount() const { return static_cast<int>(items_.size()); }
  // Empty outside the list.
  std::string List(int index) const;
  // The entry that was chosen last and whose text still stands; -1 when there is none. Choosing another one
  // takes its text and fires Click, but no Change; a position outside raises InvalidPropertyValue.
  int ListIndex() const;
  void SetListIndex(int index);

  void UserType(std::string text) {
    if (UserMayAct()) Text = std::move(text);
  }
  // Always fires Click.
  void UserSelect(int index);

 private:
  static void Fire(Element& owner) { static_cast<ComboBox&>(owner).OnChange(); }
  std::vector<std::string> items_, design_;
  int chosen_ = -1;
};

}  // namespace lumidex
