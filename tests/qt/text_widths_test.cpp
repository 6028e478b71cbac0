#include "platform/qt/text_widths.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontDatabase>
#include <random>

#include "platform/qt/conversions.h"

namespace lumidex {
namespace {

int Shaped(const QFont& font, const std::string& text) {
  return QFontMetrics(font).horizontalAdvance(ToQt(text));
}

std::vector<std::string> OddTexts() {
  std::vector<std::string> texts = {"",
                                    "0",
                                    "7.",
                                    "1.1.1",
                                    "IMG_1947.JPG",
                                    "AV 11 To 71, LT 17-77",
                                    "office 1fi2ffl3",
                                    "/home/f1/4711/VA7V.png",
                                    "1/2 3x4 5->6 7...8 (9)",
                                    "tab\t1\t23",
                                    "\xC3\xA4 12 \xC3\xA4 17",
                                    "\xD7\xA9 12 \xD7\xA9 17",
                                    "\xD8\xA7\xD9\x84 1947",
                                    "e\xCC\x81 11",
                                    "no text \xFF 17",
                                    "&1 && 2 \x7F 3"};
  std::mt19937 random(20);
  for (int i = 0; i < 300; ++i) {
    std::string text;
    while (random() % 12 != 0) {
      const bool isDigit = random() % 2 == 0;
      text += static_cast<char>(isDigit ? '0' + random() % 10 : ' ' + random() % 95);
    }
    texts.push_back(text);
  }
  return texts;
}

void ExpectSame(const QFont& font) {
  TextWidths widths(font);
  for (const std::string& text : OddTexts()) {
    EXPECT_EQ(widths.Of(text), Shaped(font, text)) << font.toString().toStdString() << ": " << text;
    std::string other = text;
    for (char& character : other) {
      if (character >= '0' && character <= '9') character = static_cast<char>('0' + ('9' - character));
    }
    EXPECT_EQ(widths.Of(other), Shaped(font, other)) << font.toString().toStdString() << ": " << other;
  }
}

TEST(TextWidths, Are_those_of_the_library_in_every_font_there_is) {
  for (const QString& family : QFontDatabase::families()) {
    for (const double points : {8.5, 10.0, 23.0}) {
      QFont font(family);
      font.setPointSizeF(points);
      ExpectSame(font);
      font.setItalic(true);
      font.setLetterSpacing(QFont::AbsoluteSpacing, 1.3);
      ExpectSame(font);
    }
  }
}

TEST(TextWidths, Of_a_font_stay_those_of_that_font) {
  QFont large = QApplication::font();
  large.setPointSizeF(large.pointSizeF() * 3);
  const TextWidths widths(QApplication::font());
  EXPECT_TRUE(widths.AreOf(QApplication::font()));
  EXPECT_FALSE(widths.AreOf(large));
}

TEST(TextWidths, Of_very_many_texts_are_right_to_the_last) {
  TextWidths widths(QApplication::font());
  for (int i = 0; i < 2500; ++i) {
    std::string text(static_cast<std::size_t>(i % 50), 'n');
    for (int rest = i; rest > 0; rest /= 7) text += static_cast<char>('a' + rest % 7);
    ASSERT_EQ(widths.Of(text), Shaped(QApplication::font(), text)) << text;
  }
}

}  // namespace
}  // namespace lumidex
