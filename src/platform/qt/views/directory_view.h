#pragma once
// The dialog that chooses a directory: drive and directories on the left, files in the middle, the preview
// and its facts on the right.

#include "platform/qt/form_view.h"

class QLayout;

namespace lumidex {

class DirectoryView final : public FormView {
 public:
  DirectoryView(FormViews& views, Form& form);

 private:
  QLayout* Places();
  QLayout* Files();
  QLayout* Preview();
  QLayout* Buttons();
};

}  // namespace lumidex
