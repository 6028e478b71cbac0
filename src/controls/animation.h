#pragma once
// The animation control: plays a file again and again for as long as it is visible.

#include "controls/control.h"

namespace lumidex {

class Animation final : public Control {
 public:
  Animation(Form& owner, std::string name) : Control(owner, std::move(name)) {}
  std::string_view Kind() const override { return "Animation"; }
  // Also FileName.
  std::optional<std::string> ReadProperty(std::string_view name) override;
  void RestoreDesign() override;

  // Takes the file to play; raises FileNotFound when it is not there. What is in it is looked at when it is
  // played, and nothing is shown of what can't be played.
  void Open(const std::string& path);
  void Close();
  // Empty while nothing is open.
  std::string FileName() const { return fileName_; }

 private:
  std::string fileName_;
};

}  // namespace lumidex
