#pragma once
// A form on the headless platform with one control of each kind, for the tests of the controls.

#include <gmock/gmock.h>

#include "controls/bars.h"
#include "controls/buttons.h"
#include "controls/control_array.h"
#include "controls/file_lists.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/gvbox.h"
#include "controls/list_box.h"
#include "controls/menu_item.h"
#include "controls/picture_controls.h"
#include "controls/ranges.h"
#include "controls/tab_strip.h"
#include "controls/texts.h"
#include "controls/timer.h"
#include "number_raised.h"
#include "platform/headless/headless_platform.h"

namespace lumidex {

struct SampleForm : Form {
  explicit SampleForm(Platform& platform, DirectoryReader& reader)
      : Form(platform, "SampleForm", "Sample"), Dir1{*this, "Dir1", reader}, File1{*this, "File1", reader} {
    KeepDesign();
  }
  ListBox list{*this, "list"};
  ListBox sorted{*this, "sorted", ListStyle::Sorted};
  ListBox ticks{*this, "ticks", ListStyle::CheckBoxes};
  CheckBox check{*this, "check", "Check"};
  OptionGroup group;
  OptionButton first{*this, "first", group, "First", true};
  OptionButton second{*this, "second", group, "Second"};
  CommandButton button{*this, "button", "Button"};
  TextBox text{*this, "text", "design"};
  Slider slider{*this, "slider", 0, 10, 5};
  HScrollBar scroll{*this, "scroll", 100, 0, 50};
  Timer timer{*this, "timer", 100};
  TabStrip tabs{*this, "tabs", {"one", "two"}};
  MenuItem menu{*this, "menu", nullptr, "&Menu"};
  MenuItem item{*this, "item", &menu, "&Item", 'D'};
  Label label{*this, "label", "text"};
  ControlArray<Label> labels{*this, "labels", 3, 5};
  DriveList Drive1{*this, "Drive1"};
  DirList Dir1;
  FileList File1;
};

struct Controls : testing::Test {
  HeadlessPlatform platform{'/'};
  DirectoryReader reader{platform.files};
  SampleForm form{platform.ports, reader};
  std::vector<std::string> told;

  std::function<void()> Tell(std::string what) {
    return [this, what] { told.push_back(what); };
  }
};

}  // namespace lumidex
