#pragma once
// Text is std::string in the platform's encoding, UTF-8. Positions, lengths and cuts count characters;
// a byte that is not valid UTF-8 counts as one character and survives every operation unchanged.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumidex {

// Bytes taken by the first character of `text` (1 for an invalid byte); 0 for empty text.
std::size_t CharacterBytes(std::string_view text);

std::int32_t Len(std::string_view text);
// The first / last `count` characters; a count below 0 raises InvalidCall.
std::string Left(std::string_view text, std::int32_t count);
std::string Right(std::string_view text, std::int32_t count);
// From the one-based character `start` on; a start below 1 or a count below 0 raises InvalidCall.
std::string Mid(std::string_view text, std::int32_t start);
std::string Mid(std::string_view text, std::int32_t start, std::int32_t count);
// One-based character position of the first exact occurrence, 0 when there is none.
std::int32_t InStr(std::string_view text, std::string_view wanted);

// Without leading and trailing blanks (only blanks, not tabs).
std::string Trim(std::string_view text);

inline bool IsAscii(char byte) {
  return static_cast<unsigned char>(byte) < 0x80;
}
// The capital of an ASCII letter; any other byte stays as it is.
inline char UpperAscii(char byte) {
  return static_cast<char>(byte >= 'a' && byte <= 'z' ? byte - ('a' - 'A') : byte);
}
// Unicode's simple case mappings, character by character.
std::string UCase(std::string_view text);
std::string LCase(std::string_view text);

// The number at the start of the text, blanks skipped, 0 when there is none: "12 files" is 12.
double Val(std::string_view text);
// The same, telling text that begins with no number, or with one beyond a double, from the number 0.
std::optional<double> NumberAtStart(std::string_view text);
// The same for what a person types: a sign, digits, a point and digits, and no other writing of numbers, so
// that "1e1" is 1. One beyond a double is infinite.
double DecimalAtStart(std::string_view text);

// A number as text without the leading blank: 12, -3, 0.25 as ".25", 1E+20.
std::string Number(std::int64_t value);
std::string Number(double value);
std::string Number(float value);
inline std::string Number(int value) {
  return Number(static_cast<std::int64_t>(value));
}
// With a comma between groups of three digits: 1,234,567.
std::string NumberInGroups(std::int64_t value);
// The same with no digits at all for 0.
std::string DigitsInGroups(std::int64_t value);

// Ascending, case-insensitive order; texts that differ in case only are ordered by their bytes, so
// the order is total. Returns below 0, 0 or above 0.
int CompareText(std::string_view a, std::string_view b);

}  // namespace lumidex
