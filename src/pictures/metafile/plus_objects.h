#pragma once
// The objects of the later "plus" records, as they are stored: brushes, pens, outlines, pictures, fonts.

#include <optional>
#include <variant>
#include <vector>

#include "pictures/byte_reader.h"
#include "pictures/metafile/device_state.h"
#include "pictures/metafile/plus_records.h"
#include "pictures/metafile/work_budget.h"

namespace lumidex::metafile::plus {

// Units of lengths: those of the drawing, or fixed ones.
enum class Unit { World = 0, Display = 1, Pixel = 2, Point = 3, Inch = 4, Document = 5, Millimetre = 6 };

// What stands at the end of a line: in widths of the pen, y along the line and beyond its end at 0.
struct LineCap {
  Path filled{}, stroked{};
  double inset = 0;  // how much shorter the line becomes
  // Of the ends that the renderer has itself, its own number.
  std::optional<unsigned> plain{};
};

struct PenObject {
  Pen pen;  // its ends are those of dashes
  Unit unit = Unit::World;
  LineCap start{}, end{};
};

struct FontObject {
  Font font;  // its height is that of an em
  Unit unit = Unit::World;
};

struct TextFormat {
  int across = 0;  // 0 near, 1 in the middle, 2 far
  int down = 0;
  bool wraps = true;
};

// Decoded when it is drawn.
struct ImageObject {
  std::vector<std::uint8_t> bytes;
};

struct ClipNode {
  unsigned mode = 0;  // how the two nodes behind it join, as in the records that set a clip; 0 for an area
  bool everything = false;
  Path outline{};  // of an area that is not everything; empty for nothing
};

// A tree of combinations, each before its two parts.
struct ClipObject {
  std::vector<ClipNode> nodes;  // at least one
};

using Object =
    std::variant<std::monostate, Brush, PenObject, Path, ImageObject, FontObject, TextFormat, ClipObject>;

// Reads an object of the kind that the record names; nothing for kinds without a use here.
Object ReadObject(ObjectKind kind, Bytes bytes, WorkBudget& budget);
PenObject ReadPen(ByteReader& reader, WorkBudget& budget);
Path ReadPath(ByteReader& reader);
// Up to `count` points, as fractions or, when `narrow`, as 16-bit numbers; `relative` ones follow each other.
std::vector<Point> ReadPoints(ByteReader& reader, std::size_t count, bool narrow, bool relative);
// Left, top, width and height.
Box ReadBox(ByteReader& reader, bool narrow);

struct CappedLines {
  Path lines;            // shortened where ends need it
  Path filled, stroked;  // the ends
};
// Puts ends on all lines that have any; `width` is the pen's. Ends that cost more than is left are missing.
CappedLines WithCaps(const Path& path, const PenObject& pen, double width, WorkBudget& budget);

// The bytes of a stored picture that is a metafile; nothing of others.
std::optional<Bytes> StoredMetafile(Bytes image);
// The pixels of a stored picture that is none; nothing when they make no sense or cost more than is left.
std::optional<Pixels> DecodeImage(Bytes bytes, WorkBudget& budget);

}  // namespace lumidex::metafile::plus
