#include "platform/qt/text_widths.h"

#include <algorithm>

#include "platform/qt/conversions.h"

namespace lumidex {
namespace {

constexpr std::string_view digits = "0123456789";

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

// What is written from left to right without any rules of its own.
bool IsPlain(char character) {
  return character >= ' ' && character <= '~';
}

}  // namespace

TextWidths::TextWidths(const QFont& font)
    : font_(font),
      metrics_(font),
      exact_(font),
      areDigitsAlike_(std::ranges::all_of(digits, [this](char digit) {
        return Exactly({&digit, 1}) == Exactly("0");
      })) {}

qreal TextWidths::Exactly(std::string_view text) const {
  return exact_.horizontalAdvance(ToQt(text));
}

bool TextWidths::FindsDigitsAlike(char neighbour) const {
  const auto widthOf = [&](char first, char second) {
    const std::array<char, 2> pair = {first, second};
    return Exactly({pair.data(), pair.size()});
  };
  const qreal before = widthOf('0', neighbour), behind = widthOf(neighbour, '0');
  return std::ranges::all_of(digits, [&](char digit) {
    return widthOf(digit, neighbour) == before && widthOf(neighbour, digit) == behind;
  });
}

std::string_view TextWidths::WithNoughts(std::string_view text) {
  if (!areDigitsAlike_ || !std::ranges::all_of(text, IsPlain) || !HidesDigits('0')) return text;
  noughts_ = text;
  for (std::size_t place = 0; place < text.size(); ++place) {
    if (!IsDigit(text[place])) continue;
    const bool isHiddenBefore = place == 0 || HidesDigits(text[place - 1]);
    const bool isHiddenBehind = place + 1 == text.size() || HidesDigits(text[place + 1]);
    if (isHiddenBefore && isHiddenBehind) noughts_[place] = '0';
  }
  return noughts_;
}

int TextWidths::Of(std::string_view text) {
  constexpr std::size_t mostKnown = 1000;
  const std::string_view alike = WithNoughts(text);
  if (const auto known = known_.find(alike); known != known_.end()) return known->second;
  if (known_.size() >= mostKnown) known_.clear();
  const int width = metrics_.horizontalAdvance(ToQt(alike));
  known_.emplace(alike, width);
  return width;
}

}  // namespace lumidex
