#include "pictures/codecs/tiff_facts.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>

#include "base/run_time_error.h"
#include "pictures/codecs/tiff_bands.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/counting_source.h"
#include "pictures/support/tiff_bytes.h"

namespace lumidex {
namespace {

using Tags = std::vector<TiffTag>;
using FileBytes = std::vector<std::uint8_t>;

constexpr TiffForm allForms[] = {{}, {.bigEndian = true}, {.wide = true}, {.bigEndian = true, .wide = true}};
constexpr std::int64_t mostBytes = std::int64_t{128} << 20;

struct Kind {
  unsigned bits = 8, samples = 1, photometric = PHOTOMETRIC_MINISBLACK, compression = COMPRESSION_NONE;
  Tags more = {};
  unsigned width = 5, height = 4, pieces = 1;
};

void Put(Tags& tags, const TiffTag& tag) {
  std::erase_if(tags, [&](const TiffTag& other) { return other.number == tag.number; });
  tags.insert(std::ranges::upper_bound(tags, tag.number, {}, &TiffTag::number), tag);
}

Tags TagsOf(const Kind& kind) {
  const bool tiled = std::ranges::count(kind.more, unsigned{TIFFTAG_TILEWIDTH}, &TiffTag::number) > 0;
  Tags tags = {{TIFFTAG_IMAGEWIDTH, {kind.width}},
               {TIFFTAG_IMAGELENGTH, {kind.height}, TiffTag::Long},
               {TIFFTAG_BITSPERSAMPLE, std::vector<std::uint64_t>(kind.samples, kind.bits)},
               {TIFFTAG_COMPRESSION, {kind.compression}},
               {TIFFTAG_PHOTOMETRIC, {kind.photometric}},
               {TIFFTAG_SAMPLESPERPIXEL, {kind.samples}}};
  Put(tags, {tiled ? 324U : 273U, std::vector<std::uint64_t>(kind.pieces, 8), TiffTag::Long});
  Put(tags, {tiled ? 325U : 279U, std::vector<std::uint64_t>(kind.pieces, 20), TiffTag::Long});
  for (const TiffTag& tag : kind.more) Put(tags, tag);
  return tags;
}

FileBytes FileOf(const Kind& kind, TiffForm form = {}) {
  return TiffBytes(TagsOf(kind), FileBytes(64, 7), form);
}

std::vector<Kind> PlainKinds() {
  const Tags separate = {{TIFFTAG_PLANARCONFIG, {2}}};
  const Tags map = {{TIFFTAG_COLORMAP, std::vector<std::uint64_t>(48, 500)}};
  const Tags tiles = {{TIFFTAG_TILEWIDTH, {16}}, {TIFFTAG_TILELENGTH, {32}}};
  std::vector<Kind> kinds = {
      {.bits = 1},
      {.bits = 1, .photometric = PHOTOMETRIC_MINISWHITE, .compression = COMPRESSION_CCITTFAX4},
      {.bits = 16},
      {.bits = 4, .photometric = PHOTOMETRIC_PALETTE, .more = map},
      {.bits = 8, .samples = 3, .photometric = PHOTOMETRIC_RGB},
      {.bits = 16, .samples = 3, .photometric = PHOTOMETRIC_RGB, .more = separate, .pieces = 3},
      {.samples = 4, .photometric = PHOTOMETRIC_SEPARATED},
      {.samples = 3, .photometric = PHOTOMETRIC_CIELAB},
      {.samples = 3, .photometric = PHOTOMETRIC_ICCLAB},
      {.bits = 32, .more = {{TIFFTAG_SAMPLEFORMAT, {3}}}},
      {.bits = 64, .samples = 3, .photometric = PHOTOMETRIC_RGB, .more = {{TIFFTAG_SAMPLEFORMAT, {3, 3, 3}}}},
      {.bits = 17},  // for the decoder to refuse
      {.samples = 6, .photometric = PHOTOMETRIC_RGB, .more = {{TIFFTAG_EXTRASAMPLES, {2, 0, 0}}}},
      {.samples = 5, .photometric = PHOTOMETRIC_SEPARATED, .more = {{TIFFTAG_EXTRASAMPLES, {1}}}},
      {.more = tiles, .width = 40, .height = 40, .pieces = 6},
      {.samples = 3,
       .photometric = PHOTOMETRIC_RGB,
       .more = tiles,
       .width = 30000,
       .height = 32,
       .pieces = 1875},
      {.more = {{TIFFTAG_ROWSPERSTRIP, {3}}}, .height = 10, .pieces = 4},
      {.more = {{TIFFTAG_ROWSPERSTRIP, {0xFFFFFFFF}, TiffTag::Long}}},
      {.more = {{TIFFTAG_ICCPROFILE, std::vector<std::uint64_t>(300, 1), TiffTag::Undefined}}},
      {.more = {{TIFFTAG_IMAGEDESCRIPTION, {'n', 'o', 't', 'e', 's', 0}, TiffTag::Text},
                {TIFFTAG_PREDICTOR, {2}},
                {50123, {1, 2}, TiffTag::Double},
                {60000, {3}}}},
      {.width = 65535, .height = 65535},
  };
  for (unsigned kind = 0; kind <= 2; ++kind)
    kinds.push_back({.samples = 4, .photometric = PHOTOMETRIC_RGB, .more = {{TIFFTAG_EXTRASAMPLES, {kind}}}});
  for (unsigned turn = 1; turn <= 8; ++turn) kinds.push_back({.more = {{TIFFTAG_ORIENTATION, {turn}}}});
  for (const unsigned compression : {2U, 3U, 4U, 5U, 7U, 8U, 32773U, 32946U})
    kinds.push_back({.compression = compression});
  return kinds;
}

std::optional<TiffFacts> FactsOf(const FileBytes& bytes) {
  return ReadTiffFacts(DataOf(bytes));
}

testing::AssertionResult LibraryAgrees(const FileBytes& bytes, const TiffFacts& facts) {
  const PictureData data = DataOf(bytes);
  const TiffFile file(data.Source(), mostBytes);
  if (file.Handle() == nullptr) return testing::AssertionFailure() << "refused: " << file.Message();
  if (!(LibraryTiffFacts(file) == facts)) return testing::AssertionFailure() << "other facts";
  const Size size{static_cast<int>(facts.layout.width), static_cast<int>(facts.layout.height)};
  if (!TiffBands(file, facts.layout, size, mostBytes).IsReadable())
    return testing::AssertionFailure() << "too large";
  return testing::AssertionSuccess();
}

TEST(TiffFacts, Of_plain_files_are_those_of_the_library) {
  const std::vector<Kind> kinds = PlainKinds();
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    for (const TiffForm form : allForms) {
      const FileBytes bytes = FileOf(kinds[i], form);
      const auto facts = FactsOf(bytes);
      ASSERT_TRUE(facts) << i << form.bigEndian << form.wide;
      EXPECT_TRUE(LibraryAgrees(bytes, *facts)) << i << form.bigEndian << form.wide;
    }
  }
}

TEST(TiffFacts, Tags_that_may_be_missing_have_the_meaning_the_format_gives_them) {
  Tags tags = TagsOf({.bits = 1});
  std::erase_if(tags, [](const TiffTag& tag) {
    return tag.number == TIFFTAG_BITSPERSAMPLE || tag.number == TIFFTAG_SAMPLESPERPIXEL;
  });
  const auto facts = FactsOf(TiffBytes(tags, FileBytes(64)));
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->layout.bits, 1);
  EXPECT_EQ(facts->layout.samples, 1);
  EXPECT_EQ(facts->layout.orientation, Orientation::Upright);
  EXPECT_TRUE(LibraryAgrees(TiffBytes(tags, FileBytes(64)), *facts));
}

TEST(TiffFacts, A_file_without_a_needed_tag_is_left_to_the_library) {
  for (const unsigned needed : {256U, 257U, 259U, 262U, 273U, 279U}) {
    Tags tags = TagsOf({});
    std::erase_if(tags, [&](const TiffTag& tag) { return tag.number == needed; });
    EXPECT_FALSE(FactsOf(TiffBytes(tags, FileBytes(64)))) << needed;
  }
  Tags tags = TagsOf({.bits = 1,
                      .photometric = PHOTOMETRIC_PALETTE,
                      .more = {{TIFFTAG_COLORMAP, std::vector<std::uint64_t>(6)}}});
  EXPECT_TRUE(FactsOf(TiffBytes(tags, FileBytes(64))));
  std::erase_if(tags, [&](const TiffTag& tag) { return tag.number == TIFFTAG_BITSPERSAMPLE; });
  EXPECT_FALSE(FactsOf(TiffBytes(tags, FileBytes(64)))) << "a map without its depth";
}

TEST(TiffFacts, Unusual_values_are_left_to_the_library) {
  const Tags unusual = {{TIFFTAG_IMAGEWIDTH, {0}},
                        {TIFFTAG_IMAGEWIDTH, {70000}, TiffTag::Long},
                        {TIFFTAG_IMAGEWIDTH, {5, 5}},
                        {TIFFTAG_IMAGEWIDTH, {5}, TiffTag::Byte},
                        {TIFFTAG_BITSPERSAMPLE, {0}},
                        {TIFFTAG_BITSPERSAMPLE, {8, 8}},
                        {TIFFTAG_COMPRESSION, {6}},
                        {TIFFTAG_COMPRESSION, {50000}},
                        {TIFFTAG_PHOTOMETRIC, {PHOTOMETRIC_YCBCR}},
                        {TIFFTAG_PHOTOMETRIC, {PHOTOMETRIC_PALETTE}},
                        {TIFFTAG_PHOTOMETRIC, {PHOTOMETRIC_RGB}},
                        {TIFFTAG_ORIENTATION, {0}},
                        {TIFFTAG_ORIENTATION, {9}},
                        {TIFFTAG_SAMPLESPERPIXEL, {0}},
                        {TIFFTAG_SAMPLESPERPIXEL, {2}},
                        {TIFFTAG_SAMPLESPERPIXEL, {40}},
                        {TIFFTAG_ROWSPERSTRIP, {0}},
                        {TIFFTAG_ROWSPERSTRIP, {3}},  // two strips, where one is told of
                        {TIFFTAG_ROWSPERSTRIP, {0xFFFFFFFE}, TiffTag::Long},
                        {TIFFTAG_STRIPOFFSETS, {8}, TiffTag::Byte},
                        {TIFFTAG_MINSAMPLEVALUE, {0}},
                        {TIFFTAG_PLANARCONFIG, {3}},
                        {TIFFTAG_TILEWIDTH, {16}},
                        {TIFFTAG_EXTRASAMPLES, {2}},
                        {TIFFTAG_SAMPLEFORMAT, {7}},
                        {TIFFTAG_ICCPROFILE, {}, TiffTag::Undefined},
                        {32997, {2}, TiffTag::Long},
                        {60000, {1}, 14}};
  for (const TiffTag& tag : unusual) {
    Tags tags = TagsOf({});
    ASSERT_TRUE(FactsOf(TiffBytes(tags, FileBytes(64))));
    Put(tags, tag);
    EXPECT_FALSE(FactsOf(TiffBytes(tags, FileBytes(64)))) << tag.number << ' ' << tag.type;
  }
  Kind kind{.samples = 3, .photometric = PHOTOMETRIC_RGB};
  kind.more = {{TIFFTAG_BITSPERSAMPLE, {8, 8, 16}}};
  EXPECT_FALSE(FactsOf(FileOf(kind)));
  kind = {.more = {{TIFFTAG_TILEWIDTH, {32768}}, {TIFFTAG_TILELENGTH, {32768}}}};
  EXPECT_FALSE(FactsOf(FileOf(kind))) << "a tile of a gibibyte";
}

TEST(TiffFacts, Tags_out_of_order_or_told_twice_are_left_to_the_library) {
  Tags tags = TagsOf({});
  std::swap(tags[2], tags[3]);
  EXPECT_FALSE(FactsOf(TiffBytes(tags, FileBytes(64))));
  tags = TagsOf({});
  tags.insert(tags.begin(), tags.front());
  EXPECT_FALSE(FactsOf(TiffBytes(tags, FileBytes(64))));
}

TEST(TiffFacts, Values_beyond_the_end_are_left_to_the_library) {
  FileBytes bytes =
      FileOf({.more = {{TIFFTAG_ICCPROFILE, std::vector<std::uint64_t>(300, 1), TiffTag::Undefined}}});
  ASSERT_TRUE(FactsOf(bytes));
  while (!bytes.empty()) {
    bytes.pop_back();
    ASSERT_FALSE(FactsOf(bytes)) << bytes.size();
  }
}

TEST(TiffFacts, Tags_of_more_values_than_any_file_has_are_left_to_the_library) {
  constexpr TiffForm form{.wide = true};
  FileBytes bytes = FileOf({.more = {{60000, {3}}}}, form);
  ASSERT_TRUE(FactsOf(bytes));
  bytes[bytes.size() - 8 - 10] = 1;  // of the count of the last tag the second byte from its end
  EXPECT_FALSE(FactsOf(bytes));
}

TEST(TiffFacts, What_does_not_begin_as_a_TIFF_file_is_left_to_the_library) {
  for (std::size_t at = 0; at < 4; ++at) {
    FileBytes bytes = FileOf({});
    bytes[at] ^= 4;
    EXPECT_FALSE(FactsOf(bytes)) << at;
  }
}

TEST(TiffFacts, A_directory_of_very_many_tags_is_left_to_the_library) {
  Tags tags = TagsOf({});
  while (tags.size() < 64) Put(tags, {40000 + static_cast<unsigned>(tags.size()), {1}});
  EXPECT_TRUE(FactsOf(TiffBytes(tags, FileBytes(64))));
  Put(tags, {50000, {1}});
  EXPECT_FALSE(FactsOf(TiffBytes(tags, FileBytes(64))));
  for (unsigned tag = 40000; tag < 65535; ++tag) tags.push_back({tag + 1, {1}});
  EXPECT_FALSE(FactsOf(TiffBytes(tags, FileBytes(64))));
}

TEST(TiffFacts, Offsets_as_large_as_numbers_go_are_left_to_the_library) {
  for (const TiffForm form : allForms) {
    FileBytes bytes = FileOf({}, form);
    const std::size_t width = form.wide ? 8 : 4;
    std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(width), width, std::uint8_t{0xFF});
    EXPECT_FALSE(FactsOf(bytes));
  }
}

// Sets one of the numbers of a directory that begins with the count at `directory`.
void Damage(FileBytes& bytes, std::size_t directory, TiffForm form, std::minstd_rand& random) {
  const auto below = [&](std::size_t count) { return static_cast<std::size_t>(random()) % count; };
  constexpr std::uint32_t telling[] = {0,   1,     2,     3,     4,     5,          6,         7,
                                       8,   9,     12,    16,    17,    32,         64,        255,
                                       262, 32767, 32768, 32773, 65535, 0x7FFFFFFF, 0xFFFFFFFF};
  const std::size_t countBytes = form.wide ? 8 : 2, entryBytes = form.wide ? 20 : 12;
  const std::size_t entries = bytes[directory + (form.bigEndian ? countBytes - 1 : 0)];
  const std::size_t entry = directory + countBytes + below(entries) * entryBytes;
  const std::size_t numberBytes = form.wide ? 8 : 4;
  const std::size_t fields[] = {0, 2, 4, 4 + numberBytes, 6 + numberBytes};
  const std::size_t field = below(std::size(fields));
  const std::size_t width = field == 2 ? numberBytes : 2;
  std::uint64_t number = telling[below(std::size(telling))];
  // Near what was there.
  if (below(3) == 0) number = bytes[entry + fields[field] + (form.bigEndian ? width - 1 : 0)] + below(5) - 2;
  for (std::size_t i = 0; i < width; ++i)
    bytes[entry + fields[field] + i] =
        static_cast<std::uint8_t>(number >> 8 * (form.bigEndian ? width - 1 - i : i));
}

TEST(TiffFacts, Of_damaged_files_are_those_of_the_library_or_none) {
  std::minstd_rand random(5);
  int read = 0, left = 0;
  for (const Kind& kind : PlainKinds()) {
    for (const TiffForm form : allForms) {
      const FileBytes whole = FileOf(kind, form);
      for (int i = 0; i < 25; ++i) {
        FileBytes bytes = whole;
        for (int changes = 1 + i % 3; changes > 0; --changes)
          Damage(bytes, TiffPixelsAt(form) + 64, form, random);
        const auto facts = FactsOf(bytes);
        ++(facts ? read : left);
        if (!facts) continue;
        ASSERT_TRUE(LibraryAgrees(bytes, *facts)) << read + left;
      }
    }
  }
  EXPECT_GT(read, 500);
  EXPECT_GT(left, 500);
}

TEST(TiffFacts, A_directory_far_behind_costs_one_read_more_than_the_head) {
  Kind kind{.samples = 3, .photometric = PHOTOMETRIC_RGB};
  kind.more = {{TIFFTAG_ICCPROFILE, std::vector<std::uint64_t>(300, 1), TiffTag::Undefined}};
  const auto source = std::make_shared<CountingSource>(TiffBytes(TagsOf(kind), FileBytes(100000)));
  const auto decoder = OpenDecoder(PictureData(source, ".tif"));
  EXPECT_EQ(decoder->Facts().size, (Size{5, 4}));
  EXPECT_EQ(source->reads, 2);
}

}  // namespace
}  // namespace lumidex
