#include "controls/element.h"

#include <cmath>

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"
#include "controls/control.h"
#include "pictures/picture.h"

namespace lumidex {

template class Property<bool>;
template class Property<int>;
template class Property<float>;
template class Property<std::string>;
template class Property<Control*>;

PropertyBase::PropertyBase(Element& owner, const char* name) : owner_(owner), name_(name) {
  (owner.last_ ? owner.last_->next_ : owner.first_) = this;
  owner.last_ = this;
}

void PropertyBase::NoteWritten() {
  owner_.Written.Emit(*this);
}

void NotifyObservers(Element& owner) {
  owner.Changed.Emit();
}

PropertyBase* Element::FindProperty(std::string_view name) const {
  PropertyBase* property = first_;
  while (property && property->Name() != name) property = property->Next();
  return property;
}

std::optional<std::string> Element::ReadProperty(std::string_view name) {
  const PropertyBase* property = FindProperty(name);
  return property ? std::optional(property->AsText()) : std::nullopt;
}

bool Element::WriteProperty(std::string_view name, std::string_view text) {
  PropertyBase* property = FindProperty(name);
  if (property) property->WriteText(text);
  return property != nullptr;
}

void Element::KeepDesign() {
  for (PropertyBase* property = first_; property; property = property->Next()) property->KeepAsDesign();
}

void Element::RestoreDesign() {
  for (PropertyBase* property = first_; property; property = property->Next()) property->RestoreDesign();
}

std::optional<int> Argument(std::string_view name, std::string_view call) {
  if (!name.starts_with(call) || !name.ends_with(")") || name.size() < call.size() + 3) return {};
  if (name[call.size()] != '(') return {};
  return ToInt32(Val(name.substr(call.size() + 1)));
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
std::string Of(const Control* value) {
  return value ? value->Name() : std::string();
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
  if (text != "(none)") throw RunTimeError(ErrorNumber::TypeMismatch);
  value = Picture();
}
void Read(std::string_view text, Control*& value) {
  if (!text.empty()) throw RunTimeError(ErrorNumber::TypeMismatch);
  value = nullptr;
}

}  // namespace property_text

}  // namespace lumidex
