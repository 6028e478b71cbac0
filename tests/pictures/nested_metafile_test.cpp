// Metafiles that stand inside other ones.

#include <gtest/gtest.h>

#include "gallery/encoders/plus_writer.h"
#include "gallery/encoders/wmf_encoder.h"
#include "pictures/support/drawn.h"

namespace lumidex::nested_metafile {
namespace {

using rgb::red, rgb::green, rgb::blue, rgb::white;

using Bytes = std::vector<std::uint8_t>;

// A drawing of 100 by 100, its left half in one colour.
Bytes HalfEmf(std::uint32_t colour) {
  EmfWriter writer(100, 100);
  return writer.SelectStock(8).CreateBrush(1, 0, colour).Select(1).Rectangle(0, 0, 49, 99).File();
}

WmfWriter HalfWmf(std::uint32_t colour) {
  WmfWriter writer;
  writer.Window(0, 0, 100, 100).CreatePen(5, 0, 0).Select(0).CreateBrush(0, colour).Select(1);
  return writer.Rectangle(0, 0, 50, 100);
}

struct Chunking {
  std::size_t size = 400;
  int countOff = 0;  // added to the number of chunks they state
  int skipped = -1;  // the chunk left out
  std::uint32_t totalOff = 0;
};

// Comments that hold `emf` in chunks.
void Enclose(WmfWriter& writer, const Bytes& emf, const Chunking& how = {}) {
  const std::size_t chunks = (emf.size() + how.size - 1) / how.size;
  for (std::size_t i = 0; i < chunks; ++i) {
    if (static_cast<int>(i) == how.skipped) continue;
    const std::size_t from = i * how.size, size = std::min(how.size, emf.size() - from);
    ByteWriter comment;
    comment.U16Le(15).U16Le(static_cast<std::uint32_t>(34 + size));
    comment.U32Le(0x43464D57).U32Le(1).U32Le(0x10000).U16Le(0).U32Le(0);
    comment.U32Le(static_cast<std::uint32_t>(chunks) + static_cast<std::uint32_t>(how.countOff));
    comment.U32Le(static_cast<std::uint32_t>(size));
    comment.U32Le(static_cast<std::uint32_t>(emf.size() - from - size));
    comment.U32Le(static_cast<std::uint32_t>(emf.size()) + how.totalOff);
    comment.Append(std::span(emf).subspan(from, size));
    writer.Record(0x0626, {}, comment.Take());
  }
}

std::uint32_t ColourOfBoth(const Bytes& emf, const Chunking& how = {}) {
  WmfWriter writer = HalfWmf(red);
  Enclose(writer, emf, how);
  return ColourAt(Drawn(writer.File()), 25, 50);
}

TEST(NestedMetafiles, An_emf_in_the_comments_of_a_wmf_is_played_instead) {
  WmfWriter writer = HalfWmf(red);
  Enclose(writer, HalfEmf(green));
  const Pixels pixels = Drawn(writer.File());
  EXPECT_EQ(ColourAt(pixels, 25, 50), green);
  EXPECT_EQ(ColourAt(pixels, 75, 50), white);
}

TEST(NestedMetafiles, An_emf_in_chunks_is_put_together) {
  EXPECT_EQ(ColourOfBoth(HalfEmf(green), {.size = 60}), green);
}

TEST(NestedMetafiles, An_emf_with_a_missing_chunk_leaves_the_wmf) {
  EXPECT_EQ(ColourOfBoth(HalfEmf(green), {.size = 60, .skipped = 1}), red);
  EXPECT_EQ(ColourOfBoth(HalfEmf(green), {.size = 60, .skipped = 0}), red);
}

TEST(NestedMetafiles, An_emf_whose_chunks_contradict_each_other_leaves_the_wmf) {
  EXPECT_EQ(ColourOfBoth(HalfEmf(green), {.countOff = 1}), red);
  EXPECT_EQ(ColourOfBoth(HalfEmf(green), {.totalOff = 4}), red);
}

TEST(NestedMetafiles, An_enclosed_emf_without_a_header_leaves_the_wmf) {
  EXPECT_EQ(ColourOfBoth(Bytes(200, 7)), red);
}

// A comment of one picture in several formats, in the box of 20 to 60.
EmfWriter& Formats(EmfWriter& writer, const std::vector<std::pair<std::uint32_t, Bytes>>& formats) {
  ByteWriter comment, data;
  comment.U32Le(0x43494447).U32Le(0x40000004);
  for (const std::uint32_t side : {20U, 20U, 60U, 60U}) comment.U32Le(side);
  comment.U32Le(static_cast<std::uint32_t>(formats.size()));
  const std::size_t start = 28 + 16 * formats.size();
  for (const auto& [mark, bytes] : formats) {
    comment.U32Le(mark).U32Le(1).U32Le(static_cast<std::uint32_t>(bytes.size()));
    comment.U32Le(static_cast<std::uint32_t>(start + data.Size()));
    data.Append(bytes);
  }
  comment.Append(data.Take());
  return writer.Record(70, {static_cast<std::int64_t>(comment.Size())}, comment.Bytes());
}

constexpr std::uint32_t emfMark = 0x464D4520, epsMark = 0x46535045;

TEST(NestedMetafiles, Of_several_formats_the_first_metafile_is_shown) {
  EmfWriter writer(100, 100);
  const Pixels pixels = Drawn(
      Formats(writer, {{epsMark, Bytes(9, 1)}, {emfMark, HalfEmf(blue)}, {emfMark, HalfEmf(red)}}).File());
  EXPECT_EQ(ColourAt(pixels, 30, 40), blue);
  EXPECT_EQ(ColourAt(pixels, 50, 40), white);
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 20 * 40);
}

// A plus file that draws the metafile into the box from 10, 20 to 50, 60.
Bytes PlusAround(const Bytes& metafile, std::uint32_t kind) {
  ByteWriter image;
  image.U32Le(0xDBC01002).U32Le(2).U32Le(kind).U32Le(static_cast<std::uint32_t>(metafile.size()));
  image.Append(metafile);
  PlusWriter writer;
  writer.Object(imageKind, 0, image.Take());
  writer.Record(0x401A, 0,
                {0, inPixels, 0, 0, Float(100), Float(100), Float(10), Float(20), Float(40), Float(40)});
  return writer.File();
}

TEST(NestedMetafiles, A_plus_picture_may_be_an_emf_or_a_wmf) {
  for (const Bytes& metafile : {HalfEmf(green), HalfWmf(green).File()}) {
    const Pixels pixels = Drawn(PlusAround(metafile, 3));
    EXPECT_EQ(ColourAt(pixels, 20, 40), green);
    EXPECT_EQ(ColourAt(pixels, 40, 40), white);
    EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 20 * 40);
  }
}

TEST(NestedMetafiles, A_metafile_inside_stays_in_its_box) {
  EmfWriter inner(100, 100);
  inner.SelectStock(8).CreateBrush(1, 0, red).Select(1).Record(75, {0, 5}).Rectangle(-500, -500, 500, 500);
  EXPECT_EQ(MarksIn(Drawn(PlusAround(inner.File(), 3)), 0, 0, 100, 100), 40 * 40);
}

TEST(NestedMetafiles, Nesting_ends_at_a_depth) {
  const auto nested = [](int levels) {
    Bytes file = HalfEmf(red);
    for (int i = 0; i < levels; ++i) file = PlusAround(file, 3);
    return Drawn(file, {2000, 2000});
  };
  EXPECT_GT(MarksIn(nested(4), 0, 0, 2000, 2000), 0);
  EXPECT_EQ(MarksIn(nested(5), 0, 0, 2000, 2000), 0);
}

}  // namespace
}  // namespace lumidex::nested_metafile
