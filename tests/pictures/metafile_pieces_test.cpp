#include <gtest/gtest.h>

#include <array>
#include <numbers>
#include <string>

#include "pictures/metafile/letters.h"
#include "pictures/metafile/path.h"
#include "pictures/metafile/raster_operations.h"
#include "pictures/metafile/record_table.h"
#include "pictures/metafile/text_face.h"
#include "pictures/metafile/work_budget.h"

namespace lumidex::metafile {
namespace {

TEST(MetafileRasterOperations, A_ternary_operation_works_bit_by_bit) {
  EXPECT_EQ(Combine(sourceCopy, 0x0F, 0x33, 0x55), 0x33u);
  EXPECT_EQ(Combine(patternCopy, 0x0F, 0x33, 0x55), 0x0Fu);
  EXPECT_EQ(Combine(0x66, 0x0F, 0x33, 0x55), 0x33u ^ 0x55u);
  EXPECT_EQ(Combine(0x88, 0x0F, 0x33, 0x55), 0x33u & 0x55u);
  EXPECT_EQ(Combine(0xB8, 0xF0, 0x33, 0x55) & 0xFF, ((0x55u ^ 0xF0u) & 0x33u) ^ 0xF0u);
}

TEST(MetafileRasterOperations, An_operation_says_what_it_reads) {
  EXPECT_TRUE(UsesSource(sourceCopy));
  EXPECT_FALSE(UsesSource(patternCopy));
  EXPECT_FALSE(UsesSource(0x55));
  EXPECT_TRUE(UsesPattern(patternCopy));
  EXPECT_FALSE(UsesPattern(0x66));
}

TEST(MetafileRecordTable, An_entry_is_found_by_its_record_alone) {
  enum class Kind : std::uint16_t { None, Lowest = 1, Middle = 0x0213, Highest = 0xFFFF };
  static constexpr RecordEntry<Kind, int (*)()> entries[] = {
      {Kind::Highest, [] { return 3; }}, {Kind::Lowest, [] { return 1; }}, {Kind::Middle, [] { return 2; }}};
  static constexpr RecordTable table(entries);
  ASSERT_TRUE(table.Find(Kind::Lowest));
  EXPECT_EQ(table.Find(Kind::Lowest)(), 1);
  ASSERT_TRUE(table.Find(Kind::Middle));
  EXPECT_EQ(table.Find(Kind::Middle)(), 2);
  ASSERT_TRUE(table.Find(Kind::Highest));
  EXPECT_EQ(table.Find(Kind::Highest)(), 3);
  for (const int number : {0, 2, 0x0212, 0x0214, 0xFFFE}) EXPECT_FALSE(table.Find(static_cast<Kind>(number)));
}

TEST(MetafilePath, A_plain_box_is_known_as_one) {
  Path path;
  path.AddBox({10, 20, 30, 40});
  ASSERT_TRUE(path.AsBox());
  EXPECT_EQ(path.AsBox()->right, 30);
  EXPECT_FALSE(path.Transformed({.xx = 0.7, .yx = 0.7, .xy = -0.7, .yy = 0.7}).AsBox());
  path.AddBox({50, 50, 60, 60});
  EXPECT_FALSE(path.AsBox());
}

TEST(MetafilePath, An_ellipse_stays_on_its_curve) {
  Path path;
  path.AddEllipse({-10, -10, 10, 10});
  const auto points = path.Points();
  ASSERT_EQ(points.size(), 13u);  // four curves
  for (std::size_t i = 0; i + 3 < points.size(); i += 3) {
    for (const double t : {0.0, 0.25, 0.5, 0.75, 1.0}) {
      const double u = 1 - t;
      const std::array weights = {u * u * u, 3 * u * u * t, 3 * u * t * t, t * t * t};
      double x = 0, y = 0;
      for (std::size_t k = 0; k < 4; ++k) {
        x += weights[k] * points[i + k].x;
        y += weights[k] * points[i + k].y;
      }
      EXPECT_NEAR(std::hypot(x, y), 10, 0.01);
    }
  }
}

TEST(MetafilePath, Thin_level_lines_move_to_the_middle_of_a_pixel) {
  Path path;
  path.MoveTo({3.2, 7});
  path.LineTo({9.8, 7});
  const Path crisp = path.WithCrispLines();
  EXPECT_EQ(crisp.Points()[0].y, 7.5);
  EXPECT_EQ(crisp.Points()[1].y, 7.5);
  EXPECT_EQ(crisp.Points()[0].x, 3.2);
}

TEST(MetafilePath, Coordinates_far_away_are_brought_within_reach) {
  Path path;
  path.MoveTo({1e30, -1e30});
  path.LineTo({std::numeric_limits<double>::quiet_NaN(), 5});
  const Path near = path.Transformed({});
  EXPECT_EQ(near.Points()[0].x, 1e6);
  EXPECT_EQ(near.Points()[0].y, -1e6);
  EXPECT_EQ(near.Points()[1].x, 0);
}

TEST(MetafileFaces, A_family_is_looked_up_once) {
  TextFaces faces;
  const TextFace& first = faces.Get("Family", false, false);
  EXPECT_EQ(&faces.Get("Family", false, false), &first);
  EXPECT_NE(&faces.Get("Family", true, false), &first);
}

TEST(MetafileFaces, A_family_that_can_not_exist_is_not_installed) {
  TextFaces faces;
  EXPECT_FALSE(faces.IsInstalled("Surely no such family"));
  EXPECT_FALSE(faces.IsInstalled("Surely no such family"));
  EXPECT_TRUE(faces.IsInstalled("Courier New"));
}

TEST(MetafileFaces, After_many_families_one_stands_for_the_others) {
  TextFaces faces;
  const TextFace& known = faces.Get("Family 0", false, false);
  for (int i = 1; i < 64; ++i) faces.Get("Family " + std::to_string(i), false, false);
  const TextFace& other = faces.Get("Family 64", false, false);
  EXPECT_EQ(&faces.Get("Family 65", false, false), &other);
  EXPECT_EQ(&faces.Get("Family 0", false, false), &known);
}

TEST(MetafileBudget, What_is_not_there_is_not_taken) {
  WorkBudget budget(100);
  EXPECT_FALSE(budget.Spend(101));
  EXPECT_TRUE(budget.Spend(100));
  EXPECT_FALSE(budget.Spend(1));
  EXPECT_FALSE(budget.Keep(1e12));
  EXPECT_TRUE(budget.Keep(1 << 20));
}

TEST(MetafileBox, Boxes_without_a_common_part_have_no_extent_in_common) {
  const Box common = Box{0, 0, 10, 10}.Intersected({20, 30, 40, 50});
  EXPECT_TRUE(common.IsEmpty());
  EXPECT_EQ(common.Width(), 0);
  EXPECT_EQ(common.Height(), 0);
}

TEST(MetafileLetters, The_character_set_chooses_the_code_page) {
  const std::uint8_t bytes[] = {0xC0, 'a'};
  Font font;
  EXPECT_EQ(LettersFromCodePage(bytes, font)[0].text, "À");
  font.charset = 204;
  EXPECT_EQ(LettersFromCodePage(bytes, font)[0].text, "А");
  EXPECT_EQ(LettersFromCodePage(bytes, font)[1].text, "a");
}

TEST(MetafileLetters, Two_byte_letters_count_as_two_codes) {
  const std::uint8_t bytes[] = {0x82, 0xA0, 'x'};
  Font font;
  font.charset = 128;
  const auto letters = LettersFromCodePage(bytes, font);
  ASSERT_EQ(letters.size(), 2u);
  EXPECT_EQ(letters[0].text, "あ");
  EXPECT_EQ(letters[0].codes, 2u);
}

TEST(MetafileLetters, The_symbol_font_has_greek_letters) {
  const std::uint8_t bytes[] = {'a', 'S'};
  Font font;
  font.family = "Symbol";
  const auto letters = LettersFromCodePage(bytes, font);
  EXPECT_EQ(letters[0].text, "α");
  EXPECT_EQ(letters[1].text, "Σ");
  const std::uint8_t wide[] = {'a', 0xF0};
  EXPECT_EQ(LettersFromUtf16(wide, font)[0].text, "α");
}

// What one code shows in a font.
std::string SignIn(const char* family, std::uint8_t code) {
  Font font;
  font.family = family;
  return LettersFromCodePage({&code, 1}, font).at(0).text;
}

TEST(MetafileLetters, Fonts_of_signs_show_signs_instead_of_letters) {
  EXPECT_EQ(SignIn("Wingdings", 0xFC), "✔");
  EXPECT_EQ(SignIn("wingdings", 'l'), "●");
  EXPECT_EQ(SignIn("Wingdings", 0xE0), "→");
  EXPECT_EQ(SignIn("Wingdings", 0x83), "③");
  EXPECT_EQ(SignIn("Wingdings 2", 'R'), "☑");
  EXPECT_EQ(SignIn("Wingdings 3", '}'), "▸");
  EXPECT_EQ(SignIn("Webdings", 'a'), "✔");
  EXPECT_EQ(SignIn("Monotype Sorts", '4'), "✔");
  EXPECT_EQ(SignIn("ZapfDingbats", 'n'), "■");
  EXPECT_EQ(SignIn("ZapfDingbats", 0xFE), "➾");
}

TEST(MetafileLetters, Of_a_sign_that_there_is_no_other_for_only_the_room_is_left) {
  EXPECT_EQ(SignIn("Wingdings", 0xFF), " ");
  EXPECT_EQ(SignIn("Webdings", 'Z'), " ");
  EXPECT_EQ(SignIn("Marlett", 'a'), " ");
}

TEST(MetafileLetters, A_face_knows_which_letters_it_has) {
  const TextFace face("DejaVu Sans", false, false);
  EXPECT_TRUE(face.Has("aα"));
  EXPECT_TRUE(face.Has(""));
  EXPECT_FALSE(face.Has("\xF4\x8F\xBF\xBD"));
}

TEST(MetafileLetters, Surrogate_pairs_become_one_letter) {
  const std::uint8_t bytes[] = {0x3D, 0xD8, 0x00, 0xDE};
  const auto letters = LettersFromUtf16(bytes, {});
  ASSERT_EQ(letters.size(), 1u);
  EXPECT_EQ(letters[0].text, "😀");
  EXPECT_EQ(letters[0].codes, 2u);
}

}  // namespace
}  // namespace lumidex::metafile
