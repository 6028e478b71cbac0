#pragma once
// The objects of the later "plus" records, as they are stored: brushes, pens, outlines, pictures, fonts.

#include <optional>
#include <variant>
#include <vector>

#include "pictures/byte_reader.h"
#include "pictures/metafile/device_state.h"
#include "pictures/metafile/work_budget.h"

namespace lumidex::metafile::plus {

// Units of lengths: those of the drawing, or fixed ones.
enum class Unit { World = 0, Display = 1, Pixel = 2, Point = 3, Inch = 4, Document = 5, Millimetre = 6 };

struct PenObject {
  Pen pen;
  Unit unit = Unit::World;
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
Object ReadObject(unsigned kind, Bytes bytes, WorkBudget& budget);
Path ReadPath(ByteReader& reader);
// Up to `count` points, as fractions or, when `narrow`, as 16-bit numbers; `relative` ones follow each other.
std::vector<Point> ReadPoints(ByteReader& reader, std::size_t count, bool narrow, bool relative);
// Left, top, width and height.
Box ReadBox(ByteReader& reader, bool narrow);

// The bytes of a stored picture that is a metafile; nothing of others.
std::optional<Bytes> StoredMetafile(Bytes image);
// The pixels of a stored picture that is none; nothing when they make no sense or cost more than is left.
std::optional<Pixels> DecodeImage(Bytes bytes, WorkBudget& budget);

}  // namespace lumidex::metafile::plus
