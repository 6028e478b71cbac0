#include "scenario/targets.h"
#include "forms/WPaper2.h"

#include "controls/gvbox.h"
#include "controls/menu_item.h"
#include "controls/picture_controls.h"

namespace lumidex::scenario {
namespace {

// The first part of "LstRight.List(3)" and what follows the point; points inside brackets do not count.
std::pair<std::string, std::string> Cut(const std::string& name) {
  int depth = 0;
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (name[i] == '(') ++depth;
    if (name[i] == ')') --depth;
    if (name[i] == '.' && depth == 0) return {name.substr(0, i), name.substr(i + 1)};
  }
  return {name, {}};
}

std::string Truth(bool value) {
  return value ? "True" : "False";
}

}  // namespace

Target FindTarget(App& app, const std::string& name) {
  Target target;
  auto [first, rest] = Cut(name);
  target.form = app.FindForm(first);
  if (!target.form) {
    target.form = &app.WPaper2;
    rest = name;
  }
  if (rest.empty()) return target;
  const auto [control, property] = Cut(rest);
  target.control = target.form->Find(control);
  target.property = target.control ? property : rest;
  return target;
}

std::string ReadProperty(App& app, const std::string& name) {
  const Target target = FindTarget(app, name);
  if (target.property.empty()) throw Failure{"\"" + name + "\" names no property"};
  std::optional<std::string> value;
  if (target.control) {
    value = target.control->ReadProperty(target.property);
  } else if (target.property == "Visible") {
    value = Truth(target.form->Visible());
  } else if (target.property == "Loaded") {
    value = Truth(target.form->IsLoaded());
  } else if (target.property == "Modal") {
    value = Truth(target.form->IsModal());
  } else {
    value = target.form->ReadProperty(target.property);
  }
  if (!value) throw Failure{"there is no \"" + target.property + "\" in " + name};
  return *value;
}

void CheckReachable(Execution& run, const Target& target) {
  const std::string& name = target.form->Name();
  if (!target.form->Visible()) throw Failure{name + " is not on the screen"};
  const Form* modal = run.World().windows.FrontModal();
  if (modal && modal != target.form) {
    throw Failure{name + " can't be reached while " + modal->Name() + " is open"};
  }
  const bool isMenu = dynamic_cast<MenuItem*>(target.control) != nullptr;
  if (target.control && !isMenu && !target.control->Visible) {
    throw Failure{target.control->Name() + " is not visible"};
  }
}

Picture PictureOf(const Target& target) {
  if (const auto* image = dynamic_cast<ImageBox*>(target.control)) return image->Picture.Get();
  if (const auto* box = dynamic_cast<PictureBox*>(target.control)) return box->Picture.Get();
  if (const auto* box = dynamic_cast<Gvbox*>(target.control)) return box->Picture();
  if (!target.control) return target.form->Picture.Get();
  throw Failure{target.control->Name() + " holds no picture"};
}

}  // namespace lumidex::scenario
