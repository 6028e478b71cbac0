#pragma once
// Plays the records of a Windows metafile (the 16-bit kind) into a drawing, as the format's manual of 1992
// has them; what the drawing does not know is skipped.

#include <cstdint>
#include <optional>

#include "pictures/byte_reader.h"
#include "pictures/metafile/drawing.h"
#include "pictures/metafile/object_table.h"

namespace lumidex::metafile {

struct WmfHeader {
  std::optional<Box> bounds;   // logical units; only files with the placing header have them
  double unitsPerInch = 1440;  // of the bounds
  std::size_t recordsAt = 0;
};

// Reads the placing header, if there is one, and the standard one; nothing when the bytes are no metafile.
std::optional<WmfHeader> ReadWmfHeader(Bytes head);

// The window and viewport that the first records set, which stand for the whole picture.
struct WmfFrame {
  std::optional<Point> windowOrigin, windowExtent, viewportOrigin, viewportExtent;
  int mapMode = 0;  // 0 when no record sets one
};
WmfFrame ScanWmfFrame(Bytes records);

class WmfPlayer {
 public:
  explicit WmfPlayer(Drawing& drawing) : drawing_(drawing) {}

  // Stops at the end record, at a record of impossible size and at the end of the bytes.
  void Play(Bytes records);

 private:
  void PlayRecord(unsigned function, ByteReader record);
  bool PlaySetting(unsigned function, ByteReader& record);
  bool PlayMapping(unsigned function, ByteReader& record);
  bool PlayObject(unsigned function, ByteReader& record);
  bool PlayShape(unsigned function, ByteReader& record);
  bool PlayClip(unsigned function, ByteReader& record);
  bool PlayBitmap(unsigned function, ByteReader& record);
  bool PlayText(unsigned function, ByteReader& record);

  void PlayPolyPolygon(ByteReader& record);
  void PlayArc(ByteReader& record, Drawing::ArcKind kind);
  const Region* RegionAt(std::size_t number) const { return std::get_if<Region>(&objects_.Get(number)); }
  void PlayBlock(ByteReader& record, bool stretched, bool deviceBitmap);
  void PlayStretchDib(ByteReader& record);
  void PlaySetDibToDevice(ByteReader& record);
  Brush TiledBrush(ByteReader& record, bool deviceBitmap);

  Drawing& drawing_;
  ObjectTable objects_;
};

}  // namespace lumidex::metafile
