#include "pictures/codecs/iff.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "gallery/encoders/iff_encoder.h"
#include "pictures/support/colours.h"
#include "pictures/support/iff_file.h"
#include "pictures/support/patterns.h"

namespace lumidex::iff {
namespace {

using testing::ElementsAre;

using argb::black;

TEST(Iff, Interleaved_planes_come_back) {
  for (const auto form : {IffForm::Plain, IffForm::Packed}) {
    for (const auto& [colours, depth] : {std::pair{2, 1}, {4, 2}, {8, 4}, {16, 4}, {128, 8}, {256, 8}}) {
      const IndexedPicture picture =
          Stripes({301, 40}, colours == 2 ? BlackAndWhite() : DistinctColours(colours));
      const auto file = EncodeIlbm(picture, form);
      EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, depth);
      EXPECT_EQ(WordsOf(DecodeBytes(file)), WordsOf(Expand(picture))) << colours;
    }
  }
}

TEST(Iff, Chunky_rows_come_back) {
  for (const auto form : {IffForm::Plain, IffForm::Packed}) {
    const IndexedPicture picture = Stripes({37, 23}, DistinctColours(256));
    const auto file = EncodeLbm(picture, form);
    EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, 8);
    EXPECT_EQ(WordsOf(DecodeBytes(file)), WordsOf(Expand(picture)));
  }
}

TEST(Iff, Chunky_rows_have_a_byte_a_pixel_however_many_planes_are_told) {
  const auto file =
      Group("FORM", "PBM ", {BitmapHeader({.planes = 4}), Colours(16), Chunk("BODY", Bytes({5, 15}))});
  EXPECT_EQ(DepthIn(file), 8);
  EXPECT_THAT(WordsIn(file), ElementsAre(Colour(5), Colour(15)));
}

TEST(Iff, True_colour_comes_back) {
  for (const auto format : {PixelFormat::Rgb, PixelFormat::Argb}) {
    const Pixels pattern = ColourPattern({37, 23}, format);
    const auto file = EncodeIlbm(pattern);
    EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, format == PixelFormat::Rgb ? 24 : 32);
    EXPECT_EQ(WordsOf(DecodeBytes(file)), WordsOf(pattern));
  }
}

TEST(Iff, Colours_that_hold_and_modify_reaches_come_back) {
  // Each pixel changes at most one component, in steps of 17, and begins with a colour of the base.
  Pixels pixels = Pixels::Make({4, 1}, PixelFormat::Rgb, black);
  pixels.Row(0)[1] = 0xFF000044;
  pixels.Row(0)[2] = 0xFF660044;
  pixels.Row(0)[3] = 0xFF66EE44;
  const auto file = EncodeHoldAndModify(pixels, {black, 0xFFFFFFFF});
  EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, 24);
  EXPECT_EQ(WordsOf(DecodeBytes(file)), WordsOf(pixels));
}

TEST(Iff, Without_colours_indices_are_greys) {
  const auto file =
      Group("FORM", "ILBM", {BitmapHeader({.width = 4}), Chunk("BODY", Bytes({0x50, 0, 0x30, 0}))});
  EXPECT_THAT(WordsIn(file), ElementsAre(black, 0xFF555555U, 0xFFAAAAAAU, 0xFFFFFFFFU));
}

TEST(Iff, A_mask_plane_follows_the_others) {
  const auto file =
      Group("FORM", "ILBM",
            {BitmapHeader({.masking = 1}), Colours(4), Chunk("BODY", Bytes({0x40, 0, 0x40, 0, 0x40, 0}))});
  EXPECT_EQ(DepthIn(file), 2);
  EXPECT_THAT(WordsIn(file), ElementsAre(0U, Colour(3)));
}

TEST(Iff, One_colour_may_be_transparent) {
  const auto file = Group(
      "FORM", "ILBM",
      {BitmapHeader({.masking = 2, .transparent = 3}), Colours(4), Chunk("BODY", Bytes({0x40, 0, 0x40, 0}))});
  EXPECT_THAT(WordsIn(file), ElementsAre(Colour(0), 0U));
}

TEST(Iff, Contiguous_planes_stand_one_behind_the_other) {
  const auto file = Group("FORM", "ACBM",
                          {BitmapHeader({.width = 1, .height = 2}), Colours(4),
                           Chunk("ABIT", Bytes({0x80, 0, 0, 0, 0x80, 0, 0x80, 0}))});
  EXPECT_THAT(WordsIn(file), ElementsAre(Colour(3), Colour(2)));
}

TEST(Iff, Packed_runs_may_cross_rows) {
  const auto file = Group("FORM", "PBM ",
                          {BitmapHeader({.height = 2, .planes = 8, .compression = 1}), Colours(8),
                           Chunk("BODY", Bytes({0xFE, 5, 128, 0, 6}))});
  EXPECT_THAT(WordsIn(file), ElementsAre(Colour(5), Colour(5), Colour(5), Colour(6)));
}

// A plane of 32 by 3 pixels: four commands, then the words they use, down one column after the other.
TEST(Iff, Columns_may_be_packed_in_chunks_of_their_own) {
  const ByteWriter first = Chunk("VDAT", ByteWriter()
                                             .U16Be(6)
                                             .Add({0, 0xFF, 1, 2})
                                             .U16Be(1)
                                             .U16Be(0x8000)
                                             .U16Be(0x4000)
                                             .U16Be(2)
                                             .U16Be(0x2000)
                                             .U16Be(0xFFFF));
  const ByteWriter second = Chunk("VDAT", ByteWriter().U16Be(3).U8(6).U8(0).U16Be(0));
  ByteWriter body;
  body.Add(first.Bytes()).Add(second.Bytes());
  const auto file =
      Group("FORM", "ILBM",
            {BitmapHeader({.width = 32, .height = 3, .compression = 2}), Colours(4), Chunk("BODY", body)});
  const Pixels pixels = DecodeBytes(file.Bytes());
  // Words 1 to 3 are the left column: 8000, 4000, 2000; words 4 to 6 the right one: 2000, FFFF, FFFF.
  EXPECT_EQ(pixels.Row(0)[0], Colour(1));
  EXPECT_EQ(pixels.Row(1)[1], Colour(1));
  EXPECT_EQ(pixels.Row(2)[2], Colour(1));
  EXPECT_EQ(pixels.Row(0)[18], Colour(1));
  EXPECT_EQ(pixels.Row(0)[16], Colour(0));
  EXPECT_EQ(pixels.Row(1)[16], Colour(1));
  EXPECT_EQ(pixels.Row(2)[31], Colour(1));
}

TEST(Iff, Pictures_are_found_inside_groups) {
  const auto picture =
      Group("FORM", "ILBM", {BitmapHeader({}), Colours(4), Chunk("BODY", Bytes({0x40, 0, 0, 0}))});
  const auto sound = Group("FORM", "8SVX", {Chunk("BODY", Bytes({1, 2, 3, 4}))});
  for (const auto& file :
       {Group("LIST", "ILBM", {sound, picture}), Group("CAT ", "    ", {picture, sound}),
        Group("FORM", "ANIM", {picture}), Group("CAT ", "ANIM", {Group("FORM", "ANIM", {picture})})})
    EXPECT_THAT(WordsIn(file), ElementsAre(Colour(0), Colour(1)));
}

TEST(Iff, Pictures_of_a_list_may_share_what_they_have_in_common) {
  const auto body = Chunk("BODY", Bytes({0x40, 0, 0, 0}));
  const auto shared = Group("PROP", "ILBM", {BitmapHeader({}), Colours(4)});
  EXPECT_THAT(WordsIn(Group("LIST", "ILBM", {shared, Group("FORM", "ILBM", {body})})),
              ElementsAre(Colour(0), Colour(1)));
  // What a picture says itself comes first.
  const auto own = Group("FORM", "ILBM", {BitmapHeader({.width = 1, .planes = 1}), body});
  EXPECT_THAT(WordsIn(Group("LIST", "ILBM", {shared, own})), ElementsAre(Colour(0)));
}

TEST(Iff, Chunks_that_mean_nothing_here_are_passed_over) {
  const auto file = Group("FORM", "ILBM",
                          {Chunk("ANNO", ByteWriter().Text("odd")), BitmapHeader({}), Colours(4),
                           Chunk("CRNG", ByteWriter().Zeros(6000)), Chunk("BODY", Bytes({0x40, 0, 0, 0}))});
  EXPECT_THAT(WordsIn(file), ElementsAre(Colour(0), Colour(1)));
}

TEST(Iff, Lengths_need_not_be_right) {
  const ByteWriter body = Chunk("BODY", Bytes({0x40, 0, 0, 0}));
  ByteWriter unpadded;
  unpadded.Text("ANNO").U32Be(3).Text("odd");
  EXPECT_THAT(WordsIn(Group("FORM", "ILBM", {unpadded, BitmapHeader({}), Colours(4), body})),
              ElementsAre(Colour(0), Colour(1)));
  ByteWriter tooLong;
  tooLong.Text("CMAP").U32Be(18).Add({0, 0, 255, 1, 2, 254});
  EXPECT_THAT(WordsIn(Group("FORM", "ILBM", {BitmapHeader({}), tooLong, body})),
              ElementsAre(Colour(0), Colour(1)));
  ByteWriter shortForm;
  shortForm.Text("FORM").U32Be(4).Text("ILBM").Add(BitmapHeader({}).Bytes()).Add(Colours(4).Bytes());
  shortForm.Text("BODY").U32Be(0).Add({0x40, 0, 0, 0});
  EXPECT_THAT(WordsIn(shortForm), ElementsAre(Colour(0), Colour(1)));
}

TEST(Iff, The_padding_at_the_very_end_may_be_missing) {
  const auto file =
      Group("FORM", "ILBM", {BitmapHeader({.planes = 1}), Colours(2), Chunk("BODY", Bytes({0x40}))});
  const std::vector<std::uint8_t> cut(file.Bytes().begin(), file.Bytes().end() - 1);
  EXPECT_THAT(WordsOf(DecodeBytes(cut)), ElementsAre(Colour(0), Colour(1)));
}

TEST(Iff, The_palette_may_stand_behind_the_rows) {
  const auto file =
      Group("FORM", "ILBM", {BitmapHeader({}), Chunk("BODY", Bytes({0x40, 0, 0, 0})), Colours(4)});
  EXPECT_THAT(WordsIn(file), ElementsAre(Colour(0), Colour(1)));
}

TEST(Iff, Rows_behind_a_cut_are_blank) {
  const auto file = Group(
      "FORM", "ILBM",
      {BitmapHeader({.width = 1, .height = 2, .planes = 1}), Colours(2), Chunk("BODY", Bytes({0x80, 0}))});
  EXPECT_THAT(WordsIn(file), ElementsAre(Colour(1), blankPixel));
}

TEST(Iff, Other_contents_are_refused_by_name) {
  for (const auto& file :
       {Group("FORM", "8SVX", {Chunk("BODY", Bytes({1, 2}))}), Group("FOR4", "CIMG", {Chunk("TBHD", {})})}) {
    try {
      OpenBytes(file.Bytes(), ".iff");
      FAIL();
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
      EXPECT_THAT(error.what(), testing::HasSubstr("IFF: there is no bitmap"));
    }
  }
}

TEST(Iff, What_holds_no_readable_picture_is_refused) {
  const ByteWriter body = Chunk("BODY", Bytes({0x40, 0, 0, 0}));
  const auto open = [&](const Header& header) {
    OpenBytes(Group("FORM", "ILBM", {BitmapHeader(header), body}).Bytes(), ".iff");
  };
  EXPECT_NO_THROW(open({}));
  EXPECT_THROW(open({.width = 0}), RunTimeError);
  EXPECT_THROW(open({.width = 65535}), RunTimeError);
  EXPECT_THROW(open({.planes = 0}), RunTimeError);
  EXPECT_THROW(open({.planes = 12}), RunTimeError);
  EXPECT_THROW(open({.planes = 255}), RunTimeError);
  EXPECT_THROW(open({.compression = 3}), RunTimeError);
  EXPECT_THROW(open({.planes = 24, .compression = 2}), RunTimeError);
  for (const unsigned compression : {1U, 2U}) {
    const auto contiguous = Group("FORM", "ACBM", {BitmapHeader({.compression = compression}), body});
    EXPECT_THROW(OpenBytes(contiguous.Bytes()), RunTimeError);
  }
  EXPECT_THROW(OpenBytes(Group("FORM", "8SVX", {body}).Bytes(), ".iff"), RunTimeError);
  EXPECT_THROW(OpenBytes(Group("CAT ", "8SVX", {Group("FORM", "8SVX", {body})}).Bytes(), ".iff"),
               RunTimeError);
  EXPECT_THROW(OpenBytes(Group("FORM", "ILBM", {body}).Bytes(), ".iff"), RunTimeError);
  EXPECT_THROW(OpenBytes(Group("FORM", "ILBM", {BitmapHeader({})}).Bytes(), ".iff"), RunTimeError);
  EXPECT_THROW(OpenBytes(Group("FORM", "ILBM", {Chunk("BMHD", Bytes({0, 2, 0, 1})), body}).Bytes(), ".iff"),
               RunTimeError);
}

}  // namespace
}  // namespace lumidex::iff
