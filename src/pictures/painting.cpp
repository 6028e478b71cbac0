#include "pictures/painting.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "pictures/alpha.h"
#include "pictures/orientation.h"
#include "pictures/scaling.h"

namespace lumidex {
namespace {

bool IsBackward(PixelRun run) {
  return run.length < 0;
}
std::int64_t Lowest(PixelRun run) {
  return IsBackward(run) ? run.first + run.length + 1 : run.first;
}

// Which source pixel each destination pixel takes along one side, for the destination pixels that are
// painted.
struct Line {
  int first = 0;             // on the destination
  std::vector<int> sources;  // -1 outside the source
};

Line MakeLine(PixelRun onto, int surfaceSide, PixelRun from, int sourceSide) {
  const std::int64_t length = std::abs(onto.length), sourceLength = std::abs(from.length);
  const std::int64_t begin = std::max<std::int64_t>(Lowest(onto), 0);
  const std::int64_t end = std::min<std::int64_t>(Lowest(onto) + length, surfaceSide);
  Line line;
  if (sourceLength == 0) return line;
  line.first = static_cast<int>(std::min<std::int64_t>(begin, surfaceSide));
  for (std::int64_t at = begin; at < end; ++at) {
    std::int64_t place = at - Lowest(onto);
    if (IsBackward(onto) != IsBackward(from)) place = length - 1 - place;
    const std::int64_t source = Lowest(from) + static_cast<std::int64_t>((static_cast<double>(place) + 0.5) *
                                                                         static_cast<double>(sourceLength) /
                                                                         static_cast<double>(length));
    line.sources.push_back(source >= 0 && source < sourceSide ? static_cast<int>(source) : -1);
  }
  return line;
}

// A whole picture onto a whole one of the same size turns it over, which has a faster way.
bool IsWhole(PixelRun run, int side) {
  return Lowest(run) == 0 && std::abs(run.length) == side;
}
bool IsWhole(const PixelBox& box, Size size) {
  return IsWhole(box.across, size.width) && IsWhole(box.down, size.height);
}
Pixels TurnedOver(const Pixels& source, bool leftRight, bool topBottom) {
  if (leftRight && topBottom) return Turned(source, Orientation::HalfTurn);
  if (leftRight) return Turned(source, Orientation::MirrorLeftRight);
  return topBottom ? Turned(source, Orientation::MirrorTopBottom) : source;
}

}  // namespace

void Paint(Pixels& surface, const PixelBox& onto, const Pixels& source, const PixelBox& from) {
  if (surface.IsEmpty() || source.IsEmpty()) return;
  if (surface.GetSize() == source.GetSize() && IsWhole(onto, surface.GetSize()) &&
      IsWhole(from, source.GetSize())) {
    surface = TurnedOver(source, IsBackward(onto.across) != IsBackward(from.across),
                         IsBackward(onto.down) != IsBackward(from.down));
    return;
  }
  const Line columns = MakeLine(onto.across, surface.Width(), from.across, source.Width());
  const Line rows = MakeLine(onto.down, surface.Height(), from.down, source.Height());
  if (columns.sources.empty() || rows.sources.empty()) return;
  if (surface.IsShared()) surface = Copy(surface);
  int y = rows.first;
  for (const int sourceRow : rows.sources) {
    std::uint32_t* out = surface.Row(y++).data() + columns.first;
    if (sourceRow < 0) continue;
    const std::span<const std::uint32_t> in = source.Row(sourceRow);
    for (const int column : columns.sources) {
      if (column >= 0) *out = in[static_cast<std::size_t>(column)];
      ++out;
    }
  }
  if (surface.Format() != source.Format()) DeclareOpaqueIfSo(surface);
}

}  // namespace lumidex
