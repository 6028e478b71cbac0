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

Element& ElementOf(const Target& target) {
  return target.control ? static_cast<Element&>(*target.control) : *target.form;
}

// The control may be missing, or the property of a control that is there.
[[noreturn]] void RefuseProperty(const Target& target, const std::string& name) {
  const std::string text = "there is no \"" + target.property + "\" in " + name;
  if (target.control) throw Failure{text};
  throw NotThere{{text}};
}

std::optional<std::string> FormState(const Form& form, const std::string& name) {
  if (name == "Visible") return Truth(form.Visible());
  if (name == "Loaded") return Truth(form.IsLoaded());
  if (name == "Modal") return Truth(form.IsModal());
  return {};
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

Target FindElement(App& app, const std::string& name) {
  Target target = FindTarget(app, name);
  if (target.property.empty()) return target;
  if (target.control) throw Failure{"\"" + name + "\" is a property"};
  throw NotThere{{"there is no control \"" + target.property + "\" in " + target.form->Name()}};
}

Form& FindForm(App& app, const std::string& name) {
  Form* form = app.FindForm(name);
  if (!form) throw NotThere{{"there is no form \"" + name + "\""}};
  return *form;
}

std::string ReadProperty(App& app, const std::string& name) {
  const Target target = FindTarget(app, name);
  if (target.property.empty()) throw Failure{"\"" + name + "\" names no property"};
  std::optional<std::string> value;
  if (!target.control) value = FormState(*target.form, target.property);
  if (!value) value = ElementOf(target).ReadProperty(target.property);
  if (!value) RefuseProperty(target, name);
  return *value;
}

void WriteProperty(App& app, const std::string& name, const std::string& value) {
  const Target target = FindTarget(app, name);
  if (!ElementOf(target).WriteProperty(target.property, value)) RefuseProperty(target, name);
}

std::string WhyOutOfReach(Execution& run, const Target& target) {
  const HeadlessPlatform& world = run.World();
  const std::string& form = target.form->Name();
  if (world.dialogs.IsOpen()) return form + " can't be reached while a box is open";
  if (world.popup.OpenMenu() != 0) {
    return form + " can't be reached while the popup menu " + world.windows.NameOf(world.popup.OpenMenu()) +
           " is open";
  }
  if (!target.form->Visible()) return form + " is not on the screen";
  const Form* modal = world.windows.FrontModal();
  if (modal && modal != target.form) {
    return form + " can't be reached while " + modal->Name() + " is open";
  }
  const bool isMenu = dynamic_cast<MenuItem*>(target.control) != nullptr;
  if (target.control && !isMenu && !target.control->Visible) {
    return target.control->Name() + " is not visible";
  }
  return {};
}

void CheckReachable(Execution& run, const Target& target) {
  if (std::string why = WhyOutOfReach(run, target); !why.empty()) throw Failure{std::move(why)};
}

Picture PictureOf(const Target& target) {
  if (const auto* image = dynamic_cast<ImageBox*>(target.control)) return image->Picture.Get();
  if (const auto* box = dynamic_cast<PictureBox*>(target.control)) return box->Picture.Get();
  if (const auto* box = dynamic_cast<Gvbox*>(target.control)) return box->Picture();
  if (!target.control) return target.form->Picture.Get();
  throw Failure{target.control->Name() + " holds no picture"};
}

void SetDesignPicture(const Target& target, const Picture& picture) {
  const auto set = [&](Property<Picture>& property) {
    property = picture;
    property.KeepAsDesign();
  };
  if (!target.property.empty()) throw Failure{"there is no control \"" + target.property + "\""};
  if (auto* image = dynamic_cast<ImageBox*>(target.control)) return set(image->Picture);
  if (auto* box = dynamic_cast<PictureBox*>(target.control)) return set(box->Picture);
  if (!target.control) return set(target.form->Picture);
  throw Failure{target.control->Name() + " takes no picture"};
}

}  // namespace lumidex::scenario
