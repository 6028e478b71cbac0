#pragma once
// The common dialog control: holds what a file or colour dialog is opened with and what it answered.

#include "controls/control.h"

namespace lumidex {

class CommonDialog final : public Control {
 public:
  CommonDialog(Form& owner, std::string name) : Control(owner, std::move(name)) {}
  std::string_view Kind() const override { return "CommonDialog"; }
  void VisitProperties(const PropertyVisitor& visit) override;

  Property<std::string> FileName{*this}, Filter{*this}, DialogTitle{*this}, InitDir{*this}, DefaultExt{*this};
  Property<int> FilterIndex{*this, 0};
  Property<int> Flags{*this, 0};
  Property<std::int32_t> Color{*this, 0};

  static constexpr int OverwritePrompt = 0x2;
  static constexpr int FileMustExist = 0x1000;

  // A cancelled dialog changes nothing and is not told apart; true when it was accepted.
  bool ShowOpen() { return AskFile(false); }
  bool ShowSave() { return AskFile(true); }
  bool ShowColor();

 private:
  bool AskFile(bool save);
};

}  // namespace lumidex
