// Shapes, regions and the clip.

#include "pictures/metafile/record_values.h"
#include "pictures/metafile/regions.h"
#include "pictures/metafile/wmf_player.h"
#include "pictures/metafile/wmf_reading.h"

namespace lumidex::metafile {
namespace {

std::vector<Point> ReadPoints(ByteReader& record, std::size_t count) {
  std::vector<Point> points(std::min(count, record.Remaining() / 4));
  for (Point& point : points) {
    point.x = record.S16Le();
    point.y = record.S16Le();
  }
  return points;
}

}  // namespace

void WmfPlayer::PlayLineTo(ByteReader& record) {
  drawing_.shapes.LineTo(ReversedPoint(record));
}

void WmfPlayer::PlayMoveTo(ByteReader& record) {
  drawing_.shapes.MoveTo(ReversedPoint(record));
}

void WmfPlayer::PlayRectangle(ByteReader& record) {
  drawing_.shapes.Rectangle(ReversedBox(record));
}

void WmfPlayer::PlayRoundRect(ByteReader& record) {
  const Point corner = ReversedPoint(record);
  drawing_.shapes.RoundRectangle(ReversedBox(record), corner);
}

void WmfPlayer::PlayEllipse(ByteReader& record) {
  drawing_.shapes.Ellipse(ReversedBox(record));
}

void WmfPlayer::PlayArc(ByteReader& record) {
  PlayArcOf(record, Shapes::ArcKind::Open);
}

void WmfPlayer::PlayPie(ByteReader& record) {
  PlayArcOf(record, Shapes::ArcKind::Pie);
}

void WmfPlayer::PlayChord(ByteReader& record) {
  PlayArcOf(record, Shapes::ArcKind::Chord);
}

void WmfPlayer::PlayArcOf(ByteReader& record, Shapes::ArcKind kind) {
  const Point end = ReversedPoint(record), start = ReversedPoint(record);
  drawing_.shapes.Arc(ReversedBox(record), start, end, kind);
}

void WmfPlayer::PlayPolygon(ByteReader& record) {
  const std::size_t count = record.U16Le();
  drawing_.shapes.Polygon(ReadPoints(record, count));
}

void WmfPlayer::PlayPolyline(ByteReader& record) {
  const std::size_t count = record.U16Le();
  drawing_.shapes.Polyline(ReadPoints(record, count));
}

void WmfPlayer::PlayPolyPolygon(ByteReader& record) {
  std::vector<std::uint32_t> counts(std::min<std::size_t>(record.U16Le(), record.Remaining() / 2));
  for (std::uint32_t& count : counts) count = record.U16Le();
  drawing_.shapes.PolyPolygon(ReadPoints(record, record.Remaining() / 4), counts);
}

void WmfPlayer::PlayFloodFill(ByteReader& record) {
  const std::uint32_t edge = drawing_.context.Colour(record.U32Le());
  FloodFill(drawing_.context, ReversedPoint(record), edge, false);
}

void WmfPlayer::PlayExtFloodFill(ByteReader& record) {
  const bool surface = record.U16Le() == floodFillsSurface;
  const std::uint32_t colour = drawing_.context.Colour(record.U32Le());
  FloodFill(drawing_.context, ReversedPoint(record), colour, surface);
}

void WmfPlayer::PlaySetPixel(ByteReader& record) {
  const std::uint32_t colour = drawing_.context.Colour(record.U32Le());
  SetPixel(drawing_.context, ReversedPoint(record), colour);
}

void WmfPlayer::PlayExcludeClipRect(ByteReader& record) {
  drawing_.context.ClipBox(ReversedBox(record), ClipMode::Difference);
}

void WmfPlayer::PlayIntersectClipRect(ByteReader& record) {
  drawing_.context.ClipBox(ReversedBox(record), ClipMode::And);
}

void WmfPlayer::PlayOffsetClipRgn(ByteReader& record) {
  drawing_.context.OffsetClip(ReversedPoint(record));
}

void WmfPlayer::PlaySelectClipRegion(ByteReader& record) {
  if (const auto* region = RegionAt(record.U16Le())) {
    drawing_.context.ClipRegion(region->boxes, ClipMode::Copy, false);
  } else {
    drawing_.context.ResetClip();
  }
}

void WmfPlayer::PlayInvertRegion(ByteReader& record) {
  if (const auto* region = RegionAt(record.U16Le())) InvertRegion(drawing_.context, region->boxes);
}

void WmfPlayer::PlayPaintRegion(ByteReader& record) {
  if (const auto* region = RegionAt(record.U16Le()))
    FillRegion(drawing_.context, region->boxes, State().brush);
}

void WmfPlayer::PlayFillRegion(ByteReader& record) {
  const auto* region = RegionAt(record.U16Le());
  const auto* brush = BrushAt(record.U16Le());
  if (region && brush) FillRegion(drawing_.context, region->boxes, *brush);
}

void WmfPlayer::PlayFrameRegion(ByteReader& record) {
  const auto* region = RegionAt(record.U16Le());
  const auto* brush = BrushAt(record.U16Le());
  if (region && brush) FrameRegion(drawing_.context, region->boxes, *brush, ReversedPoint(record));
}

}  // namespace lumidex::metafile
