#include "base/text.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "base/run_time_error.h"

namespace lumidex {
namespace {

struct Character {
  utf8proc_int32_t code;  // -1 for an invalid byte
  std::size_t bytes;
};

Character First(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  if (lead < 0x80) return {lead, 1};
  utf8proc_int32_t code = -1;
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const auto used = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &code);
  if (used < 1) return {-1, 1};
  return {code, static_cast<std::size_t>(used)};
}

// The byte offset behind the first `count` characters.
std::size_t OffsetOf(std::string_view text, std::int32_t count) {
  std::size_t offset = 0;
  for (; count > 0 && offset < text.size(); --count) offset += First(text.substr(offset)).bytes;
  return offset;
}

// `mapAscii` does for a plain character what `map` does for any.
template <class MapAscii, class Map>
std::string MapCharacters(std::string_view text, MapAscii mapAscii, Map map) {
  const auto plain = static_cast<std::size_t>(std::ranges::find_if_not(text, IsAscii) - text.begin());
  std::string mapped(text.substr(0, plain));
  std::ranges::transform(mapped, mapped.begin(), mapAscii);
  text.remove_prefix(plain);
  while (!text.empty()) {
    const Character character = First(text);
    if (character.code < 0) {
      mapped += text.front();
    } else {
      std::array<utf8proc_uint8_t, 4> bytes{};
      const auto count = utf8proc_encode_char(map(character.code), bytes.data());
      mapped.append(bytes.begin(), bytes.begin() + count);
    }
    text.remove_prefix(character.bytes);
  }
  return mapped;
}

char LowerAscii(char c) {
  return static_cast<char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
}
unsigned char FoldAscii(char c) {
  return static_cast<unsigned char>(LowerAscii(c));
}

template <class Float>
std::string FormatFloat(Float value) {
  // Seven digits for a single, fifteen for a double, as the program has always shown them.
  constexpr int digits = sizeof(Float) == 4 ? 7 : 15;
  // Most numbers are whole, and are written much faster as such.
  constexpr Float mostWhole = 999'999;
  if (value >= 1 && value <= mostWhole && value == std::floor(value))
    return std::to_string(static_cast<std::int64_t>(value));
  std::array<char, 64> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), static_cast<double>(value),
                                 std::chars_format::general, digits);
  std::string text(buffer.data(), end.ptr);
  if (const auto exponent = text.find('e'); exponent != std::string::npos) text[exponent] = 'E';
  if (text.starts_with("0.")) text.erase(0, 1);
  if (text.starts_with("-0.")) text.erase(1, 1);
  return text;
}

}  // namespace

std::size_t CharacterBytes(std::string_view text) {
  return text.empty() ? 0 : First(text).bytes;
}

std::int32_t Len(std::string_view text) {
  std::int32_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(First(text).bytes);
  return count;
}

std::string Left(std::string_view text, std::int32_t count) {
  if (count < 0) throw RunTimeError(ErrorNumber::InvalidCall);
  return std::string(text.substr(0, OffsetOf(text, count)));
}

std::string Right(std::string_view text, std::int32_t count) {
  if (count < 0) throw RunTimeError(ErrorNumber::InvalidCall);
  const auto bytes = static_cast<std::size_t>(count);
  // Plain characters are never part of another one, so nothing before them has to be counted.
  if (bytes <= text.size() && std::ranges::all_of(text.substr(text.size() - bytes), IsAscii))
    return std::string(text.substr(text.size() - bytes));
  return std::string(text.substr(OffsetOf(text, std::max(0, Len(text) - count))));
}

std::string Mid(std::string_view text, std::int32_t start) {
  if (start < 1) throw RunTimeError(ErrorNumber::InvalidCall);
  return std::string(text.substr(OffsetOf(text, start - 1)));
}

std::string Mid(std::string_view text, std::int32_t start, std::int32_t count) {
  return Left(Mid(text, start), count);
}

std::int32_t InStr(std::string_view text, std::string_view wanted) {
  const auto offset = text.find(wanted);
  return offset == std::string_view::npos ? 0 : Len(text.substr(0, offset)) + 1;
}

std::string Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string UCase(std::string_view text) {
  // The library gives sharp s its capital form, which the simple mapping does not have.
  return MapCharacters(text, UpperAscii,
                       [](auto code) { return code == 0xDF ? code : utf8proc_toupper(code); });
}

std::string LCase(std::string_view text) {
  return MapCharacters(text, LowerAscii, [](auto code) { return utf8proc_tolower(code); });
}

std::optional<double> NumberAtStart(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  if (text.starts_with('+')) text.remove_prefix(1);
  const char* const end = text.data() + text.size();
  // Most numbers are whole and nothing follows them, and are read much faster as such.
  std::int32_t whole = 0;
  if (const auto read = std::from_chars(text.data(), end, whole); read.ec == std::errc() && read.ptr == end)
    return whole;
  double value = 0;
  const auto result = std::from_chars(text.data(), end, value);
  if (result.ec != std::errc() || !std::isfinite(value)) return {};
  return value;
}

double Val(std::string_view text) {
  return NumberAtStart(text).value_or(0);
}

double DecimalAtStart(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  // Else words for numbers and a second sign would be read too.
  if (text.empty() || text.find_first_of(".0123456789") != 0) return 0;
  double value = 0;
  const auto result =
      std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  if (result.ec == std::errc::result_out_of_range) value = std::numeric_limits<double>::infinity();
  return negative ? -value : value;
}

std::string Number(std::int64_t value) {
  return std::to_string(value);
}
std::string Number(double value) {
  return FormatFloat(value);
}
std::string Number(float value) {
  return FormatFloat(value);
}

std::string NumberInGroups(std::int64_t value) {
  std::string text = std::to_string(value);
  const std::ptrdiff_t first = value < 0 ? 1 : 0;
  for (auto place = static_cast<std::ptrdiff_t>(text.size()) - 3; place > first; place -= 3) {
    text.insert(static_cast<std::size_t>(place), 1, ',');
  }
  return text;
}

std::string DigitsInGroups(std::int64_t value) {
  return value == 0 ? std::string() : NumberInGroups(value);
}

int CompareText(std::string_view a, std::string_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  std::size_t i = 0;
  // Paths of one tree begin alike: eight bytes at a time as long as they are the same to the letter.
  for (std::uint64_t wordA = 0, wordB = 0; i + sizeof(wordA) <= common; i += sizeof(wordA)) {
    std::memcpy(&wordA, a.data() + i, sizeof(wordA));
    std::memcpy(&wordB, b.data() + i, sizeof(wordB));
    if (wordA != wordB) break;
  }
  while (i < common && FoldAscii(a[i]) == FoldAscii(b[i])) ++i;
  if (i < common) {
    // Everything before has the same mapping, so the first difference decides unless it needs Unicode's.
    const bool ascii = static_cast<signed char>(a[i]) >= 0 && static_cast<signed char>(b[i]) >= 0;
    if (ascii) return FoldAscii(a[i]) - FoldAscii(b[i]);
    if (const int difference = LCase(a).compare(LCase(b)); difference != 0) return difference;
  } else if (a.size() != b.size()) {
    return a.size() < b.size() ? -1 : 1;
  }
  return a.compare(b);
}

}  // namespace lumidex
