#pragma once
// Pictures as dialogs show them: in a sunken frame, and along a side.

#include "controls/picture_controls.h"
#include "platform/qt/form_view.h"

namespace lumidex {

// A frame with room for a picture of `most`. The picture keeps its proportions and is not enlarged.
QWidget* MakeFramedPicture(FormView& view, ImageBox& control, QSize most, QWidget* parent);

// A strip of that width, covered by the right part of the picture.
QWidget* MakeSidePicture(FormView& view, ImageBox& control, int width, QWidget* parent);

}  // namespace lumidex
