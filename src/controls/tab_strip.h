#pragma once
// A row of tabs, of which one page is in front.

#include "controls/control.h"

namespace lumidex {

class TabStrip final : public Control {
 public:
  TabStrip(Form& owner, std::string name, std::vector<std::string> captions)
      : Control(owner, std::move(name)), captions_(std::move(captions)) {}
  std::string_view Kind() const override { return "SSTab"; }
  // Also Tabs, their number, and TabCaption(n).
  std::optional<std::string> ReadProperty(std::string_view name) override;

  const std::vector<std::string>& Captions() const { return captions_; }
  // Zero-based; a page that does not exist raises InvalidPropertyValue. A new page fires Click.
  Property<int> Tab{*this, "Tab", 0, ruled<int, &RefuseOthers, &Fire>};
  Event<> OnClick;

  void UserSelect(int page) {
    if (UserMayAct()) Tab = page;
  }

 private:
  static void RefuseOthers(Element& owner, const int& page);
  static void Fire(Element& owner) { static_cast<TabStrip&>(owner).OnClick(); }
  std::vector<std::string> captions_;
};

}  // namespace lumidex
