#include "pictures/metafile/wmf_player.h"

#include "pictures/metafile/record_table.h"
#include "pictures/metafile/record_values.h"
#include "pictures/metafile/wmf_reading.h"

namespace lumidex::metafile {
namespace {

constexpr std::uint32_t placingKey = 0x9AC6CDD7;
constexpr std::size_t placingBytes = 22;
constexpr std::size_t headerBytes = 18;

void OffsetBy(Point& origin, ByteReader& record) {
  const Point by = ReversedPoint(record);
  origin = {origin.x + by.x, origin.y + by.y};
}

void ScaleBy(Point& extent, ByteReader& record) {
  const double downBy = record.S16Le(), down = record.S16Le(), acrossBy = record.S16Le();
  const double across = record.S16Le();
  if (acrossBy != 0 && across != 0) extent.x *= across / acrossBy;
  if (downBy != 0 && down != 0) extent.y *= down / downBy;
}

}  // namespace

std::optional<WmfHeader> ReadWmfHeader(Bytes head) {
  ByteReader reader(head);
  WmfHeader header;
  if (reader.U32Le() == placingKey) {
    reader.Skip(2);
    const double left = reader.S16Le(), top = reader.S16Le();
    const double right = reader.S16Le(), bottom = reader.S16Le();
    header.bounds = Box{left, top, right, bottom};
    const unsigned units = reader.U16Le();
    if (units != 0) header.unitsPerInch = units;
    // The checksum after this is wrong in many files that are otherwise good.
    header.recordsAt = placingBytes;
  }
  reader = ByteReader(head.subspan(std::min(header.recordsAt, head.size())));
  const unsigned type = reader.U16Le(), words = reader.U16Le(), version = reader.U16Le();
  if ((type != 1 && type != 2) || words != headerBytes / 2) return std::nullopt;
  if (version != 0x0100 && version != 0x0300) return std::nullopt;
  header.recordsAt += headerBytes;
  return header;
}

WmfFrame ScanWmfFrame(Bytes records) {
  WmfFrame frame;
  ForEachRecord(records, [&](WmfRecord type, ByteReader record) {
    const auto keepFirst = [&](std::optional<Point>& place) {
      if (!place) place = ReversedPoint(record);
    };
    if (type == WmfRecord::SetMapMode && frame.mapMode == 0) frame.mapMode = record.U16Le();
    if (type == WmfRecord::SetWindowOrg) keepFirst(frame.windowOrigin);
    if (type == WmfRecord::SetWindowExt) keepFirst(frame.windowExtent);
    if (type == WmfRecord::SetViewportOrg) keepFirst(frame.viewportOrigin);
    if (type == WmfRecord::SetViewportExt) keepFirst(frame.viewportExtent);
    return true;
  });
  return frame;
}

void WmfPlayer::Play(Bytes records) {
  WorkBudget& budget = drawing_.context.Budget();
  ForEachRecord(records, [&](WmfRecord type, ByteReader record) {
    if (!budget.Spend(CostOfRecord(record.Size()))) return false;
    PlayRecord(type, record);
    return true;
  });
}

void WmfPlayer::PlayRecord(WmfRecord type, ByteReader record) {
  static constexpr RecordEntry<WmfRecord, void (WmfPlayer::*)(ByteReader&)> entries[] = {
      {WmfRecord::SaveDC, &WmfPlayer::PlaySaveDC},
      {WmfRecord::RestoreDC, &WmfPlayer::PlayRestoreDC},
      {WmfRecord::SetBkMode, &WmfPlayer::PlaySetBkMode},
      {WmfRecord::SetRop2, &WmfPlayer::PlaySetRop2},
      {WmfRecord::SetPolyFillMode, &WmfPlayer::PlaySetPolyFillMode},
      {WmfRecord::SetTextCharExtra, &WmfPlayer::PlaySetTextCharExtra},
      {WmfRecord::SetTextJustification, &WmfPlayer::PlaySetTextJustification},
      {WmfRecord::SetLayout, &WmfPlayer::PlaySetLayout},
      {WmfRecord::SetTextAlign, &WmfPlayer::PlaySetTextAlign},
      {WmfRecord::SetBkColor, &WmfPlayer::PlaySetBkColor},
      {WmfRecord::SetTextColor, &WmfPlayer::PlaySetTextColor},
      {WmfRecord::SetMapMode, &WmfPlayer::PlaySetMapMode},
      {WmfRecord::SetWindowOrg, &WmfPlayer::PlaySetWindowOrg},
      {WmfRecord::SetWindowExt, &WmfPlayer::PlaySetWindowExt},
      {WmfRecord::SetViewportOrg, &WmfPlayer::PlaySetViewportOrg},
      {WmfRecord::SetViewportExt, &WmfPlayer::PlaySetViewportExt},
      {WmfRecord::OffsetWindowOrg, &WmfPlayer::PlayOffsetWindowOrg},
      {WmfRecord::OffsetViewportOrg, &WmfPlayer::PlayOffsetViewportOrg},
      {WmfRecord::ScaleWindowExt, &WmfPlayer::PlayScaleWindowExt},
      {WmfRecord::ScaleViewportExt, &WmfPlayer::PlayScaleViewportExt},
      {WmfRecord::CreatePenIndirect, &WmfPlayer::PlayCreatePenIndirect},
      {WmfRecord::CreateBrushIndirect, &WmfPlayer::PlayCreateBrushIndirect},
      {WmfRecord::CreateFontIndirect, &WmfPlayer::PlayCreateFontIndirect},
      {WmfRecord::CreatePalette, &WmfPlayer::PlayCreatePalette},
      {WmfRecord::CreateRegion, &WmfPlayer::PlayCreateRegion},
      {WmfRecord::CreatePatternBrush, &WmfPlayer::PlayCreatePatternBrush},
      {WmfRecord::DibCreatePatternBrush, &WmfPlayer::PlayDibCreatePatternBrush},
      {WmfRecord::CreateBrush, &WmfPlayer::PlayCreateUnused},
      {WmfRecord::CreateBitmapIndirect, &WmfPlayer::PlayCreateUnused},
      {WmfRecord::CreateBitmap, &WmfPlayer::PlayCreateUnused},
      {WmfRecord::SelectObject, &WmfPlayer::PlaySelectObject},
      {WmfRecord::SelectPalette, &WmfPlayer::PlaySelectObject},
      {WmfRecord::DeleteObject, &WmfPlayer::PlayDeleteObject},
      {WmfRecord::SetPalEntries, &WmfPlayer::PlaySetPalEntries},
      {WmfRecord::AnimatePalette, &WmfPlayer::PlaySetPalEntries},
      {WmfRecord::ResizePalette, &WmfPlayer::PlayResizePalette},
      {WmfRecord::LineTo, &WmfPlayer::PlayLineTo},
      {WmfRecord::MoveTo, &WmfPlayer::PlayMoveTo},
      {WmfRecord::Rectangle, &WmfPlayer::PlayRectangle},
      {WmfRecord::RoundRect, &WmfPlayer::PlayRoundRect},
      {WmfRecord::Ellipse, &WmfPlayer::PlayEllipse},
      {WmfRecord::Arc, &WmfPlayer::PlayArc},
      {WmfRecord::Pie, &WmfPlayer::PlayPie},
      {WmfRecord::Chord, &WmfPlayer::PlayChord},
      {WmfRecord::Polygon, &WmfPlayer::PlayPolygon},
      {WmfRecord::Polyline, &WmfPlayer::PlayPolyline},
      {WmfRecord::PolyPolygon, &WmfPlayer::PlayPolyPolygon},
      {WmfRecord::FloodFill, &WmfPlayer::PlayFloodFill},
      {WmfRecord::ExtFloodFill, &WmfPlayer::PlayExtFloodFill},
      {WmfRecord::SetPixel, &WmfPlayer::PlaySetPixel},
      {WmfRecord::ExcludeClipRect, &WmfPlayer::PlayExcludeClipRect},
      {WmfRecord::IntersectClipRect, &WmfPlayer::PlayIntersectClipRect},
      {WmfRecord::OffsetClipRgn, &WmfPlayer::PlayOffsetClipRgn},
      {WmfRecord::SelectClipRegion, &WmfPlayer::PlaySelectClipRegion},
      {WmfRecord::InvertRegion, &WmfPlayer::PlayInvertRegion},
      {WmfRecord::PaintRegion, &WmfPlayer::PlayPaintRegion},
      {WmfRecord::FillRegion, &WmfPlayer::PlayFillRegion},
      {WmfRecord::FrameRegion, &WmfPlayer::PlayFrameRegion},
      {WmfRecord::PatBlt, &WmfPlayer::PlayPatBlt},
      {WmfRecord::BitBlt, &WmfPlayer::PlayBitBlt},
      {WmfRecord::DibBitBlt, &WmfPlayer::PlayDibBitBlt},
      {WmfRecord::StretchBlt, &WmfPlayer::PlayStretchBlt},
      {WmfRecord::DibStretchBlt, &WmfPlayer::PlayDibStretchBlt},
      {WmfRecord::StretchDib, &WmfPlayer::PlayStretchDib},
      {WmfRecord::SetDibToDev, &WmfPlayer::PlaySetDibToDev},
      {WmfRecord::TextOut, &WmfPlayer::PlayTextOut},
      {WmfRecord::ExtTextOut, &WmfPlayer::PlayExtTextOut},
  };
  static constexpr RecordTable table(entries);
  if (const auto play = table.Find(type)) (this->*play)(record);
}

void WmfPlayer::PlaySaveDC(ByteReader&) {
  drawing_.context.Save();
}

void WmfPlayer::PlayRestoreDC(ByteReader& record) {
  drawing_.context.Restore(record.S16Le());
}

void WmfPlayer::PlaySetBkMode(ByteReader& record) {
  State().opaqueBackground = record.U16Le() == opaqueBackgroundMode;
}

void WmfPlayer::PlaySetRop2(ByteReader& record) {
  State().rasterOperation = record.U16Le();
}

void WmfPlayer::PlaySetPolyFillMode(ByteReader& record) {
  State().fillRule = record.U16Le() == windingFillMode ? FillRule::Winding : FillRule::EvenOdd;
}

void WmfPlayer::PlaySetTextCharExtra(ByteReader& record) {
  State().letterSpacing = record.S16Le();
}

void WmfPlayer::PlaySetTextJustification(ByteReader& record) {
  const double blanks = record.U16Le(), extra = record.S16Le();
  State().blankSpacing = blanks > 0 ? extra / blanks : 0;
}

void WmfPlayer::PlaySetLayout(ByteReader& record) {
  State().rightToLeft = (record.U16Le() & rightToLeftLayout) != 0;
}

void WmfPlayer::PlaySetTextAlign(ByteReader& record) {
  State().textAlign = record.U16Le();
}

void WmfPlayer::PlaySetBkColor(ByteReader& record) {
  State().backgroundColour = drawing_.context.Colour(record.U32Le());
}

void WmfPlayer::PlaySetTextColor(ByteReader& record) {
  State().textColour = drawing_.context.Colour(record.U32Le());
}

void WmfPlayer::PlaySetMapMode(ByteReader& record) {
  Mapping& mapping = State().mapping;
  const int mode = record.U16Le();
  // One unit a pixel means the pixels of the maker's screen; the window, where there is one, says how
  // many of them the picture takes.
  const bool hasWindow = mapping.mode == map_mode::anisotropic;
  mapping.mode = mode == map_mode::text && hasWindow ? map_mode::anisotropic : mode;
}

void WmfPlayer::PlaySetWindowOrg(ByteReader& record) {
  State().mapping.windowOrigin = ReversedPoint(record);
}

void WmfPlayer::PlaySetWindowExt(ByteReader& record) {
  State().mapping.windowExtent = ReversedPoint(record);
}

void WmfPlayer::PlaySetViewportOrg(ByteReader& record) {
  State().mapping.viewportOrigin = ReversedPoint(record);
}

void WmfPlayer::PlaySetViewportExt(ByteReader& record) {
  State().mapping.viewportExtent = ReversedPoint(record);
}

void WmfPlayer::PlayOffsetWindowOrg(ByteReader& record) {
  OffsetBy(State().mapping.windowOrigin, record);
}

void WmfPlayer::PlayOffsetViewportOrg(ByteReader& record) {
  OffsetBy(State().mapping.viewportOrigin, record);
}

void WmfPlayer::PlayScaleWindowExt(ByteReader& record) {
  ScaleBy(State().mapping.windowExtent, record);
}

void WmfPlayer::PlayScaleViewportExt(ByteReader& record) {
  ScaleBy(State().mapping.viewportExtent, record);
}

}  // namespace lumidex::metafile
