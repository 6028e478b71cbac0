#pragma once
// Variables of the program that are known by name, as text: those of the global record and of windows.

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "controls/property.h"

namespace lumidex {

std::string FieldText(bool value);
std::string FieldText(std::int16_t value);
std::string FieldText(std::int32_t value);
std::string FieldText(float value);
std::string FieldText(double value);
std::string FieldText(const std::string& value);

// Raise TypeMismatch for text of another kind, and Overflow for a number beyond the width.
void ReadField(std::string_view text, bool& value);
void ReadField(std::string_view text, std::int16_t& value);
void ReadField(std::string_view text, std::int32_t& value);
void ReadField(std::string_view text, float& value);
void ReadField(std::string_view text, double& value);
void ReadField(std::string_view text, std::string& value);

// A variable of a window, known by name like its properties. It is no part of the design: it keeps its value
// when the window is unloaded, and nobody observes it.
template <class T>
class Field final : public PropertyBase {
 public:
  Field(Element& owner, const char* name, T initial = {})
      : PropertyBase(owner, name), value_(std::move(initial)) {}
  Field& operator=(T value) {
    value_ = std::move(value);
    return *this;
  }
  operator T&() { return value_; }
  operator const T&() const { return value_; }

  std::string AsText() const override { return FieldText(value_); }
  void WriteText(std::string_view text) override { ReadField(text, value_); }
  void KeepAsDesign() override {}
  void RestoreDesign() override {}
  void TakeFrom(const PropertyBase& other) override { value_ = static_cast<const Field&>(other).value_; }

 private:
  T value_;
};

}  // namespace lumidex
