#pragma once
// The common dialog control: holds what a file dialog is opened with and what it answered.

#include "controls/control.h"

namespace lumidex {

class CommonDialog final : public Control {
 public:
  CommonDialog(Form& owner, std::string name) : Control(owner, std::move(name)) {}
  std::string_view Kind() const override { return "CommonDialog"; }

  Property<std::string> FileName{*this, "FileName"}, Filter{*this, "Filter"},
      DialogTitle{*this, "DialogTitle"}, InitDir{*this, "InitDir"}, DefaultExt{*this, "DefaultExt"};
  Property<int> FilterIndex{*this, "FilterIndex", 0};
  Property<int> Flags{*this, "Flags", 0};

  static constexpr int OverwritePrompt = 0x2;
  static constexpr int FileMustExist = 0x1000;

  // A cancelled dialog changes nothing and is not told apart; true when it was accepted.
  bool ShowOpen() { return AskFile(false); }
  bool ShowSave() { return AskFile(true); }

 private:
  bool AskFile(bool save);
};

}  // namespace lumidex
