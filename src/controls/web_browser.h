#pragma once
// A place for web pages: it goes to an address and tells whether the page is on its way and what it is
// called. The pages are the platform's business.

#include "controls/form.h"

namespace lumidex {

class WebBrowser final : public Control {
 public:
  WebBrowser(Form& owner, std::string name) : Control(owner, std::move(name)) {}
  std::string_view Kind() const override { return "WebBrowser"; }
  bool CanTakeFocus() const override { return true; }
  // Also Busy and LocationName.
  std::optional<std::string> ReadProperty(std::string_view name) override;

  // Its number among the platform's browsers: its index in its array, 0 for one that stands alone.
  int Number() const;
  // All three raise AutomationError when the browser has failed.
  void Navigate(const std::string& address) { Port().Navigate(Number(), address); }
  bool Busy() const { return Port().Busy(Number()); }
  std::string LocationName() const { return Port().LocationName(Number()); }

 private:
  Browser& Port() const { return Owner().GetPlatform().browser; }
};

}  // namespace lumidex
