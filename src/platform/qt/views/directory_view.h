#pragma once
// The dialog that chooses a directory: drive and directories on the left, files in the middle, the preview
// and its facts on the right.

#include "forms/SelectPictureDirectoryForm.h"
#include "platform/qt/typed_view.h"

class QLayout;

namespace lumidex {

class DirectoryView final : public TypedView<SelectPictureDirectoryFormWindow> {
 public:
  DirectoryView(FormViews& views, SelectPictureDirectoryFormWindow& form);

 private:
  QLayout* Lists();
  QLayout* Preview();
  QLayout* Buttons();
};

}  // namespace lumidex
