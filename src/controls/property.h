#pragma once
// A control's property: a value with its design value, known to its owner by name and told to observers when
// it changes. Some properties refuse values (error 380) or fire an event on a new value; their control hands
// in the rule.

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace lumidex {

class Control;
class Element;
class Picture;

// What an element knows of each of its properties: its name, its value as text, and the way back to the
// design.
class PropertyBase {
 public:
  // Joins the properties of `owner`, of which it is a member. `name` is a literal.
  PropertyBase(Element& owner, const char* name);
  virtual ~PropertyBase() = default;
  PropertyBase(const PropertyBase&) = delete;

  std::string_view Name() const { return name_; }
  // The property declared next in the same owner; null after the last.
  PropertyBase* Next() const { return next_; }

  virtual std::string AsText() const = 0;
  // Written as code writes it: events fire, rules hold. Raises TypeMismatch for text of another kind.
  virtual void WriteText(std::string_view text) = 0;
  virtual void KeepAsDesign() = 0;
  // Silently, but for the observers.
  virtual void RestoreDesign() = 0;
  // Takes over value and design of the same property of an owner of the same kind, as silently.
  virtual void TakeFrom(const PropertyBase& other) = 0;

 protected:
  // Tells the owner's observers.
  void NoteWritten();
  Element& owner_;

 private:
  friend class Element;
  const char* name_;
  PropertyBase* next_ = nullptr;
};

namespace property_text {
std::string Of(bool value);
std::string Of(std::int64_t value);
std::string Of(float value);
std::string Of(const std::string& value);
std::string Of(const Picture& value);
// The name; empty for none.
std::string Of(const Control* value);
void Read(std::string_view text, bool& value);
void Read(std::string_view text, std::int64_t& value);
void Read(std::string_view text, float& value);
void Read(std::string_view text, std::string& value);
// Pictures and controls can only be taken away by text.
void Read(std::string_view text, Picture& value);
void Read(std::string_view text, Control*& value);
}  // namespace property_text

void NotifyObservers(Element& owner);

// What a control has to say about a property of its own.
template <class T>
struct PropertyRules {
  void (*check)(Element& owner, const T& proposed);  // refuses values by raising
  void (*changed)(Element& owner);                   // runs after a new value
  void (*written)(Element& owner);                   // runs after every write
};
// One for all properties with the same rules: windows have thousands of properties, few of which have any.
template <class T, auto check, auto changed = nullptr, auto written = nullptr>
inline constexpr PropertyRules<T> ruled{check, changed, written};

template <class T>
class Property final : public PropertyBase {
 public:
  // The rules must live as long.
  Property(Element& owner, const char* name, T initial = {},
           const PropertyRules<T>& rules = ruled<T, nullptr>)
      : PropertyBase(owner, name), value_(initial), design_(std::move(initial)), rules_(&rules) {}
  Property& operator=(const Property& other) { return *this = other.value_; }

  Property& operator=(T value) {
    if (rules_->check) rules_->check(owner_, value);
    const bool isNew = !(value == value_);
    if (isNew) {
      value_ = std::move(value);
      NotifyObservers(owner_);
    }
    if (rules_->written) rules_->written(owner_);
    NoteWritten();
    if (isNew && rules_->changed) rules_->changed(owner_);
    return *this;
  }

  const T& Get() const { return value_; }
  const T& Design() const { return design_; }
  operator const T&() const { return value_; }
  friend bool operator==(const Property& property, const T& value) { return property.value_ == value; }

  // Changes the value without firing: the way of user gestures, which fire their event themselves.
  void SetQuietly(T value) {
    if (value == value_) return;
    value_ = std::move(value);
    NotifyObservers(owner_);
  }

  std::string AsText() const override {
    if constexpr (IsWhole()) {
      return property_text::Of(static_cast<std::int64_t>(value_));
    } else {
      return property_text::Of(value_);
    }
  }
  void WriteText(std::string_view text) override {
    if constexpr (IsWhole()) {
      std::int64_t value = 0;
      property_text::Read(text, value);
      *this = static_cast<T>(value);
    } else {
      T value{};
      property_text::Read(text, value);
      *this = value;
    }
  }
  void KeepAsDesign() override { design_ = value_; }
  void RestoreDesign() override { SetQuietly(design_); }
  void TakeFrom(const PropertyBase& other) override {
    const auto& source = static_cast<const Property&>(other);
    design_ = source.design_;
    SetQuietly(source.value_);
  }

 private:
  static constexpr bool IsWhole() {
    return std::is_enum_v<T> || (std::is_integral_v<T> && !std::is_same_v<T, bool>);
  }

  T value_;
  T design_;
  const PropertyRules<T>* rules_;
};

// Compiled once, in element.cpp.
extern template class Property<bool>;
extern template class Property<int>;
extern template class Property<float>;
extern template class Property<std::string>;
extern template class Property<Control*>;

}  // namespace lumidex
