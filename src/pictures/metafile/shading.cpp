#include "pictures/metafile/shading.h"

#include <array>

#include "pictures/metafile/surfaces.h"
#include "pictures/pixels.h"

namespace lumidex::metafile {
namespace {

constexpr double perLinePixel = 20;
constexpr double perCentrePixel = 40;
constexpr double perShownPixel = 15;
constexpr double perCorner = 1000;
constexpr double perSideRow = 40;

// Larger areas are drawn coarser.
constexpr double mostCentrePixels = 1 << 20;

// A hair beyond the outline, so that its antialiased edge has a colour to show.
constexpr double pixelsBeyond = 1.5;

std::uint32_t ColourAt(const std::vector<ShadingStop>& stops, double place) {
  if (stops.empty()) return 0;
  const auto next = std::ranges::find_if(stops, [&](const ShadingStop& stop) { return stop.place >= place; });
  if (next == stops.begin()) return next->argb;
  if (next == stops.end()) return stops.back().argb;
  const ShadingStop& before = *(next - 1);
  const double length = next->place - before.place;
  return length > 0 ? Mixed(before.argb, next->argb, (place - before.place) / length) : next->argb;
}

// The colours between outline and centre, looked up instead of worked out for each pixel.
class Ramp {
 public:
  explicit Ramp(const Shading& shading) : colours_(steps + 1) {
    for (int i = 0; i <= steps; ++i)
      colours_[static_cast<std::size_t>(i)] = ColourAt(shading.stops, static_cast<double>(i) / steps);
  }
  std::uint32_t At(double place) const {
    return colours_[static_cast<std::size_t>(std::clamp(place, 0.0, 1.0) * steps)];
  }

 private:
  static constexpr int steps = 1024;
  std::vector<std::uint32_t> colours_;
};

// The triangles between the centre and the sides of the outline, drawn into a picture.
class Fan {
 public:
  Fan(const Shading& shading, Pixels& image) : shading_(shading), ramp_(shading), image_(image) {}

  void Draw(const std::vector<Point>& corners, Point centre) {
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const std::size_t next = (i + 1) % corners.size();
      DrawSide(centre, corners[i], corners[next], ColourOf(i), ColourOf(next));
    }
  }

 private:
  std::uint32_t ColourOf(std::size_t corner) const {
    const auto& colours = shading_.outlineColours;
    return colours.empty() ? 0 : colours[std::min(corner, colours.size() - 1)];
  }

  static Point PushedOut(Point centre, Point corner) {
    const double x = corner.x - centre.x, y = corner.y - centre.y, length = std::hypot(x, y);
    const double by = length > 0 ? 1 + pixelsBeyond / length : 1;
    return {centre.x + x * by, centre.y + y * by};
  }

  void DrawSide(Point c, Point a, Point b, std::uint32_t colourA, std::uint32_t colourB) {
    const double area = (a.x - c.x) * (b.y - c.y) - (b.x - c.x) * (a.y - c.y);
    if (!std::isfinite(area) || std::abs(area) < 1e-9) return;
    const std::array corners = {c, PushedOut(c, a), PushedOut(c, b)};
    const auto [top, bottom] = std::minmax({corners[0].y, corners[1].y, corners[2].y});
    const int from = static_cast<int>(std::clamp(std::floor(top), 0.0, image_.Height() - 1.0));
    const int to = static_cast<int>(std::clamp(std::ceil(bottom), 0.0, static_cast<double>(image_.Height())));
    for (int row = from; row < to; ++row) {
      const double y = row + 0.5;
      double left = 1e9, right = -1e9;
      for (std::size_t i = 0; i < corners.size(); ++i) {
        const Point p = corners[i], q = corners[(i + 1) % corners.size()];
        if ((p.y > y) == (q.y > y)) continue;
        const double x = p.x + (q.x - p.x) * (y - p.y) / (q.y - p.y);
        left = std::min(left, x);
        right = std::max(right, x);
      }
      if (!(left <= right)) continue;
      const auto words = image_.Row(row);
      const double width = static_cast<double>(words.size());
      const auto first = static_cast<std::size_t>(std::clamp(std::floor(left - 0.5), 0.0, width));
      const auto end = static_cast<std::size_t>(std::clamp(std::ceil(right + 0.5), 0.0, width));
      for (std::size_t column = first; column < end; ++column) {
        const double x = static_cast<double>(column) + 0.5;
        const double nearA = ((x - c.x) * (b.y - c.y) - (b.x - c.x) * (y - c.y)) / area;
        const double nearB = ((a.x - c.x) * (y - c.y) - (x - c.x) * (a.y - c.y)) / area;
        words[column] = Colour(std::max(0.0, nearA), std::max(0.0, nearB), colourA, colourB);
      }
    }
  }

  std::uint32_t Colour(double nearA, double nearB, std::uint32_t colourA, std::uint32_t colourB) const {
    const double away = std::min(1.0, nearA + nearB);
    const double place = shading_.focus < 1 ? (1 - away) / (1 - shading_.focus) : 1;
    const std::uint32_t colour = ramp_.At(place);
    if (!shading_.mixesWithOutline) return colour;
    const std::uint32_t edge = colourA == colourB || !(nearA + nearB > 0)
                                   ? colourA
                                   : Mixed(colourA, colourB, nearB / (nearA + nearB));
    return Mixed(edge, shading_.centreColour, static_cast<double>(colour >> 24) / 255);
  }

  const Shading& shading_;
  Ramp ramp_;
  Pixels& image_;
};

}  // namespace

std::uint32_t Mixed(std::uint32_t from, std::uint32_t to, double part) {
  const auto weight = static_cast<std::uint32_t>(part * 256);
  std::uint32_t mixed = 0;
  for (const int shift : {0, 8, 16, 24})
    mixed |= ((from >> shift & 0xFF) * (256 - weight) + (to >> shift & 0xFF) * weight + 128) >> 8 << shift;
  return mixed;
}

CairoPattern LinePattern(const Shading& shading, const Matrix& toSheet) {
  if (!toSheet.IsUsable() || !(std::abs(shading.end - shading.start) > 1e-9)) return nullptr;
  CairoPattern pattern(cairo_pattern_create_linear(shading.start, 0, shading.end, 0));
  for (const ShadingStop& stop : shading.stops) {
    const auto part = [&](int shift) { return static_cast<double>(stop.argb >> shift & 0xFF) / 255; };
    cairo_pattern_add_color_stop_rgba(pattern.get(), stop.place, part(16), part(8), part(0), part(24));
  }
  cairo_pattern_set_extend(
      pattern.get(), shading.beyond == Shading::Beyond::Mirrors ? CAIRO_EXTEND_REFLECT : CAIRO_EXTEND_REPEAT);
  MapPattern(pattern.get(), toSheet);
  return pattern;
}

CairoPattern CentrePattern(const Shading& shading, const Matrix& toSheet, const Box& visible) {
  if (!toSheet.IsUsable() || shading.outline.size() < 3 || visible.IsEmpty()) return nullptr;
  const double coarseness = std::max(1.0, std::sqrt(visible.Area() / mostCentrePixels));
  const Size size{std::max(1, static_cast<int>(visible.Width() / coarseness)),
                  std::max(1, static_cast<int>(visible.Height() / coarseness))};
  const Matrix toImage{.xx = size.width / visible.Width(),
                       .yy = size.height / visible.Height(),
                       .x0 = -visible.left * size.width / visible.Width(),
                       .y0 = -visible.top * size.height / visible.Height()};
  const Matrix map = toSheet.Then(toImage);
  std::vector<Point> corners;
  for (const Point corner : shading.outline) corners.push_back(map.Apply(corner));
  Pixels image = Pixels::Make(size, PixelFormat::Argb, 0);
  Fan(shading, image).Draw(corners, map.Apply(shading.centre));
  const CairoSurface surface = CopiedSurface(image);
  CairoPattern pattern(cairo_pattern_create_for_surface(surface.get()));
  MapPattern(pattern.get(),
             {.xx = 1 / toImage.xx, .yy = 1 / toImage.yy, .x0 = visible.left, .y0 = visible.top});
  cairo_pattern_set_filter(pattern.get(), coarseness > 1 ? CAIRO_FILTER_BILINEAR : CAIRO_FILTER_NEAREST);
  return pattern;
}

double ShadingCost(const Shading& shading, const Matrix& toSheet, const Box& visible) {
  if (shading.kind == Shading::Kind::Line) return perLinePixel * visible.Area();
  // The sides' triangles may lie over each other as often as there are sides.
  const double shrinking = std::min(1.0, mostCentrePixels / std::max(1.0, visible.Area()));
  const double most = visible.Area() * shrinking;
  const double scale = std::abs(toSheet.Determinant()) * shrinking;
  const std::size_t sides = shading.outline.size();
  double pixels = 0;
  for (std::size_t i = 0; i < sides; ++i) {
    const Point a = shading.outline[i], b = shading.outline[(i + 1) % sides], c = shading.centre;
    const double area = std::abs((a.x - c.x) * (b.y - c.y) - (b.x - c.x) * (a.y - c.y)) / 2;
    pixels += std::isfinite(area * scale) ? std::min(area * scale, most) : most;
  }
  const double rows = visible.Height() * std::sqrt(shrinking);
  return perCentrePixel * (pixels + most) + perShownPixel * visible.Area() +
         static_cast<double>(sides) * (perCorner + perSideRow * rows);
}

}  // namespace lumidex::metafile
