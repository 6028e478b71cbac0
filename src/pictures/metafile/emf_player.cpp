#include "pictures/metafile/emf_player.h"

#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/nested.h"
#include "pictures/metafile/record_table.h"
#include "pictures/metafile/record_values.h"

namespace lumidex::metafile {
namespace {

constexpr std::uint32_t signature = 0x464D4520;  // " EMF"
constexpr std::uint32_t smallestHeader = 88;
constexpr std::uint32_t recordHeaderBytes = 8;
constexpr std::uint32_t plusMark = 0x2B464D45;    // "EMF+"
constexpr std::uint32_t publicMark = 0x43494447;  // "GDIC"
constexpr std::uint32_t severalFormats = 0x40000004;

// How a map changes the one that is set.
enum class MapChange : std::uint32_t { Reset = 1, Before = 2, Behind = 3, Replace = 4 };

void ScaleBy(Point& extent, ByteReader& reader) {
  const double across = reader.S32Le(), acrossBy = reader.S32Le();
  const double down = reader.S32Le(), downBy = reader.S32Le();
  if (across != 0 && acrossBy != 0) extent.x *= across / acrossBy;
  if (down != 0 && downBy != 0) extent.y *= down / downBy;
}

}  // namespace

std::optional<EmfHeader> ReadEmfHeader(Bytes head) {
  ByteReader reader(head);
  EmfHeader header;
  if (static_cast<EmfRecord>(reader.U32Le()) != EmfRecord::Header) return std::nullopt;
  header.recordsAt = reader.U32Le();
  header.bounds = ReadBox(reader);
  header.frame = ReadBox(reader);
  if (reader.U32Le() != signature || header.recordsAt < smallestHeader) return std::nullopt;
  reader.Seek(72);
  header.devicePixels = ReadPoint(reader);
  header.deviceMillimetres = ReadPoint(reader);
  if (reader.WasCut()) return std::nullopt;
  return header;
}

void EmfPlayer::Play(Bytes records) {
  WorkBudget& budget = drawing_.context.Budget();
  ByteReader reader(records);
  while (reader.Remaining() >= recordHeaderBytes) {
    const std::size_t start = reader.Position();
    const auto type = static_cast<EmfRecord>(reader.U32Le());
    const std::uint32_t size = reader.U32Le();
    if (size < recordHeaderBytes || type == EmfRecord::Eof) return;
    reader.Seek(start);
    if (size > reader.Remaining() && !HoldsBitmap(type)) return;
    if (!budget.Spend(CostOfRecord(std::min<std::size_t>(size, reader.Remaining())))) return;
    const Bytes bytes = reader.Take(size);
    Record record{type, bytes, ByteReader(bytes)};
    record.reader.Skip(recordHeaderBytes);
    PlayRecord(record);
  }
}

void EmfPlayer::PlayRecord(Record record) {
  static constexpr RecordEntry<EmfRecord, void (EmfPlayer::*)(Record&)> entries[] = {
      {EmfRecord::SetBrushOrgEx, &EmfPlayer::PlaySetBrushOrgEx},
      {EmfRecord::SetBkMode, &EmfPlayer::PlaySetBkMode},
      {EmfRecord::SetPolyFillMode, &EmfPlayer::PlaySetPolyFillMode},
      {EmfRecord::SetRop2, &EmfPlayer::PlaySetRop2},
      {EmfRecord::SetTextAlign, &EmfPlayer::PlaySetTextAlign},
      {EmfRecord::SetTextColor, &EmfPlayer::PlaySetTextColor},
      {EmfRecord::SetBkColor, &EmfPlayer::PlaySetBkColor},
      {EmfRecord::SaveDC, &EmfPlayer::PlaySaveDC},
      {EmfRecord::RestoreDC, &EmfPlayer::PlayRestoreDC},
      {EmfRecord::SetArcDirection, &EmfPlayer::PlaySetArcDirection},
      {EmfRecord::SetMiterLimit, &EmfPlayer::PlaySetMiterLimit},
      {EmfRecord::SetLayout, &EmfPlayer::PlaySetLayout},
      {EmfRecord::SetTextJustification, &EmfPlayer::PlaySetTextJustification},
      {EmfRecord::SetWindowExtEx, &EmfPlayer::PlaySetWindowExtEx},
      {EmfRecord::SetWindowOrgEx, &EmfPlayer::PlaySetWindowOrgEx},
      {EmfRecord::SetViewportExtEx, &EmfPlayer::PlaySetViewportExtEx},
      {EmfRecord::SetViewportOrgEx, &EmfPlayer::PlaySetViewportOrgEx},
      {EmfRecord::SetMapMode, &EmfPlayer::PlaySetMapMode},
      {EmfRecord::ScaleViewportExtEx, &EmfPlayer::PlayScaleViewportExtEx},
      {EmfRecord::ScaleWindowExtEx, &EmfPlayer::PlayScaleWindowExtEx},
      {EmfRecord::SetWorldTransform, &EmfPlayer::PlaySetWorldTransform},
      {EmfRecord::ModifyWorldTransform, &EmfPlayer::PlayModifyWorldTransform},
      {EmfRecord::Comment, &EmfPlayer::PlayComment},
      {EmfRecord::SelectObject, &EmfPlayer::PlaySelectObject},
      {EmfRecord::SelectPalette, &EmfPlayer::PlaySelectObject},
      {EmfRecord::DeleteObject, &EmfPlayer::PlayDeleteObject},
      {EmfRecord::SetPaletteEntries, &EmfPlayer::PlaySetPaletteEntries},
      {EmfRecord::ResizePalette, &EmfPlayer::PlayResizePalette},
      {EmfRecord::CreatePen, &EmfPlayer::PlayCreatePen},
      {EmfRecord::CreateBrushIndirect, &EmfPlayer::PlayCreateBrushIndirect},
      {EmfRecord::CreatePalette, &EmfPlayer::PlayCreatePalette},
      {EmfRecord::ExtCreateFontIndirectW, &EmfPlayer::PlayExtCreateFontIndirectW},
      {EmfRecord::ExtCreatePen, &EmfPlayer::PlayExtCreatePen},
      {EmfRecord::CreateMonoBrush, &EmfPlayer::PlayCreateMonoBrush},
      {EmfRecord::CreateDIBPatternBrushPt, &EmfPlayer::PlayCreateDIBPatternBrushPt},
      {EmfRecord::PolyBezier, &EmfPlayer::PlayPolyBezier},
      {EmfRecord::PolyBezier16, &EmfPlayer::PlayPolyBezier},
      {EmfRecord::Polygon, &EmfPlayer::PlayPolygon},
      {EmfRecord::Polygon16, &EmfPlayer::PlayPolygon},
      {EmfRecord::Polyline, &EmfPlayer::PlayPolyline},
      {EmfRecord::Polyline16, &EmfPlayer::PlayPolyline},
      {EmfRecord::PolyBezierTo, &EmfPlayer::PlayPolyBezierTo},
      {EmfRecord::PolyBezierTo16, &EmfPlayer::PlayPolyBezierTo},
      {EmfRecord::PolyLineTo, &EmfPlayer::PlayPolyLineTo},
      {EmfRecord::PolyLineTo16, &EmfPlayer::PlayPolyLineTo},
      {EmfRecord::PolyPolyline, &EmfPlayer::PlayPolyPolyline},
      {EmfRecord::PolyPolyline16, &EmfPlayer::PlayPolyPolyline},
      {EmfRecord::PolyPolygon, &EmfPlayer::PlayPolyPolygon},
      {EmfRecord::PolyPolygon16, &EmfPlayer::PlayPolyPolygon},
      {EmfRecord::PolyDraw, &EmfPlayer::PlayPolyDraw},
      {EmfRecord::PolyDraw16, &EmfPlayer::PlayPolyDraw},
      {EmfRecord::SetPixelV, &EmfPlayer::PlaySetPixelV},
      {EmfRecord::ExtFloodFill, &EmfPlayer::PlayExtFloodFill},
      {EmfRecord::MoveToEx, &EmfPlayer::PlayMoveToEx},
      {EmfRecord::LineTo, &EmfPlayer::PlayLineTo},
      {EmfRecord::AngleArc, &EmfPlayer::PlayAngleArc},
      {EmfRecord::Ellipse, &EmfPlayer::PlayEllipse},
      {EmfRecord::Rectangle, &EmfPlayer::PlayRectangle},
      {EmfRecord::RoundRect, &EmfPlayer::PlayRoundRect},
      {EmfRecord::Arc, &EmfPlayer::PlayArc},
      {EmfRecord::Chord, &EmfPlayer::PlayChord},
      {EmfRecord::Pie, &EmfPlayer::PlayPie},
      {EmfRecord::ArcTo, &EmfPlayer::PlayArcTo},
      {EmfRecord::GradientFill, &EmfPlayer::PlayGradientFill},
      {EmfRecord::BeginPath, &EmfPlayer::PlayBeginPath},
      {EmfRecord::EndPath, &EmfPlayer::PlayEndPath},
      {EmfRecord::CloseFigure, &EmfPlayer::PlayCloseFigure},
      {EmfRecord::FillPath, &EmfPlayer::PlayFillPath},
      {EmfRecord::StrokeAndFillPath, &EmfPlayer::PlayStrokeAndFillPath},
      {EmfRecord::StrokePath, &EmfPlayer::PlayStrokePath},
      {EmfRecord::WidenPath, &EmfPlayer::PlayWidenPath},
      {EmfRecord::SelectClipPath, &EmfPlayer::PlaySelectClipPath},
      {EmfRecord::AbortPath, &EmfPlayer::PlayAbortPath},
      {EmfRecord::OffsetClipRgn, &EmfPlayer::PlayOffsetClipRgn},
      {EmfRecord::SetMetaRgn, &EmfPlayer::PlaySetMetaRgn},
      {EmfRecord::ExcludeClipRect, &EmfPlayer::PlayExcludeClipRect},
      {EmfRecord::IntersectClipRect, &EmfPlayer::PlayIntersectClipRect},
      {EmfRecord::ExtSelectClipRgn, &EmfPlayer::PlayExtSelectClipRgn},
      {EmfRecord::FillRgn, &EmfPlayer::PlayFillRgn},
      {EmfRecord::FrameRgn, &EmfPlayer::PlayFrameRgn},
      {EmfRecord::InvertRgn, &EmfPlayer::PlayInvertRgn},
      {EmfRecord::PaintRgn, &EmfPlayer::PlayPaintRgn},
      {EmfRecord::BitBlt, &EmfPlayer::PlayBitBlt},
      {EmfRecord::StretchBlt, &EmfPlayer::PlayStretchBlt},
      {EmfRecord::MaskBlt, &EmfPlayer::PlayMaskBlt},
      {EmfRecord::PlgBlt, &EmfPlayer::PlayPlgBlt},
      {EmfRecord::SetDIBitsToDevice, &EmfPlayer::PlaySetDIBitsToDevice},
      {EmfRecord::StretchDIBits, &EmfPlayer::PlayStretchDIBits},
      {EmfRecord::AlphaBlend, &EmfPlayer::PlayAlphaBlend},
      {EmfRecord::TransparentBlt, &EmfPlayer::PlayTransparentBlt},
      {EmfRecord::ExtTextOutA, &EmfPlayer::PlayExtTextOut},
      {EmfRecord::ExtTextOutW, &EmfPlayer::PlayExtTextOut},
      {EmfRecord::PolyTextOutA, &EmfPlayer::PlayPolyTextOut},
      {EmfRecord::PolyTextOutW, &EmfPlayer::PlayPolyTextOut},
      {EmfRecord::SmallTextOut, &EmfPlayer::PlaySmallTextOut},
  };
  static constexpr RecordTable table(entries);
  if (const auto play = table.Find(record.type)) (this->*play)(record);
}

void EmfPlayer::PlayComment(Record& record) {
  const Bytes bytes = record.reader.Take(record.reader.U32Le());
  ByteReader comment(bytes);
  const std::uint32_t mark = comment.U32Le();
  if (mark == plusMark) plus_.Play(comment.Take(comment.Remaining()));
  if (mark == publicMark && comment.U32Le() == severalFormats) PlayFormats(bytes, comment);
}

void EmfPlayer::PlayFormats(Bytes comment, ByteReader& reader) {
  constexpr std::size_t descriptionBytes = 16;
  plus_.ForgetPicture();
  const Box box = ReadBox(reader);
  const Matrix place{.xx = box.Width(), .yy = box.Height(), .x0 = box.left, .y0 = box.top};
  for (std::uint32_t count = reader.U32Le(); count > 0 && reader.Remaining() >= descriptionBytes; --count) {
    const bool isMetafile = reader.U32Le() == signature;
    reader.Skip(4);
    const std::uint32_t bytes = reader.U32Le();
    ByteReader format(comment);
    format.Seek(reader.U32Le());
    // The first that can be shown stands for all.
    if (isMetafile && PlayNested(drawing_.context, format.Take(bytes), place)) return;
  }
}

void EmfPlayer::PlaySetBrushOrgEx(Record& record) {
  State().brushOrigin = ReadPoint(record.reader);
}

void EmfPlayer::PlaySetBkMode(Record& record) {
  State().opaqueBackground = record.reader.U32Le() == opaqueBackgroundMode;
}

void EmfPlayer::PlaySetPolyFillMode(Record& record) {
  State().fillRule = record.reader.U32Le() == windingFillMode ? FillRule::Winding : FillRule::EvenOdd;
}

void EmfPlayer::PlaySetRop2(Record& record) {
  State().rasterOperation = static_cast<int>(record.reader.U32Le() & 0xFF);
}

void EmfPlayer::PlaySetTextAlign(Record& record) {
  State().textAlign = record.reader.U32Le();
}

void EmfPlayer::PlaySetTextColor(Record& record) {
  State().textColour = drawing_.context.Colour(record.reader.U32Le());
}

void EmfPlayer::PlaySetBkColor(Record& record) {
  State().backgroundColour = drawing_.context.Colour(record.reader.U32Le());
}

void EmfPlayer::PlaySaveDC(Record&) {
  drawing_.context.Save();
}

void EmfPlayer::PlayRestoreDC(Record& record) {
  drawing_.context.Restore(record.reader.S32Le());
}

void EmfPlayer::PlaySetArcDirection(Record& record) {
  constexpr std::uint32_t clockwise = 2;
  State().clockwiseArcs = record.reader.U32Le() == clockwise;
}

void EmfPlayer::PlaySetMiterLimit(Record& record) {
  // A whole number in the files that exist, though the manual says a float.
  State().miterLimit = std::clamp<double>(record.reader.U32Le(), 1, 1000);
}

void EmfPlayer::PlaySetLayout(Record& record) {
  State().rightToLeft = (record.reader.U32Le() & rightToLeftLayout) != 0;
}

void EmfPlayer::PlaySetTextJustification(Record& record) {
  const double extra = record.reader.S32Le(), blanks = record.reader.S32Le();
  State().blankSpacing = blanks > 0 ? extra / blanks : 0;
}

void EmfPlayer::PlaySetWindowExtEx(Record& record) {
  State().mapping.windowExtent = ReadPoint(record.reader);
}

void EmfPlayer::PlaySetWindowOrgEx(Record& record) {
  State().mapping.windowOrigin = ReadPoint(record.reader);
}

void EmfPlayer::PlaySetViewportExtEx(Record& record) {
  State().mapping.viewportExtent = ReadPoint(record.reader);
}

void EmfPlayer::PlaySetViewportOrgEx(Record& record) {
  State().mapping.viewportOrigin = ReadPoint(record.reader);
}

void EmfPlayer::PlaySetMapMode(Record& record) {
  State().mapping.mode = static_cast<int>(record.reader.U32Le() & 0xFF);
}

void EmfPlayer::PlayScaleViewportExtEx(Record& record) {
  ScaleBy(State().mapping.viewportExtent, record.reader);
}

void EmfPlayer::PlayScaleWindowExtEx(Record& record) {
  ScaleBy(State().mapping.windowExtent, record.reader);
}

void EmfPlayer::PlaySetWorldTransform(Record& record) {
  State().world = ReadMatrix(record.reader);
}

void EmfPlayer::PlayModifyWorldTransform(Record& record) {
  Matrix& world = State().world;
  const Matrix matrix = ReadMatrix(record.reader);
  switch (static_cast<MapChange>(record.reader.U32Le())) {
    case MapChange::Reset:
      world = {};
      break;
    case MapChange::Before:
      world = matrix.Then(world);
      break;
    case MapChange::Behind:
      world = world.Then(matrix);
      break;
    case MapChange::Replace:
      world = matrix;
      break;
  }
}

}  // namespace lumidex::metafile
