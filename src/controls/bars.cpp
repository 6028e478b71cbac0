#include "controls/bars.h"

#include "base/text.h"

namespace lumidex {
namespace {

// "Buttons(3).Enabled" taken apart into "3" and "Enabled"; nothing when `name` is of another form.
std::optional<std::pair<std::string, std::string>> Member(std::string_view name, std::string_view group) {
  if (!name.starts_with(group) || name.size() <= group.size() || name[group.size()] != '(') return {};
  const auto close = name.find(").");
  if (close == std::string_view::npos) return {};
  const auto start = group.size() + 1;
  return std::pair{std::string(name.substr(start, close - start)), std::string(name.substr(close + 2))};
}

std::string TruthText(bool value) {
  return value ? "True" : "False";
}

template <class T>
T& OneBased(std::vector<T>& members, int position) {
  if (position < 1 || position > static_cast<int>(members.size())) RaiseSubscript();
  return members[static_cast<std::size_t>(position - 1)];
}

}  // namespace

ToolbarButton& Toolbar::At(int position) {
  return OneBased(buttons_, position);
}

const ToolbarButton& Toolbar::Button(int position) const {
  return const_cast<Toolbar*>(this)->At(position);
}

int Toolbar::Find(std::string_view key) const {
  for (int position = 1; position <= Count(); ++position) {
    if (Button(position).Key == key) return position;
  }
  return 0;
}

std::optional<std::string> Toolbar::ReadProperty(std::string_view name) {
  if (name == "Buttons.Count") return Number(Count());
  const auto member = Member(name, "Buttons");
  if (!member) return Control::ReadProperty(name);
  const auto& [which, property] = *member;
  const int position = Find(which) > 0 ? Find(which) : static_cast<int>(Val(which));
  const ToolbarButton& button = Button(position);
  if (property == "Key") return button.Key;
  if (property == "Caption") return button.Caption;
  if (property == "ToolTipText") return button.ToolTipText;
  if (property == "Image") return button.ImageKey;
  if (property == "Enabled") return TruthText(button.Enabled);
  if (property == "Visible") return TruthText(button.Visible);
  return {};
}

void Toolbar::RestoreDesign() {
  Control::RestoreDesign();
  buttons_ = design_;
  Changed.Emit();
}

void Toolbar::SetEnabled(int position, bool enabled) {
  ToolbarButton& button = At(position);
  if (button.Enabled == enabled) return;
  button.Enabled = enabled;
  Changed.Emit();
}

void Toolbar::SetVisible(int position, bool visible) {
  ToolbarButton& button = At(position);
  if (button.Visible == visible) return;
  button.Visible = visible;
  Changed.Emit();
}

void Toolbar::UserPress(int position) {
  const ToolbarButton& button = Button(position);
  if (!button.Enabled || !button.Visible || !Visible || !UserMayAct()) return;
  const std::string key = button.Key;
  OnButtonClick(key, position);
}

StatusPanel& StatusBar::At(int position) {
  return OneBased(panels_, position);
}

const StatusPanel& StatusBar::Panel(int position) const {
  return const_cast<StatusBar*>(this)->At(position);
}

std::optional<std::string> StatusBar::ReadProperty(std::string_view name) {
  if (name == "Panels.Count") return Number(Count());
  const auto member = Member(name, "Panels");
  if (!member) return Control::ReadProperty(name);
  const auto& [which, property] = *member;
  const StatusPanel& panel = Panel(static_cast<int>(Val(which)));
  if (property == "Key") return panel.Key;
  if (property == "Text") return panel.Text;
  if (property == "Picture") return panel.PictureKey;
  return {};
}

void StatusBar::RestoreDesign() {
  Control::RestoreDesign();
  panels_ = design_;
  Changed.Emit();
}

void StatusBar::SetText(int position, std::string text) {
  StatusPanel& panel = At(position);
  if (panel.Text == text) return;
  panel.Text = std::move(text);
  Changed.Emit();
}

void StatusBar::SetPicture(int position, std::string key) {
  StatusPanel& panel = At(position);
  if (panel.PictureKey == key) return;
  panel.PictureKey = std::move(key);
  Changed.Emit();
}

}  // namespace lumidex
