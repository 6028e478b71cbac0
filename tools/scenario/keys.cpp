#include "scenario/keys.h"

#include <map>

#include "controls/buttons.h"
#include "controls/file_lists.h"
#include "controls/list_box.h"
#include "controls/menu_item.h"
#include "scenario/words.h"

namespace lumidex::scenario {
namespace {

constexpr int enter = 13, escape = 27, up = 38, down = 40;

void PressShortcut(Form& form, int letter) {
  for (Control* control : form.Controls()) {
    auto* item = dynamic_cast<MenuItem*>(control);
    if (item && item->Shortcut == Shortcut(static_cast<char>(letter))) return item->UserShortcut();
  }
  throw Failure{form.Name() + " has no such shortcut"};
}

CommandButton* ButtonFor(Form& form, int code) {
  for (Control* control : form.Controls()) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (!button) continue;
    if (code == enter ? button->Default.Get() : button->Cancel.Get()) return button;
  }
  return nullptr;
}

}  // namespace

Key KeyNamed(const std::string& name) {
  static const std::map<std::string, int, std::less<>> codes{
      {"Backspace", 8}, {"Tab", 9},       {"Enter", enter}, {"Escape", escape}, {"Space", 32},
      {"PageUp", 33},   {"PageDown", 34}, {"End", 35},      {"Home", 36},       {"Left", 37},
      {"Up", up},       {"Right", 39},    {"Down", down},   {"Delete", 46}};
  if (name.starts_with("Ctrl+") && name.size() == 6) return {name[5], true};
  if (const auto found = codes.find(name); found != codes.end()) return {found->second, false};
  if (name.size() == 1) return {name[0], false};
  if (name.size() >= 2 && name[0] == 'F') return {static_cast<int>(111 + WholeNumber(name.substr(1))), false};
  throw Failure{"\"" + name + "\" is no key"};
}

void PressKey(Form& form, Control* control, Key key) {
  if (key.control) return PressShortcut(form, key.code);
  if (key.code == escape || (key.code == enter && !dynamic_cast<CommandButton*>(control))) {
    if (CommandButton* button = ButtonFor(form, key.code)) return button->UserClick();
  }
  if (auto* list = dynamic_cast<ListBox*>(control)) {
    if (key.code == up || key.code == down) {
      return list->UserSelect(list->ListIndex() + (key.code == up ? -1 : 1));
    }
    return list->UserKey(key.code);
  }
  if (auto* directories = dynamic_cast<DirList*>(control)) return directories->UserKey(key.code);
  if (auto* button = dynamic_cast<CommandButton*>(control); button && key.code == enter) {
    return button->UserClick();
  }
  if (control) {
    control->OnKeyDown(key.code);
    return control->OnKeyPress(key.code);
  }
  form.OnKeyDown(key.code);
}

}  // namespace lumidex::scenario
