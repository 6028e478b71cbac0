#pragma once
// How wide texts are in one font, for those who measure thousands of them: names of files, which mostly
// differ in their digits alone.

#include <QFont>
#include <QFontMetrics>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace lumidex {

class TextWidths {
 public:
  explicit TextWidths(const QFont& font);

  bool AreOf(const QFont& font) const { return font_.isCopyOf(font); }
  // In logical pixels: what the library measures, which takes shaping the text.
  int Of(std::string_view text);

 private:
  // True when it makes no difference which digit stands before or behind this character. Found out once.
  bool HidesDigits(char neighbour) {
    std::optional<bool>& answer = hidesDigits_[static_cast<std::size_t>(neighbour)];
    if (!answer) answer = FindsDigitsAlike(neighbour);
    return *answer;
  }
  bool FindsDigitsAlike(char neighbour) const;
  // The same text with noughts for all digits of which nobody can tell the width.
  std::string_view WithNoughts(std::string_view text);
  qreal Exactly(std::string_view text) const;

  const QFont font_;
  const QFontMetrics metrics_;
  const QFontMetricsF exact_;
  const bool areDigitsAlike_;  // by themselves
  std::array<std::optional<bool>, 128> hidesDigits_;
  std::string noughts_;
  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };
  std::unordered_map<std::string, int, Hash, std::equal_to<>> known_;
};

}  // namespace lumidex
