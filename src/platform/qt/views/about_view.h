#pragma once
// What the product is: its logo, name and maker on the dialogs' backdrop, the links, and the buttons below.

#include "forms/frmAbout.h"
#include "platform/qt/typed_view.h"

namespace lumidex {

class AboutView final : public TypedView<frmAboutWindow> {
 public:
  AboutView(FormViews& views, frmAboutWindow& form);

 private:
  QLayout* Texts();
};

}  // namespace lumidex
