#include "pictures/metafile/wmf_player.h"

#include "pictures/metafile/wmf_reading.h"

namespace lumidex::metafile {
namespace {

constexpr std::uint32_t placingKey = 0x9AC6CDD7;
constexpr std::size_t placingBytes = 22;
constexpr std::size_t headerBytes = 18;

std::vector<Point> Points(ByteReader& record, std::size_t count) {
  std::vector<Point> points(std::min(count, record.Remaining() / 4));
  for (Point& point : points) {
    point.x = record.S16Le();
    point.y = record.S16Le();
  }
  return points;
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
  ForEachRecord(records, [&](unsigned function, ByteReader record) {
    const auto keepFirst = [&](std::optional<Point>& place) {
      if (!place) place = ReversedPoint(record);
    };
    if (function == 0x0103 && frame.mapMode == 0) frame.mapMode = record.U16Le();
    if (function == 0x020B) keepFirst(frame.windowOrigin);
    if (function == 0x020C) keepFirst(frame.windowExtent);
    if (function == 0x020D) keepFirst(frame.viewportOrigin);
    if (function == 0x020E) keepFirst(frame.viewportExtent);
    return true;
  });
  return frame;
}

void WmfPlayer::Play(Bytes records) {
  WorkBudget& budget = drawing_.Sheet().Budget();
  ForEachRecord(records, [&](unsigned function, ByteReader record) {
    if (!budget.Spend(CostOfRecord(record.Size()))) return false;
    PlayRecord(function, record);
    return true;
  });
}

void WmfPlayer::PlayRecord(unsigned function, ByteReader record) {
  PlaySetting(function, record) || PlayMapping(function, record) || PlayObject(function, record) ||
      PlayShape(function, record) || PlayClip(function, record) || PlayBitmap(function, record) ||
      PlayText(function, record);
}

bool WmfPlayer::PlaySetting(unsigned function, ByteReader& record) {
  DeviceState& state = drawing_.State();
  switch (function) {
    case 0x001E:
      drawing_.Save();
      return true;
    case 0x0127:
      drawing_.Restore(record.S16Le());
      return true;
    case 0x0102:
      state.opaqueBackground = record.U16Le() == 2;
      return true;
    case 0x0104:
      state.rasterOperation = record.U16Le();
      return true;
    case 0x0106:
      state.fillRule = record.U16Le() == 2 ? FillRule::Winding : FillRule::EvenOdd;
      return true;
    case 0x0108:
      state.letterSpacing = record.S16Le();
      return true;
    case 0x020A: {
      const double blanks = record.U16Le(), extra = record.S16Le();
      state.blankSpacing = blanks > 0 ? extra / blanks : 0;
      return true;
    }
    case 0x0149:
      state.rightToLeft = (record.U16Le() & 1) != 0;
      return true;
    case 0x012E:
      state.textAlign = record.U16Le();
      return true;
    case 0x0201:
      state.backgroundColor = drawing_.Color(record.U32Le());
      return true;
    case 0x0209:
      state.textColor = drawing_.Color(record.U32Le());
      return true;
    default:
      return false;
  }
}

bool WmfPlayer::PlayMapping(unsigned function, ByteReader& record) {
  Mapping& mapping = drawing_.State().mapping;
  const auto scale = [&](Point& extent) {
    const double downBy = record.S16Le(), down = record.S16Le(), acrossBy = record.S16Le();
    const double across = record.S16Le();
    if (acrossBy != 0 && across != 0) extent.x *= across / acrossBy;
    if (downBy != 0 && down != 0) extent.y *= down / downBy;
  };
  const auto offset = [&](Point& origin) {
    const Point by = ReversedPoint(record);
    origin = {origin.x + by.x, origin.y + by.y};
  };
  switch (function) {
    case 0x0103: {
      const int mode = record.U16Le();
      // One unit a pixel means the pixels of the maker's screen; the window, where there is one, says how
      // many of them the picture takes.
      const bool hasWindow = mapping.mode == map_mode::anisotropic;
      mapping.mode = mode == map_mode::text && hasWindow ? map_mode::anisotropic : mode;
      return true;
    }
    case 0x020B:
      mapping.windowOrigin = ReversedPoint(record);
      return true;
    case 0x020C:
      mapping.windowExtent = ReversedPoint(record);
      return true;
    case 0x020D:
      mapping.viewportOrigin = ReversedPoint(record);
      return true;
    case 0x020E:
      mapping.viewportExtent = ReversedPoint(record);
      return true;
    case 0x020F:
      offset(mapping.windowOrigin);
      return true;
    case 0x0211:
      offset(mapping.viewportOrigin);
      return true;
    case 0x0410:
      scale(mapping.windowExtent);
      return true;
    case 0x0412:
      scale(mapping.viewportExtent);
      return true;
    default:
      return false;
  }
}

bool WmfPlayer::PlayShape(unsigned function, ByteReader& record) {
  switch (function) {
    case 0x0213:
      drawing_.LineTo(ReversedPoint(record));
      return true;
    case 0x0214:
      drawing_.MoveTo(ReversedPoint(record));
      return true;
    case 0x041B:
      drawing_.Rectangle(ReversedBox(record));
      return true;
    case 0x061C: {
      const Point corner = ReversedPoint(record);
      drawing_.RoundRectangle(ReversedBox(record), corner);
      return true;
    }
    case 0x0418:
      drawing_.Ellipse(ReversedBox(record));
      return true;
    case 0x0817:
      PlayArc(record, Drawing::ArcKind::Open);
      return true;
    case 0x081A:
      PlayArc(record, Drawing::ArcKind::Pie);
      return true;
    case 0x0830:
      PlayArc(record, Drawing::ArcKind::Chord);
      return true;
    case 0x0324:
      drawing_.Polygon(Points(record, record.U16Le()));
      return true;
    case 0x0325:
      drawing_.Polyline(Points(record, record.U16Le()));
      return true;
    case 0x0538:
      PlayPolyPolygon(record);
      return true;
    case 0x0419: {
      const std::uint32_t edge = drawing_.Color(record.U32Le());
      drawing_.FloodFill(ReversedPoint(record), edge, false);
      return true;
    }
    case 0x0548: {
      const bool surface = record.U16Le() == 1;
      const std::uint32_t color = drawing_.Color(record.U32Le());
      drawing_.FloodFill(ReversedPoint(record), color, surface);
      return true;
    }
    case 0x041F: {
      const std::uint32_t color = drawing_.Color(record.U32Le());
      drawing_.SetPixel(ReversedPoint(record), color);
      return true;
    }
    default:
      return false;
  }
}

void WmfPlayer::PlayPolyPolygon(ByteReader& record) {
  std::vector<std::uint32_t> counts(std::min<std::size_t>(record.U16Le(), record.Remaining() / 2));
  for (std::uint32_t& count : counts) count = record.U16Le();
  drawing_.PolyPolygon(Points(record, record.Remaining() / 4), counts);
}

void WmfPlayer::PlayArc(ByteReader& record, Drawing::ArcKind kind) {
  const Point end = ReversedPoint(record), start = ReversedPoint(record);
  drawing_.Arc(ReversedBox(record), start, end, kind);
}

bool WmfPlayer::PlayClip(unsigned function, ByteReader& record) {
  switch (function) {
    case 0x0415:
      drawing_.ClipBox(ReversedBox(record), ClipMode::Difference);
      return true;
    case 0x0416:
      drawing_.ClipBox(ReversedBox(record), ClipMode::And);
      return true;
    case 0x0220:
      drawing_.OffsetClip(ReversedPoint(record));
      return true;
    case 0x012C: {
      if (const auto* region = RegionAt(record.U16Le())) {
        drawing_.ClipRegion(region->boxes, ClipMode::Copy, false);
      } else {
        drawing_.ResetClip();
      }
      return true;
    }
    case 0x012A:
      if (const auto* region = RegionAt(record.U16Le())) drawing_.InvertRegion(region->boxes);
      return true;
    case 0x012B:
      if (const auto* region = RegionAt(record.U16Le()))
        drawing_.FillRegion(region->boxes, drawing_.State().brush);
      return true;
    case 0x0228:
    case 0x0429: {
      const auto* region = RegionAt(record.U16Le());
      const auto* brush = std::get_if<Brush>(&objects_.Get(record.U16Le()));
      if (!region || !brush) return true;
      if (function == 0x0228) {
        drawing_.FillRegion(region->boxes, *brush);
      } else {
        drawing_.FrameRegion(region->boxes, *brush, ReversedPoint(record));
      }
      return true;
    }
    default:
      return false;
  }
}

}  // namespace lumidex::metafile
