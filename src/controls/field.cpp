#include "controls/field.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"

namespace lumidex {
namespace {

double NumberIn(std::string_view text) {
  if (text.empty() || text.find_first_not_of("+-0123456789.eE") != std::string_view::npos) {
    throw RunTimeError(ErrorNumber::TypeMismatch);
  }
  return Val(text);
}

}  // namespace

std::string FieldText(bool value) {
  return value ? "True" : "False";
}
std::string FieldText(std::int16_t value) {
  return Number(value);
}
std::string FieldText(std::int32_t value) {
  return Number(value);
}
std::string FieldText(float value) {
  return Number(value);
}
std::string FieldText(double value) {
  return Number(value);
}
std::string FieldText(const std::string& value) {
  return value;
}

void ReadField(std::string_view text, bool& value) {
  if (text != "True" && text != "False") throw RunTimeError(ErrorNumber::TypeMismatch);
  value = text == "True";
}
void ReadField(std::string_view text, std::int16_t& value) {
  value = ToInt16(NumberIn(text));
}
void ReadField(std::string_view text, std::int32_t& value) {
  value = ToInt32(NumberIn(text));
}
void ReadField(std::string_view text, float& value) {
  value = static_cast<float>(NumberIn(text));
}
void ReadField(std::string_view text, double& value) {
  value = NumberIn(text);
}
void ReadField(std::string_view text, std::string& value) {
  value = text;
}

}  // namespace lumidex
