#pragma once
// What the two dialogs that adjust the colours of the working image have in common.

#include "controls/buttons.h"
#include "controls/control_array.h"
#include "controls/form.h"
#include "controls/picture_controls.h"
#include "controls/ranges.h"
#include "controls/texts.h"

namespace lumidex {

struct AdjustmentWindow : Form {
  AdjustmentWindow(Platform& platform, std::string name, std::string caption, std::string frameCaption)
      : Form(platform, std::move(name), std::move(caption)),
        Frame1(*this, "Frame1", std::move(frameCaption)) {
    Command2.Default = true;
  }

  Frame Frame1;
  Label lblOriginal{*this, "lblOriginal", "Original"};
  ImageBox imgOriginal{*this, "imgOriginal", true};
  Label lblModified{*this, "lblModified", "Modified"};
  ImageBox imgModified{*this, "imgModified", true};
  // Reset and OK.
  CommandButton Command1{*this, "Command1", "R&eset"};
  CommandButton Command2{*this, "Command2", "&OK"};
  ImageBox Image1{*this, "Image1", true};

 protected:
  static constexpr int leastAmount = -100, mostAmount = 100;
  static void SetSteps(Slider& slider) {
    slider.SmallChange = 1;
    slider.LargeChange = 5;
    slider.TickFrequency = 10;
  }
};

}  // namespace lumidex
