#include "scenario/popup_menu.h"

namespace lumidex::scenario {
namespace {

const Control* OpenMenu(Execution& run) {
  const MemoryPopup& popup = run.World().popup;
  if (popup.OpenMenu() == 0) return nullptr;
  for (Form* form : run.Program().Forms()) {
    for (const Control* control : form->Controls()) {
      if (control->hwnd() == popup.OpenMenu()) return control;
    }
  }
  throw Failure{"the popup menu that is open belongs to no form"};
}

// The menu itself is usually hidden, so that it stands in no menu bar.
bool StandsIn(const MenuItem& item, const Control& menu) {
  for (const MenuItem* above = &item; above; above = above->Parent()) {
    if (above == &menu) return true;
    if (!above->Visible) return false;
  }
  return false;
}

bool IsEnabledIn(const MenuItem& item, const Control& menu) {
  for (const MenuItem* above = &item; above != &menu; above = above->Parent()) {
    if (!above->Enabled) return false;
  }
  return true;
}

}  // namespace

bool StandsInPopup(Execution& run, const MenuItem& item) {
  const Control* menu = OpenMenu(run);
  return menu && &item != menu && StandsIn(item, *menu);
}

bool ChooseFromPopup(Execution& run, const Target& target) {
  const Control* menu = OpenMenu(run);
  if (!menu) return false;
  const auto* item = dynamic_cast<const MenuItem*>(target.control);
  if (!item || !StandsInPopup(run, *item)) {
    throw Failure{target.Name() + " does not stand in the popup menu " + menu->Name()};
  }
  if (!IsEnabledIn(*item, *menu) || item->IsSeparator()) return true;
  run.World().popup.Close();
  run.Act([&] { item->Click(); });
  return true;
}

bool PressInPopup(Execution& run, Key key) {
  if (!OpenMenu(run)) return false;
  if (!(key == KeyNamed("Escape"))) throw Failure{"only Escape can be pressed in a popup menu"};
  run.World().popup.Close();
  return true;
}

std::string OpenPopupName(Execution& run) {
  const Control* menu = OpenMenu(run);
  return menu ? menu->Name() : "(none)";
}

}  // namespace lumidex::scenario
