#include "hostile_drawings.h"

#include <bit>
#include <string>

#include "hostile_filling.h"

namespace lumidex {
namespace {

// Points that run from one side to the other and back, so that all edges cross all others.
std::vector<std::uint8_t> Zigzag(int points, bool wide, bool down) {
  ByteWriter writer;
  for (int i = 0; i < points; ++i) {
    const auto along = static_cast<std::uint32_t>((i * 7919) % side);
    const std::uint32_t across = i % 2 == 0 ? 0 : side;
    const std::uint32_t x = down ? along : across, y = down ? across : along;
    wide ? writer.U32Le(x).U32Le(y) : writer.U16Le(x).U16Le(y);
  }
  return writer.Take();
}

void Polygon16(EmfWriter& writer, unsigned type, int points, bool down) {
  writer.Record(type, {0, 0, side, side, points}, Zigzag(points, false, down));
}

std::vector<std::uint8_t> CrossingPolygon(int points, bool down) {
  return FilledEmf(Tools(1), [=](EmfWriter& writer, int) { Polygon16(writer, 86, points, down); });
}

std::vector<std::uint8_t> ManyCrossingPolygons() {
  return CrossingPolygon(500, true);
}
std::vector<std::uint8_t> SomeCrossingPolygons() {
  return CrossingPolygon(2200, true);
}
std::vector<std::uint8_t> FewCrossingPolygons() {
  return CrossingPolygon(60000, true);
}
std::vector<std::uint8_t> LevelCrossingPolygons() {
  return CrossingPolygon(60000, false);
}
std::vector<std::uint8_t> SomeLevelCrossingPolygons() {
  return CrossingPolygon(20000, false);
}
std::vector<std::uint8_t> CrossingPolygonsOfThePlainKind() {
  return FilledWmf([](WmfWriter& writer, int) { writer.Record(0x0324, {16000}, Zigzag(16000, false, true)); },
                   [](WmfWriter& writer) { writer.CreateBrush(0, 0x336699).Select(0); });
}
std::vector<std::uint8_t> WideCrossingLines() {
  return FilledEmf(Tools(40), [](EmfWriter& writer, int) { Polygon16(writer, 87, 5000, true); });
}
std::vector<std::uint8_t> HugePens() {
  return FilledEmf(Tools(3000), [](EmfWriter& writer, int) { Polygon16(writer, 87, 100, true); });
}
std::vector<std::uint8_t> ThinCrossingLines() {
  return FilledEmf(Tools(1), [](EmfWriter& writer, int) { Polygon16(writer, 87, 60000, true); });
}
std::vector<std::uint8_t> LooseLines() {
  return FilledEmf(Tools(2), [](EmfWriter& writer, int i) {
    writer.MoveTo(i * 97 % side, 0).LineTo(i * 61 % side, side);
  });
}
std::vector<std::uint8_t> DashedLines() {
  EmfWriter writer = Sheet();
  writer.Record(95, {1, 0, 0, 0, 0, 0x10007, 3, 0, 0xFF, 0, 2, 1, 1}).Select(1);
  return FilledEmf(std::move(writer), [](EmfWriter& w, int) { Polygon16(w, 87, 300, true); });
}
std::vector<std::uint8_t> ManyEllipses() {
  return FilledEmf(Tools(3), [](EmfWriter& writer, int i) { writer.Ellipse(i % 50, i % 60, side, side); });
}
std::vector<std::uint8_t> ManyBoxes() {
  return FilledEmf(Tools(1), [](EmfWriter& writer, int i) { writer.Rectangle(i % 50, i % 60, side, side); });
}
std::vector<std::uint8_t> Curves() {
  return FilledEmf(Tools(1), [](EmfWriter& writer, int) { Polygon16(writer, 85, 30001, true); });
}
std::vector<std::uint8_t> CurvesFarOutside() {
  return FilledEmf(Tools(1), [](EmfWriter& writer, int) {
    ByteWriter points;
    for (int i = 0; i < 3001; ++i)
      points.U32Le(static_cast<std::uint32_t>(i % 2 == 0 ? -2000000000 : 2000000000))
          .U32Le(static_cast<std::uint32_t>(i % 3 == 0 ? 2000000000 : -2000000000));
    writer.Record(2, {0, 0, 0, 0, 3001}, points.Take());
  });
}
std::vector<std::uint8_t> HatchedBoxes() {
  EmfWriter writer = Sheet();
  writer.CreateBrush(1, 2, 0x4080FF, 5).Select(1);
  return FilledEmf(std::move(writer), [](EmfWriter& w, int i) { w.Rectangle(0, i % 8, side, side); });
}

void TileBrush(EmfWriter& writer, int number, int width, int height, int bits) {
  const std::vector<std::uint8_t> rows(
      static_cast<std::size_t>((width * bits + 31) / 32 * 4) * static_cast<std::size_t>(height), 0x5A);
  const std::vector<std::uint8_t> bitmap = Bitmap(width, height, bits, 0, 1 << bits, rows);
  const std::int64_t headerBytes = 40 + (std::int64_t{4} << bits);
  writer.Record(94, {number, 0, 32, headerBytes, 32 + headerBytes, static_cast<std::int64_t>(rows.size())},
                bitmap);
}

std::vector<std::uint8_t> TiledBoxes(int width, int height) {
  EmfWriter writer = Sheet();
  TileBrush(writer, 1, width, height, 1);
  writer.Select(1);
  return FilledEmf(std::move(writer), [](EmfWriter& w, int i) { w.Rectangle(0, i % 8, side, side); });
}
std::vector<std::uint8_t> SmallTiles() {
  return TiledBoxes(8, 8);
}
std::vector<std::uint8_t> LargeTiles() {
  return TiledBoxes(2000, 2000);
}
std::vector<std::uint8_t> LargeTilesOnTinyBoxes() {
  EmfWriter writer = Sheet();
  TileBrush(writer, 1, 2000, 2000, 1);
  writer.Select(1);
  return FilledEmf(std::move(writer), [](EmfWriter& w, int i) { w.Rectangle(i % side, 5, i % side + 2, 8); });
}
std::vector<std::uint8_t> ManyLargeTiles() {
  // Run-length bitmaps without any pixels: large in memory, nothing in the file.
  return FilledEmf(Sheet(), [](EmfWriter& writer, int i) {
    const std::vector<std::uint8_t> bitmap = Bitmap(4000, 4000, 8, 1, 2, {0, 1});
    writer.Record(94, {i + 1, 0, 32, 48, 80, 2}, bitmap);
  });
}
std::vector<std::uint8_t> HugeBitmaps() {
  return FilledEmf(Sheet(), [](EmfWriter& writer, int) {
    const std::vector<std::uint8_t> header = Bitmap(4900, 4900, 8, 1, 2, {});
    writer.StretchDib(0, 0, side, side, header, std::vector<std::uint8_t>{0, 1}, 4900, 4900);
  });
}
std::vector<std::uint8_t> SmallBitmapsStretched() {
  return FilledEmf(Sheet(), [](EmfWriter& writer, int i) {
    const std::vector<std::uint8_t> bits(16, static_cast<std::uint8_t>(i));
    writer.StretchDib(0, 0, side, side, Bitmap(2, 2, 24, 0, 0, {}), bits, 2, 2);
  });
}
std::vector<std::uint8_t> TransfersWithThePicture() {
  return FilledEmf(Sheet(), [](EmfWriter& writer, int i) {
    const std::vector<std::uint8_t> bits(16, static_cast<std::uint8_t>(i));
    writer.StretchDib(0, 0, side, side, Bitmap(2, 2, 24, 0, 0, {}), bits, 2, 2, 0x00660046);
  });
}
std::vector<std::uint8_t> ShrunkBitmaps() {
  return FilledEmf(Sheet(), [](EmfWriter& writer, int) {
    const std::vector<std::uint8_t> bits(2048 * 256, 0x33);
    writer.StretchDib(0, 0, 300, 300, Bitmap(2048, 2048, 1, 0, 2, {}), bits, 2048, 2048);
  });
}
std::vector<std::uint8_t> Inversions() {
  return FilledWmf(
      [](WmfWriter& writer, int) {
        writer.Record(0x061D, {0x0009, 0x0055, side, side, 0, 0});
      },
      [](WmfWriter&) {});
}
std::vector<std::uint8_t> Gradients() {
  return FilledEmf(Sheet(), [](EmfWriter& writer, int) {
    ByteWriter tail;
    for (const auto& [x, y] : {std::pair{0U, 0U}, std::pair{4000U, 0U}, std::pair{0U, 4000U}})
      tail.U32Le(x).U32Le(y).U16Le(x * 16).U16Le(y * 16).U16Le(0xFF00).U16Le(0);
    tail.U32Le(0).U32Le(1).U32Le(2);
    writer.Record(118, {0, 0, 0, 0, 3, 1, 2}, tail.Take());
  });
}
std::vector<std::uint8_t> ManyGradientTriangles() {
  return FilledEmf(Sheet(), [](EmfWriter& writer, int) {
    ByteWriter tail;
    for (const auto& [x, y] : {std::pair{0U, 0U}, std::pair{4000U, 0U}, std::pair{0U, 4000U}})
      tail.U32Le(x).U32Le(y).U16Le(x * 16).U16Le(y * 16).U16Le(0xFF00).U16Le(0);
    for (int i = 0; i < 40000; ++i) tail.U32Le(0).U32Le(1).U32Le(2);
    writer.Record(118, {0, 0, 0, 0, 3, 40000, 2}, tail.Take());
  });
}

std::vector<std::uint8_t> Text(int height, const std::string& letters, bool otherFonts) {
  return FilledEmf(Sheet(), [=](EmfWriter& writer, int i) {
    if (i == 0 || otherFonts)
      writer.CreateFont(1, -height - i % 50, i % 3600, "Family " + std::to_string(otherFonts ? i : 0))
          .Select(1);
    writer.Text(10, side / 2, letters);
  });
}
std::vector<std::uint8_t> SmallText() {
  return Text(12, std::string(2000, 'W'), false);
}
std::vector<std::uint8_t> LargeText() {
  return Text(190, "Graphics", false);
}
std::vector<std::uint8_t> HugeText() {
  return Text(3000, "&%@", false);
}
std::vector<std::uint8_t> ManyFonts() {
  return Text(20, "abc", true);
}
std::vector<std::uint8_t> TextOfManySizes() {
  return FilledEmf(Sheet(), [](EmfWriter& writer, int i) {
    writer.CreateFont(1, -100 - i % 97, i * 7 % 3600, "Arial").Select(1);
    writer.Text(10, side / 2, "The quick brown fox jumps over the lazy dog");
  });
}
std::vector<std::uint8_t> TextThroughMasks() {
  EmfWriter writer = Tools(1);
  writer.Record(59, {}).Ellipse(0, 0, side, side).Record(60, {}).Record(67, {1});
  return FilledEmf(std::move(writer), [](EmfWriter& w, int) { w.Text(10, side / 2, "abcdefgh"); });
}

std::vector<std::uint8_t> ClipPaths() {
  return FilledEmf(Tools(1), [](EmfWriter& writer, int) {
    writer.Record(59, {}).Ellipse(0, 0, side, side).Record(60, {}).Record(67, {3});
  });
}
std::vector<std::uint8_t> SavedClipPaths() {
  return FilledEmf(Tools(1), [](EmfWriter& writer, int) {
    writer.Record(59, {}).Ellipse(0, 0, side, side).Record(60, {}).Record(67, {3}).Record(33, {});
  });
}
std::vector<std::uint8_t> BoxesThroughAMask() {
  EmfWriter writer = Tools(1);
  writer.Record(59, {}).Ellipse(0, 0, side, side).Record(60, {}).Record(67, {1});
  return FilledEmf(std::move(writer), [](EmfWriter& w, int) { w.Rectangle(0, 0, side, side); });
}
std::vector<std::uint8_t> ExcludedBoxes() {
  return FilledWmf(
      [](WmfWriter& writer, int i) {
        writer.Record(0x0415, {i % 200 + 9, 9, i % 200, 0});
      },
      [](WmfWriter&) {});
}
std::vector<std::uint8_t> ClipRegionsOfManyBoxes() {
  return FilledEmf(Sheet(), [](EmfWriter& writer, int) {
    ByteWriter tail;
    constexpr std::uint32_t count = 30000;
    tail.U32Le(32).U32Le(1).U32Le(count).U32Le(count * 16).U32Le(0).U32Le(0).U32Le(side).U32Le(side);
    for (std::uint32_t i = 0; i < count; ++i)
      tail.U32Le(i % 100).U32Le(i % 77).U32Le(side - i % 50).U32Le(side - i % 90);
    writer.Record(75, {static_cast<std::int64_t>(tail.Size()), 3}, tail.Take());
  });
}
// Makes a region of many boxes, whose use takes a record of eight bytes.
void ManyBoxedRegion(WmfWriter& writer) {
  constexpr int count = 20000;
  ByteWriter scans;
  for (int i = 0; i < count; ++i)
    for (const int word : {2, i % side, i % side + 1, 0, side, 2})
      scans.U16Le(static_cast<std::uint32_t>(word));
  writer.Record(0x06FF, {0, 6, 0, 0, 0, count, 2, 0, 0, side, side}, scans.Take());
}
std::vector<std::uint8_t> OneRegionOften() {
  return FilledWmf([](WmfWriter& writer, int) { writer.Record(0x012B, {0}); },
                   [](WmfWriter& writer) {
                     ManyBoxedRegion(writer);
                     writer.CreateBrush(0, 0x336699).Select(1);
                   });
}
std::vector<std::uint8_t> OneRegionAsClipOften() {
  return FilledWmf([](WmfWriter& writer, int) { writer.Record(0x012C, {0}); }, ManyBoxedRegion);
}
std::vector<std::uint8_t> FlattenedOften() {
  EmfWriter writer = Tools(1);
  writer.Record(59, {});
  Polygon16(writer, 85, 60001, true);
  return FilledEmf(std::move(writer), [](EmfWriter& w, int) { w.Record(65, {}); });
}
std::vector<std::uint8_t> SavedStates() {
  EmfWriter writer = Sheet();
  writer.CreateFont(1, -20, 0, "A family with quite a long name");
  writer.Record(95,
                {2, 0, 0, 0, 0, 0x10007, 3, 0, 0xFF, 0, 16, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1});
  writer.Select(1).Select(2);
  return FilledEmf(std::move(writer), [](EmfWriter& w, int) { w.Record(33, {}); });
}
std::vector<std::uint8_t> LargeTransparentBlends() {
  return FilledEmf(Sheet(), [](EmfWriter& writer, int) {
    const std::int64_t one = std::bit_cast<std::uint32_t>(1.0F);
    const std::vector<std::uint8_t> bitmap = Bitmap(2, 2, 32, 0, 0, std::vector<std::uint8_t>(16, 0x40));
    writer.Record(114, {0, 0,   0, 0, 0, 0, side, side, 0x01800000, 0,  0, one, 0,
                        0, one, 0, 0, 0, 0, 108,  40,   148,        16, 2, 2},
                  bitmap);
  });
}
std::vector<std::uint8_t> SinglePixels() {
  return FilledWmf(
      [](WmfWriter& writer, int i) {
        writer.Record(0x041F, {0xFF, 0, i % 99, i % 98});
      },
      [](WmfWriter&) {});
}
std::vector<std::uint8_t> MeasuredOnly() {
  WmfWriter writer;
  return Filled<WmfWriter>(std::move(writer),
                           [](WmfWriter& w, int) { w.Record(0x0324, {16000}, Zigzag(16000, false, true)); });
}
std::vector<std::uint8_t> SmallRecords() {
  return FilledWmf([](WmfWriter& writer, int) { writer.Record(0x041B, {3, 3, 2, 2}); }, [](WmfWriter&) {});
}

}  // namespace

const std::vector<HostileFile>& HostileDrawings() {
  static const std::vector<HostileFile> drawings = {
      {"many crossing polygons", ".emf", ManyCrossingPolygons},
      {"some crossing polygons", ".emf", SomeCrossingPolygons},
      {"few crossing polygons", ".emf", FewCrossingPolygons},
      {"level crossing polygons", ".emf", LevelCrossingPolygons},
      {"some level crossing polygons", ".emf", SomeLevelCrossingPolygons},
      {"crossing polygons", ".wmf", CrossingPolygonsOfThePlainKind},
      {"wide crossing lines", ".emf", WideCrossingLines},
      {"huge pens", ".emf", HugePens},
      {"thin crossing lines", ".emf", ThinCrossingLines},
      {"loose lines", ".emf", LooseLines},
      {"dashed lines", ".emf", DashedLines},
      {"ellipses", ".emf", ManyEllipses},
      {"boxes", ".emf", ManyBoxes},
      {"curves", ".emf", Curves},
      {"curves far outside", ".emf", CurvesFarOutside},
      {"hatched boxes", ".emf", HatchedBoxes},
      {"small tiles", ".emf", SmallTiles},
      {"large tiles", ".emf", LargeTiles},
      {"large tiles on tiny boxes", ".emf", LargeTilesOnTinyBoxes},
      {"many large tiles", ".emf", ManyLargeTiles},
      {"huge bitmaps", ".emf", HugeBitmaps},
      {"small bitmaps stretched", ".emf", SmallBitmapsStretched},
      {"transfers with the picture", ".emf", TransfersWithThePicture},
      {"shrunk bitmaps", ".emf", ShrunkBitmaps},
      {"inversions", ".wmf", Inversions},
      {"gradients", ".emf", Gradients},
      {"many gradient triangles", ".emf", ManyGradientTriangles},
      {"small text", ".emf", SmallText},
      {"large text", ".emf", LargeText},
      {"huge text", ".emf", HugeText},
      {"many fonts", ".emf", ManyFonts},
      {"text of many sizes", ".emf", TextOfManySizes},
      {"text through masks", ".emf", TextThroughMasks},
      {"clip paths", ".emf", ClipPaths},
      {"saved clip paths", ".emf", SavedClipPaths},
      {"boxes through a mask", ".emf", BoxesThroughAMask},
      {"excluded boxes", ".wmf", ExcludedBoxes},
      {"clip regions of many boxes", ".emf", ClipRegionsOfManyBoxes},
      {"one region often", ".wmf", OneRegionOften},
      {"one region as clip often", ".wmf", OneRegionAsClipOften},
      {"flattened often", ".emf", FlattenedOften},
      {"saved states", ".emf", SavedStates},
      {"transparent blends", ".emf", LargeTransparentBlends},
      {"single pixels", ".wmf", SinglePixels},
      {"measured only", ".wmf", MeasuredOnly},
      {"small records", ".wmf", SmallRecords},
  };
  return drawings;
}

}  // namespace lumidex
