#pragma once
// Plays the records of a Windows metafile (the 16-bit kind) into a drawing, as the format's manual of 1992
// has them; what the drawing does not know is skipped.

#include <cstdint>
#include <optional>

#include "pictures/byte_reader.h"
#include "pictures/metafile/drawing.h"
#include "pictures/metafile/object_table.h"
#include "pictures/metafile/wmf_records.h"

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
  void PlayRecord(WmfRecord type, ByteReader record);

  // Each of these plays the record of its name (wmf_records.h), the reader standing behind the record's
  // header.
  void PlaySaveDC(ByteReader& record);
  void PlayRestoreDC(ByteReader& record);
  void PlaySetBkMode(ByteReader& record);
  void PlaySetRop2(ByteReader& record);
  void PlaySetPolyFillMode(ByteReader& record);
  void PlaySetTextCharExtra(ByteReader& record);
  void PlaySetTextJustification(ByteReader& record);
  void PlaySetLayout(ByteReader& record);
  void PlaySetTextAlign(ByteReader& record);
  void PlaySetBkColor(ByteReader& record);
  void PlaySetTextColor(ByteReader& record);

  void PlaySetMapMode(ByteReader& record);
  void PlaySetWindowOrg(ByteReader& record);
  void PlaySetWindowExt(ByteReader& record);
  void PlaySetViewportOrg(ByteReader& record);
  void PlaySetViewportExt(ByteReader& record);
  void PlayOffsetWindowOrg(ByteReader& record);
  void PlayOffsetViewportOrg(ByteReader& record);
  void PlayScaleWindowExt(ByteReader& record);
  void PlayScaleViewportExt(ByteReader& record);

  void PlayCreatePenIndirect(ByteReader& record);
  void PlayCreateBrushIndirect(ByteReader& record);
  void PlayCreateFontIndirect(ByteReader& record);
  void PlayCreatePalette(ByteReader& record);
  void PlayCreateRegion(ByteReader& record);
  void PlayCreatePatternBrush(ByteReader& record);
  void PlayDibCreatePatternBrush(ByteReader& record);
  // Of objects that are unusable here, yet the numbers of those after them count them.
  void PlayCreateUnused(ByteReader& record);
  void PlaySelectObject(ByteReader& record);
  void PlayDeleteObject(ByteReader& record);
  void PlaySetPalEntries(ByteReader& record);
  void PlayResizePalette(ByteReader& record);

  void PlayLineTo(ByteReader& record);
  void PlayMoveTo(ByteReader& record);
  void PlayRectangle(ByteReader& record);
  void PlayRoundRect(ByteReader& record);
  void PlayEllipse(ByteReader& record);
  void PlayArc(ByteReader& record);
  void PlayPie(ByteReader& record);
  void PlayChord(ByteReader& record);
  void PlayPolygon(ByteReader& record);
  void PlayPolyline(ByteReader& record);
  void PlayPolyPolygon(ByteReader& record);
  void PlayFloodFill(ByteReader& record);
  void PlayExtFloodFill(ByteReader& record);
  void PlaySetPixel(ByteReader& record);

  void PlayExcludeClipRect(ByteReader& record);
  void PlayIntersectClipRect(ByteReader& record);
  void PlayOffsetClipRgn(ByteReader& record);
  void PlaySelectClipRegion(ByteReader& record);
  void PlayInvertRegion(ByteReader& record);
  void PlayPaintRegion(ByteReader& record);
  void PlayFillRegion(ByteReader& record);
  void PlayFrameRegion(ByteReader& record);

  void PlayPatBlt(ByteReader& record);
  void PlayBitBlt(ByteReader& record);
  void PlayDibBitBlt(ByteReader& record);
  void PlayStretchBlt(ByteReader& record);
  void PlayDibStretchBlt(ByteReader& record);
  void PlayStretchDib(ByteReader& record);
  void PlaySetDibToDev(ByteReader& record);

  void PlayTextOut(ByteReader& record);
  void PlayExtTextOut(ByteReader& record);

  void PlayText(ByteReader& record, bool extended);
  void PlayArcOf(ByteReader& record, Shapes::ArcKind kind);
  enum class BitmapKind { Device, DeviceIndependent };
  void PlayBlock(ByteReader& record, bool stretched, BitmapKind kind);
  Brush TiledBrush(ByteReader& record, BitmapKind kind);
  const Region* RegionAt(std::size_t number) const { return std::get_if<Region>(&objects_.Get(number)); }
  const Brush* BrushAt(std::size_t number) const { return std::get_if<Brush>(&objects_.Get(number)); }
  DeviceState& State() { return drawing_.context.State(); }

  Drawing& drawing_;
  ObjectTable objects_;
};

}  // namespace lumidex::metafile
