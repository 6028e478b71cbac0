#pragma once
// The properties dialog: the facts of a file, one a line, and its small picture.

#include "forms/frmFileProperties.h"
#include "platform/qt/typed_view.h"

class QLayout;

namespace lumidex {

class PropertiesView final : public TypedView<frmFilePropertiesWindow> {
 public:
  PropertiesView(FormViews& views, frmFilePropertiesWindow& form);

 private:
  QLayout* Facts(QWidget* frame);
};

}  // namespace lumidex
