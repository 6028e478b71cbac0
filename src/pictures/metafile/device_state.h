#pragma once
// What a metafile's records set and its drawing records use: coordinate maps, colours, modes and the
// selected pen, brush, font and palette. Numbers are those of the records.

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "pictures/metafile/canvas.h"

namespace lumidex::metafile {

using Brush = Ink;

// The bits of a pen's style word.
namespace pen_style {
inline constexpr unsigned dashMask = 0xF, null = 5, insideFrame = 6, user = 7, alternate = 8;
inline constexpr unsigned capMask = 0xF00, capSquare = 0x100, capFlat = 0x200;
inline constexpr unsigned joinMask = 0xF000, joinBevel = 0x1000, joinMiter = 0x2000;
inline constexpr unsigned geometric = 0x10000;
}  // namespace pen_style

struct Pen {
  unsigned style = 0;
  double width = 0;  // logical units
  Ink ink{.kind = Ink::Kind::Solid};
  std::vector<double> dashes;  // of a style of the user's own, logical units
  double dashOffset = 0;       // how far into the dashes lines begin
  bool roundDashes = false;
  double miterLimit = 10;  // of the later kind; for others the state has it
};

struct Font {
  std::string family;     // UTF-8
  double height = 0;      // logical units; below 0 that of the letters, above 0 that of the cell
  double width = 0;       // mean width of the letters, 0 for the font's own
  double escapement = 0;  // tenths of a degree, counterclockwise
  int weight = 400;
  bool italic = false;
  bool underlined = false;
  bool struckOut = false;
  int charset = 0;
  int pitchAndFamily = 0;
};

// 0xAARRGGBB each; a palette that changes does so wherever it is selected.
using PaletteColours = std::shared_ptr<std::vector<std::uint32_t>>;
// The twenty colours that are there without making a palette.
PaletteColours DefaultPalette();

struct Region {
  std::vector<Box> boxes;  // logical units
};

using Object = std::variant<std::monostate, Pen, Brush, Font, PaletteColours, Region>;

// Pens, brushes, fonts and the palette that exist without being made, by their number; nothing for unknown
// numbers.
Object StockObject(unsigned number);

namespace map_mode {
inline constexpr int text = 1, lowMetric = 2, highMetric = 3, lowEnglish = 4, highEnglish = 5, twips = 6,
                     isotropic = 7, anisotropic = 8;
}

struct Mapping {
  int mode = map_mode::text;
  Point windowOrigin{};
  Point windowExtent{1, 1};
  Point viewportOrigin{};
  Point viewportExtent{1, 1};

  // From page to device units. The fixed scales need the device's pixels per millimetre.
  Matrix PageToDevice(Point pixelsPerMillimetre) const;
};

namespace text_align {
inline constexpr unsigned updatePosition = 1, horizontalMask = 6, right = 2, centre = 6, verticalMask = 24,
                          bottom = 8, baseline = 24;
}

struct DeviceState {
  Mapping mapping;
  Matrix world;
  Pen pen;
  Brush brush{.kind = Ink::Kind::Solid, .colour = 0xFFFFFF};
  Font font;
  PaletteColours palette = DefaultPalette();
  std::uint32_t textColour = 0;
  std::uint32_t backgroundColour = 0xFFFFFF;
  bool opaqueBackground = true;
  FillRule fillRule = FillRule::EvenOdd;
  int rasterOperation = copyPen;
  unsigned textAlign = 0;
  double letterSpacing = 0;  // logical units after each letter
  double blankSpacing = 0;   // the same after each blank
  bool clockwiseArcs = false;
  double miterLimit = 10;
  Point brushOrigin;  // device units
  Point current;      // logical units
  Clip clip;
  Clip base;  // what the clip can grow to
  bool rightToLeft = false;
};

}  // namespace lumidex::metafile
