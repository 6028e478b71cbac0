#pragma once
// Plays the records of an enhanced metafile (the 32-bit kind) into a drawing; what the drawing does not know
// is skipped. Files that hold their drawing twice, the second time as the later "plus" records, are played
// from the plain ones; the plus player plays those that hold nothing else.

#include <optional>

#include "pictures/byte_reader.h"
#include "pictures/metafile/drawing.h"
#include "pictures/metafile/embedded_image.h"
#include "pictures/metafile/emf_records.h"
#include "pictures/metafile/object_table.h"
#include "pictures/metafile/plus_player.h"

namespace lumidex::metafile {

struct EmfHeader {
  Box bounds;          // of what is drawn, device units, last row and column included
  Box frame;           // of the picture, hundredths of a millimetre
  Point devicePixels;  // of the device the file was made for
  Point deviceMillimetres;
  std::size_t recordsAt = 0;
};

// Nothing when the bytes are no enhanced metafile.
std::optional<EmfHeader> ReadEmfHeader(Bytes head);

class EmfPlayer {
 public:
  explicit EmfPlayer(Drawing& drawing)
      : drawing_(drawing), plus_(drawing.context.GetCanvas(), drawing.context.GetDevice()) {}

  // `records` begins after the header record. Stops at the end record, at a record of impossible size and at
  // the end of the bytes.
  void Play(Bytes records);

 private:
  // A record from its first byte, since offsets inside count from there; the reader stands behind type and
  // size.
  struct Record {
    EmfRecord type{};
    Bytes bytes;
    ByteReader reader;
  };

  void PlayRecord(Record record);

  // Each of these plays the record of its name (emf_records.h), those of many points and of text that of any
  // width.
  void PlaySetBrushOrgEx(Record& record);
  void PlaySetBkMode(Record& record);
  void PlaySetPolyFillMode(Record& record);
  void PlaySetRop2(Record& record);
  void PlaySetTextAlign(Record& record);
  void PlaySetTextColor(Record& record);
  void PlaySetBkColor(Record& record);
  void PlaySaveDC(Record& record);
  void PlayRestoreDC(Record& record);
  void PlaySetArcDirection(Record& record);
  void PlaySetMiterLimit(Record& record);
  void PlaySetLayout(Record& record);
  void PlaySetTextJustification(Record& record);

  void PlaySetWindowExtEx(Record& record);
  void PlaySetWindowOrgEx(Record& record);
  void PlaySetViewportExtEx(Record& record);
  void PlaySetViewportOrgEx(Record& record);
  void PlaySetMapMode(Record& record);
  void PlayScaleViewportExtEx(Record& record);
  void PlayScaleWindowExtEx(Record& record);
  void PlaySetWorldTransform(Record& record);
  void PlayModifyWorldTransform(Record& record);

  void PlayComment(Record& record);

  void PlaySelectObject(Record& record);
  void PlayDeleteObject(Record& record);
  void PlaySetPaletteEntries(Record& record);
  void PlayResizePalette(Record& record);
  void PlayCreatePen(Record& record);
  void PlayCreateBrushIndirect(Record& record);
  void PlayCreatePalette(Record& record);
  void PlayExtCreateFontIndirectW(Record& record);
  void PlayExtCreatePen(Record& record);
  void PlayCreateMonoBrush(Record& record);
  void PlayCreateDIBPatternBrushPt(Record& record);

  void PlayPolyBezier(Record& record);
  void PlayPolygon(Record& record);
  void PlayPolyline(Record& record);
  void PlayPolyBezierTo(Record& record);
  void PlayPolyLineTo(Record& record);
  void PlayPolyPolyline(Record& record);
  void PlayPolyPolygon(Record& record);
  void PlayPolyDraw(Record& record);

  void PlaySetPixelV(Record& record);
  void PlayExtFloodFill(Record& record);
  void PlayMoveToEx(Record& record);
  void PlayLineTo(Record& record);
  void PlayAngleArc(Record& record);
  void PlayEllipse(Record& record);
  void PlayRectangle(Record& record);
  void PlayRoundRect(Record& record);
  void PlayArc(Record& record);
  void PlayChord(Record& record);
  void PlayPie(Record& record);
  void PlayArcTo(Record& record);
  void PlayGradientFill(Record& record);

  void PlayBeginPath(Record& record);
  void PlayEndPath(Record& record);
  void PlayCloseFigure(Record& record);
  void PlayFillPath(Record& record);
  void PlayStrokeAndFillPath(Record& record);
  void PlayStrokePath(Record& record);
  void PlayWidenPath(Record& record);
  void PlaySelectClipPath(Record& record);
  void PlayAbortPath(Record& record);

  void PlayOffsetClipRgn(Record& record);
  void PlaySetMetaRgn(Record& record);
  void PlayExcludeClipRect(Record& record);
  void PlayIntersectClipRect(Record& record);
  void PlayExtSelectClipRgn(Record& record);
  void PlayFillRgn(Record& record);
  void PlayFrameRgn(Record& record);
  void PlayInvertRgn(Record& record);
  void PlayPaintRgn(Record& record);

  void PlayBitBlt(Record& record);
  void PlayStretchBlt(Record& record);
  void PlayMaskBlt(Record& record);
  void PlayPlgBlt(Record& record);
  void PlaySetDIBitsToDevice(Record& record);
  void PlayStretchDIBits(Record& record);
  void PlayAlphaBlend(Record& record);
  void PlayTransparentBlt(Record& record);

  void PlayExtTextOut(Record& record);
  void PlayPolyTextOut(Record& record);
  void PlaySmallTextOut(Record& record);

  // One picture in several formats; `reader` stands before its place, offsets count from the start of
  // `comment`.
  void PlayFormats(Bytes comment, ByteReader& reader);
  // Objects of the file's own by their numbers, or those that need no making.
  Object ObjectAt(std::uint32_t number) const;
  PaletteColours PaletteAt(std::uint32_t number) const;
  Object ReadTiledBrush(Record& record, bool takesTextColours);
  void PlayArcOf(Record& record, Shapes::ArcKind kind);
  void PlayOutlines(Record& record, bool closed);

  struct BitmapPlace {
    std::uint32_t headerAt = 0, headerBytes = 0, bitsAt = 0, bitsBytes = 0;
    bool IsGiven() const { return headerBytes != 0; }
  };
  static BitmapPlace ReadPlace(ByteReader& reader);
  std::optional<EmbeddedImage> DecodeAt(const Record& record, const BitmapPlace& place, unsigned usage);
  // Replaces the pixels of a plain 32-bit bitmap with its stored words, alpha included.
  static void ReadAlpha(const Record& record, const BitmapPlace& place, Pixels& pixels, bool topDown);
  void PlayBlock(Record& record, bool stretched);
  void PlayBlend(Record& record, bool byColour);
  // The reader stands before the text's description.
  void PlayTextString(Record& record);
  DeviceState& State() { return drawing_.context.State(); }

  Drawing& drawing_;
  ObjectTable objects_;
  plus::Player plus_;
};

}  // namespace lumidex::metafile
