#include "hostile_plus_drawings.h"

#include "gallery/encoders/plus_writer.h"
#include "hostile_filling.h"

namespace lumidex {
namespace {

using File = std::vector<std::uint8_t>;

constexpr std::uint32_t version = 0xDBC01002;
constexpr std::uint32_t wide = static_cast<std::uint32_t>(side);

std::vector<std::uint8_t> Box(std::uint32_t width, std::uint32_t height) {
  return Words({0, width | height << 16});
}

// Brush 0 from `words` and `tail`.
PlusWriter WithBrush(std::initializer_list<std::uint32_t> words, std::span<const std::uint8_t> tail = {}) {
  ByteWriter brush;
  brush.U32Le(version);
  for (const std::uint32_t word : words) brush.U32Le(word);
  brush.Append(tail);
  PlusWriter writer(false, side);
  return writer.Object(brushKind, 0, brush.Take());
}

File FilledPlus(PlusWriter writer, const std::function<void(PlusWriter&, int)>& step) {
  return Filled<PlusWriter>(std::move(writer), step);
}

File FullBoxes(PlusWriter writer) {
  return FilledPlus(std::move(writer), [](PlusWriter& w, int) {
    w.Record(0x400A, narrow, {0, 1}, Box(wide, wide));
  });
}

PlusWriter LineBrush() {
  return WithBrush({4, 2, 1, 0, 0, Float(70), Float(50), 0x80FF0000, 0xFF00FF00, 0, 0, Float(0.7F),
                    Float(0.7F), Float(-0.7F), Float(0.7F), 0, 0});
}
File LineShadings() {
  return FullBoxes(LineBrush());
}

// An outline of so many corners around the middle, zigzag.
PlusWriter CentreBrush(int corners) {
  ByteWriter outline;
  for (int i = 0; i < corners; ++i) {
    outline.U32Le(Float(static_cast<float>(i * 7919 % side)));
    outline.U32Le(Float(i % 2 == 0 ? 0.0F : static_cast<float>(side)));
  }
  return WithBrush({3, 0, 0, 0xFFFF0000, Float(2000), Float(2000), 2, 0xFF00FF00, 0xFF0000FF,
                    static_cast<std::uint32_t>(corners)},
                   outline.Take());
}
File CentreShadings() {
  return FullBoxes(CentreBrush(4));
}
File CentreShadingsOfManyCorners() {
  return FullBoxes(CentreBrush(1024));
}
File CentreShadingsOnTinyBoxes() {
  return FilledPlus(CentreBrush(1024), [](PlusWriter& w, int i) {
    const auto at = static_cast<std::uint32_t>(i % side);
    w.Record(0x400A, narrow, {0, 1}, Words({at | at << 16, 2 | 2 << 16}));
  });
}
File ManyShadingBrushes() {
  return FilledPlus(PlusWriter(false, side), [](PlusWriter& w, int) {
    ByteWriter brush;
    for (const std::uint32_t word : {version, 4U, 4U, 0U, 0U, 0U, Float(50), Float(50), 0U, 0U, 0U, 0U, 256U})
      brush.U32Le(word);
    for (int i = 0; i < 512; ++i) brush.U32Le(static_cast<std::uint32_t>(i));
    w.Object(brushKind, 0, brush.Take());
    w.Record(0x400A, narrow, {0, 1}, Box(wide, 9));
  });
}

// A picture of side by side pixels, whose stored rows all are the same one.
std::vector<std::uint8_t> StoredPixels(std::uint32_t width, std::uint32_t height) {
  return Words({version, 1, width, height, 1, 0x0026200A, 0, 0xFF336699, 0x80336699});
}
PlusWriter TurnedTile(std::uint32_t width, std::uint32_t height) {
  ByteWriter tail;
  for (const float part : {0.7F, 0.7F, -0.7F, 0.7F, 0.3F, 0.3F}) tail.U32Le(Float(part));
  return WithBrush({2, 2, 1}, tail.Append(StoredPixels(width, height)).Take());
}
File TurnedSmallTiles() {
  return FullBoxes(TurnedTile(7, 5));
}
File TurnedLargeTiles() {
  return FullBoxes(TurnedTile(2000, 2000));
}
File ManyTurnedTiles() {
  return FilledPlus(PlusWriter(false, side), [](PlusWriter& w, int) {
    ByteWriter brush;
    brush.U32Le(version).U32Le(2).U32Le(0).U32Le(0).Append(StoredPixels(4000, 4000));
    w.Object(brushKind, 0, brush.Take());
    w.Record(0x400A, narrow, {0, 1}, Box(9, 9));
  });
}
File PlusHatches() {
  return FullBoxes(WithBrush({1, 46, 0xFFFF0000, 0xFF00FF00}));
}
File WrappedText() {
  ByteWriter font;
  font.U32Le(version).U32Le(Float(10)).U32Le(0).U32Le(0).U32Le(0).U32Le(1).U16Le('A').U16Le(0);
  PlusWriter writer(false, side);
  writer.Object(fontKind, 0, font.Take());
  return FilledPlus(std::move(writer), [](PlusWriter& w, int) {
    ByteWriter text;
    for (int i = 0; i < 1000; ++i) text.U16Le('W').U16Le(' ');
    w.Record(0x401C, colourInstead, {0xFF000000, 255, 2000, 0, 0, Float(50), Float(90)}, text.Take());
  });
}
File RegionsOfManyParts() {
  ByteWriter region;
  constexpr int parts = 60;
  region.U32Le(version).U32Le(2 * parts);
  for (int i = 0; i < parts; ++i) region.U32Le(3);
  for (int i = 0; i <= parts; ++i) {
    const auto path =
        Words({version, 3, 0x4000, static_cast<std::uint32_t>(i), wide, wide << 16, 0x81010100});
    region.U32Le(0x10000001).U32Le(static_cast<std::uint32_t>(path.size())).Append(path);
  }
  PlusWriter writer(false, side);
  writer.Object(regionKind, 0, region.Take());
  return FilledPlus(std::move(writer), [](PlusWriter& w, int) { w.Record(0x4034, 0, {}); });
}
// A region whose every combination joins two others, as deep as so many combinations allow, used again and
// again.
File RegionsOfCombinations(int combinations, bool onTheRight) {
  const auto leaf = [](int i) {
    return Words(
        {0x10000001, 28, version, 3, 0x4000, static_cast<std::uint32_t>(i), wide, wide << 16, 0x81010100});
  };
  ByteWriter region;
  region.U32Le(version).U32Le(0);
  if (onTheRight) {
    for (int i = 0; i < combinations; ++i) region.U32Le(3).Append(leaf(i));
    region.Append(leaf(0));
  } else {
    for (int i = 0; i < combinations; ++i) region.U32Le(3).U32Le(4).Append(leaf(i)).Append(leaf(i + 7));
    region.Append(leaf(0));
  }
  PlusWriter writer(false, side);
  writer.Object(regionKind, 0, region.Take());
  return FilledPlus(std::move(writer), [](PlusWriter& w, int) { w.Record(0x4034, 0, {}); });
}
File RegionsNestedOnTheRight() {
  return RegionsOfCombinations(60, true);
}
File RegionsOfManyCombinations() {
  return RegionsOfCombinations(8000, false);
}

// A pen with the arrow or outline of so many points at both ends of its lines.
PlusWriter CappedPen(std::span<const std::uint8_t> cap) {
  ByteWriter pen;
  pen.U32Le(version).U32Le(0).U32Le(3 << 11).U32Le(0).U32Le(Float(9));
  for (int end = 0; end < 2; ++end) pen.U32Le(static_cast<std::uint32_t>(cap.size())).Append(cap);
  pen.U32Le(version).U32Le(0).U32Le(0x80FF0000);
  PlusWriter writer(false, side);
  return writer.Object(penKind, 1, pen.Take());
}
File ShortCappedLines(PlusWriter writer) {
  return FilledPlus(std::move(writer), [](PlusWriter& w, int) {
    ByteWriter path;
    constexpr std::uint32_t points = 800;
    path.U32Le(version).U32Le(points).U32Le(0x4000);
    for (std::uint32_t i = 0; i < points; ++i) path.U16Le(i * 7919 % wide).U16Le(i * 6007 % wide);
    for (std::uint32_t i = 0; i < points; ++i) path.Add({static_cast<std::uint8_t>(i % 2)});
    w.Object(pathKind, 2, path.Take());
    for (int i = 0; i < 20; ++i) w.Record(0x4015, 2, {1});
  });
}
File LinesWithArrows() {
  return ShortCappedLines(
      CappedPen(Words({version, 1, Float(30), Float(40), 0, 1, 0, 0, 0, Float(10), Float(1), 0, 0, 0, 0})));
}
File LinesWithOutlinedEnds() {
  constexpr std::uint32_t points = 900;
  ByteWriter outline;
  outline.U32Le(version).U32Le(points).U32Le(0x4000);
  for (std::uint32_t i = 0; i < points; ++i) outline.U16Le(i * 79 % 50).U16Le(i % 2 * 50);
  for (std::uint32_t i = 0; i < points; ++i) outline.Add({static_cast<std::uint8_t>(i > 0)});
  outline.PadTo(4);
  ByteWriter cap;
  for (const std::uint32_t word : {version, 0U, 3U, 0U, 0U, 0U, 0U, 0U, 0U, Float(1), 0U, 0U, 0U, 0U})
    cap.U32Le(word);
  for (int i = 0; i < 2; ++i) cap.U32Le(static_cast<std::uint32_t>(outline.Size())).Append(outline.Bytes());
  return ShortCappedLines(CappedPen(cap.Bytes()));
}

File LongSplines() {
  PlusWriter writer(false, side);
  writer.Object(penKind, 1, Words({version, 0, 0, 0, Float(3), version, 0, 0xFF0000FF}));
  return FilledPlus(std::move(writer), [](PlusWriter& w, int) {
    ByteWriter points;
    for (int i = 0; i < 20000; ++i)
      points.U16Le(static_cast<std::uint32_t>(i * 7919 % side)).U16Le(i % 2 == 0 ? 0 : wide);
    w.Record(0x4017, narrow | 1, {Float(0.5), 20000}, points.Take());
  });
}

// Each level draws the one inside it a hundred times.
File DrawingsInDrawings() {
  File inner = Tools(1).Ellipse(0, 0, side, side).File();
  for (int level = 0; level < 5; ++level) {
    ByteWriter image;
    image.U32Le(version).U32Le(2).U32Le(3).U32Le(static_cast<std::uint32_t>(inner.size())).Append(inner);
    PlusWriter writer(false, side);
    writer.Object(imageKind, 0, image.Take());
    const auto step = [](PlusWriter& w, int) {
      w.Record(0x401A, narrow, {0, 2, 0, 0, Float(1), Float(1)}, Box(wide, wide));
    };
    if (level == 4) return FilledPlus(writer, step);
    for (int i = 0; i < 100; ++i) step(writer, i);
    inner = writer.File();
  }
  return inner;
}
// Each level draws a large picture of its own before the drawing inside it.
File PicturesAtEachDepth() {
  File inner;
  for (int level = 0; level < 5; ++level) {
    PlusWriter writer(false, side);
    writer.Object(imageKind, 1, StoredPixels(4000, 4000));
    writer.Record(0x401A, narrow | 1, {0, 2, 0, 0, Float(4000), Float(4000)}, Box(9, 9));
    ByteWriter image;
    image.U32Le(version).U32Le(2).U32Le(3).U32Le(static_cast<std::uint32_t>(inner.size())).Append(inner);
    writer.Object(imageKind, 0, image.Take());
    writer.Record(0x401A, narrow, {0, 2, 0, 0, Float(1), Float(1)}, Box(wide, wide));
    inner = writer.File();
  }
  return inner;
}
File EmptyDrawingsInside() {
  const File inner = EmfWriter(9, 9).File();
  ByteWriter image;
  image.U32Le(version).U32Le(2).U32Le(3).U32Le(static_cast<std::uint32_t>(inner.size())).Append(inner);
  PlusWriter writer(false, side);
  writer.Object(imageKind, 0, image.Take());
  return FilledPlus(std::move(writer), [](PlusWriter& w, int) {
    w.Record(0x401A, narrow, {0, 2, 0, 0, Float(1), Float(1)}, Box(wide, wide));
  });
}

File LinesOfAnotherOperation() {
  EmfWriter writer = Tools(3);
  writer.Record(20, {7});
  return FilledEmf(std::move(writer),
                   [](EmfWriter& w, int i) { w.MoveTo(i * 97 % side, 0).LineTo(i * 61 % side, side); });
}
File EllipsesOfAnotherOperation() {
  EmfWriter writer = Tools(3);
  writer.Record(20, {7});
  return FilledEmf(std::move(writer), [](EmfWriter& w, int i) { w.Ellipse(i % 50, i % 60, side, side); });
}
File PolygonsOfAnotherOperation() {
  EmfWriter writer = Tools(3);
  writer.Record(20, {7});
  return FilledEmf(std::move(writer), [](EmfWriter& w, int) {
    ByteWriter points;
    for (int i = 0; i < 3000; ++i)
      points.U16Le(static_cast<std::uint32_t>(i * 7919 % side)).U16Le(i % 2 == 0 ? 0 : wide);
    w.Record(86, {0, 0, side, side, 3000}, points.Take());
  });
}
// A path of many lines, widened, becomes the clip again and again.
File WidenedClips() {
  return FilledEmf(Tools(300), [](EmfWriter& w, int) {
    ByteWriter points;
    for (int i = 0; i < 200; ++i)
      points.U16Le(static_cast<std::uint32_t>(i * 7919 % side)).U16Le(i % 2 == 0 ? 0 : wide);
    w.Record(59, {}).Record(87, {0, 0, side, side, 200}, points.Take());
    w.Record(60, {}).Record(66, {}).Record(67, {5});
  });
}
// Two operations through a mask that is as large as a small record can ask for.
File MaskedTransfers() {
  constexpr std::int64_t one = std::bit_cast<std::uint32_t>(1.0F);
  return FilledEmf(Tools(1), [](EmfWriter& w, int) {
    const auto mask = Bitmap(4000, 4000, 1, 0, 2, std::vector<std::uint8_t>(600, 0x5A));
    w.Record(78, {0, 0, 0, 0, 0, 0, side, side, 0x5AF00000, 0, 0, one, 0,  0,   one,
                  0, 0, 0, 0, 0, 0, 0,    0,    0,          0, 0, 128, 48, 176, 600},
             mask);
  });
}
// The palette grows and shrinks.
File ResizedPalettes() {
  EmfWriter writer = Sheet();
  for (int i = 1; i < 200; ++i) writer.Record(49, {i, 0x10300, 0xFF});
  return FilledEmf(std::move(writer), [](EmfWriter& w, int i) {
    w.Record(51, {i % 200, 65535}).Record(51, {i % 200, 1});
  });
}
File Floods() {
  return FilledWmf(
      [](WmfWriter& w, int i) {
        w.Record(0x0419, {0x33, 0, i % side, i % side});
      },
      [](WmfWriter& w) { w.CreateBrush(0, 0x80C0FF).Select(0); });
}
File FloodsBetweenLines() {
  return FilledWmf(
      [](WmfWriter& w, int i) {
        w.Record(0x0419, {0, 0, i % side, i % side});
      },
      [](WmfWriter& w) {
        w.CreateBrush(0, 0x80C0FF).Select(0).CreatePen(0, 0, 0).Select(1);
        // A comb: one part of very many runs.
        for (int x = 0; x < side; x += 4) w.MoveTo(x, 4).LineTo(x, side);
      });
}
File FramedRegions() {
  return FilledWmf(
      [](WmfWriter& w, int) {
        w.Record(0x0429, {0, 1, 9, 9});
      },
      [](WmfWriter& w) {
        constexpr int count = 20000;
        ByteWriter scans;
        for (int i = 0; i < count; ++i)
          for (const int word : {2, i % side, i % side + 1, 0, side, 2})
            scans.U16Le(static_cast<std::uint32_t>(word));
        w.Record(0x06FF, {0, 6, 0, 0, 0, count, 2, 0, 0, side, side}, scans.Take());
        w.CreateBrush(0, 0x336699);
      });
}

}  // namespace

const std::vector<HostileFile>& HostilePlusDrawings() {
  static const std::vector<HostileFile> drawings = {
      {"shadings along a line", ".emf", LineShadings},
      {"shadings from a centre", ".emf", CentreShadings},
      {"shadings of many corners", ".emf", CentreShadingsOfManyCorners},
      {"shadings on tiny boxes", ".emf", CentreShadingsOnTinyBoxes},
      {"many shading brushes", ".emf", ManyShadingBrushes},
      {"turned small tiles", ".emf", TurnedSmallTiles},
      {"turned large tiles", ".emf", TurnedLargeTiles},
      {"many turned tiles", ".emf", ManyTurnedTiles},
      {"hatches of the later kind", ".emf", PlusHatches},
      {"wrapped text", ".emf", WrappedText},
      {"regions of many parts", ".emf", RegionsOfManyParts},
      {"regions nested on the right", ".emf", RegionsNestedOnTheRight},
      {"regions of many combinations", ".emf", RegionsOfManyCombinations},
      {"lines with arrows", ".emf", LinesWithArrows},
      {"lines with outlined ends", ".emf", LinesWithOutlinedEnds},
      {"widened clips", ".emf", WidenedClips},
      {"masked transfers", ".emf", MaskedTransfers},
      {"resized palettes", ".emf", ResizedPalettes},
      {"long splines", ".emf", LongSplines},
      {"drawings in drawings", ".emf", DrawingsInDrawings},
      {"pictures at each depth", ".emf", PicturesAtEachDepth},
      {"empty drawings inside", ".emf", EmptyDrawingsInside},
      {"lines of another operation", ".emf", LinesOfAnotherOperation},
      {"ellipses of another operation", ".emf", EllipsesOfAnotherOperation},
      {"polygons of another operation", ".emf", PolygonsOfAnotherOperation},
      {"floods", ".wmf", Floods},
      {"floods between lines", ".wmf", FloodsBetweenLines},
      {"framed regions", ".wmf", FramedRegions},
  };
  return drawings;
}

}  // namespace lumidex
