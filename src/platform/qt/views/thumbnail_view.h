#pragma once
// The thumbnail viewer: a page of cells beside its scroll bar.

#include "forms/frmThumbNail.h"
#include "platform/qt/typed_view.h"
#include "platform/qt/views/placed_view.h"

namespace lumidex {

class ThumbnailView final : public TypedView<frmThumbNailWindow, PlacedView> {
 public:
  ThumbnailView(FormViews& views, frmThumbNailWindow& form);
};

}  // namespace lumidex
