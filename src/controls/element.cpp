#include "controls/element.h"

#include <cmath>

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"

namespace lumidex {

void NotifyObservers(Element& owner) {
  owner.Changed.Emit();
}

std::optional<std::string> Element::ReadProperty(std::string_view name) {
  std::optional<std::string> text;
  VisitProperties([&](std::string_view visited, PropertyBase& property) {
    if (visited == name) text = property.AsText();
  });
  return text;
}

bool Element::WriteProperty(std::string_view name, std::string_view text) {
  PropertyBase* found = nullptr;
  VisitProperties([&](std::string_view visited, PropertyBase& property) {
    if (visited == name) found = &property;
  });
  if (found) found->WriteText(text);
  return found != nullptr;
}

void Element::KeepDesign() {
  VisitProperties([](std::string_view, PropertyBase& property) { property.KeepAsDesign(); });
}

void Element::RestoreDesign() {
  VisitProperties([](std::string_view, PropertyBase& property) { property.RestoreDesign(); });
}

namespace property_text {

std::string Of(bool value) {
  return value ? "True" : "False";
}
std::string Of(std::int64_t value) {
  return Number(value);
}
std::string Of(float value) {
  return Number(value);
}
std::string Of(const std::string& value) {
  return value;
}
std::string Of(const Picture& value) {
  if (value.IsEmpty()) return "(none)";
  const Size size = value.GetSize();
  return Number(size.width) + " x " + Number(size.height);
}

void Read(std::string_view text, bool& value) {
  if (text != "True" && text != "False") throw RunTimeError(ErrorNumber::TypeMismatch);
  value = text == "True";
}
void Read(std::string_view text, std::int64_t& value) {
  if (text.empty() || text.find_first_not_of("+-0123456789.") != std::string_view::npos) {
    throw RunTimeError(ErrorNumber::TypeMismatch);
  }
  value = ToInt32(Val(text));
}
void Read(std::string_view text, float& value) {
  value = static_cast<float>(Val(text));
}
void Read(std::string_view text, std::string& value) {
  value = text;
}
void Read(std::string_view text, Picture& value) {
  // A picture can only be taken away by text.
  if (text != "(none)") throw RunTimeError(ErrorNumber::TypeMismatch);
  value = Picture();
}

}  // namespace property_text

}  // namespace lumidex
