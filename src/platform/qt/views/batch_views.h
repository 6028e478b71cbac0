#pragma once
// The two windows of a batch conversion: the question and the progress.

#include "forms/frmConvertFileName.h"
#include "forms/frmConvertFileType.h"
#include "platform/qt/typed_view.h"

namespace lumidex {

class ConvertTypeView final : public TypedView<frmConvertFileTypeWindow> {
 public:
  ConvertTypeView(FormViews& views, frmConvertFileTypeWindow& form);
};

class ConvertProgressView final : public TypedView<frmConvertFileNameWindow> {
 public:
  ConvertProgressView(FormViews& views, frmConvertFileNameWindow& form);
};

}  // namespace lumidex
