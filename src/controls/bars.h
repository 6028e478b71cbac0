#pragma once
// The bars of a window: toolbar and status bar.

#include <vector>

#include "controls/control.h"

namespace lumidex {

struct ToolbarButton {
  std::string Key;
  std::string ToolTipText;
  std::string ImageKey;
  bool Enabled = true;
  bool Visible = true;
  std::string Caption = {};
};

class Toolbar final : public Control {
 public:
  Toolbar(Form& owner, std::string name, std::vector<ToolbarButton> buttons)
      : Control(owner, std::move(name)), buttons_(buttons), design_(std::move(buttons)) {}
  std::string_view Kind() const override { return "Toolbar"; }
  // Also Buttons.Count and Buttons(n).Key, .Caption, .ToolTipText, .Image, .Enabled, .Visible; n is one-based
  // or a key.
  std::optional<std::string> ReadProperty(std::string_view name) override;
  void RestoreDesign() override;

  // One-based; raises Subscript outside.
  const ToolbarButton& Button(int position) const;
  // One-based position of the first button with that key, 0 when there is none.
  int Find(std::string_view key) const;
  int Count() const { return static_cast<int>(buttons_.size()); }
  void SetEnabled(int position, bool enabled);
  void SetVisible(int position, bool visible);

  // Told the key of the pressed button and its position: several may have the same key.
  Event<const std::string&, int> OnButtonClick;
  void UserPress(int position);

 private:
  ToolbarButton& At(int position);
  std::vector<ToolbarButton> buttons_;
  std::vector<ToolbarButton> design_;
};

enum class PanelStyle { Text, Date, Time };

struct StatusPanel {
  std::string Key;
  PanelStyle Style = PanelStyle::Text;
  std::string Text;
  std::string PictureKey;  // name of a file type bitmap; empty for none
  // The longest text that the panel is meant for. A bar has room for that; panels without one share what is
  // left, but for the date and the time, which know their longest text themselves.
  std::string Widest = {};
};

class StatusBar final : public Control {
 public:
  StatusBar(Form& owner, std::string name, std::vector<StatusPanel> panels)
      : Control(owner, std::move(name)), panels_(panels), design_(std::move(panels)) {}
  std::string_view Kind() const override { return "StatusBar"; }
  // Also Panels.Count and Panels(n).Key, .Text, .Picture; n is one-based.
  std::optional<std::string> ReadProperty(std::string_view name) override;
  void RestoreDesign() override;

  // One-based; raises Subscript outside.
  const StatusPanel& Panel(int position) const;
  int Count() const { return static_cast<int>(panels_.size()); }
  void SetText(int position, std::string text);
  void SetPicture(int position, std::string key);

 private:
  StatusPanel& At(int position);
  std::vector<StatusPanel> panels_;
  std::vector<StatusPanel> design_;
};

}  // namespace lumidex
