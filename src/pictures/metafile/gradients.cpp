#include "pictures/metafile/gradients.h"

#include <algorithm>

namespace lumidex::metafile {
namespace {

// A triangle of three colours is drawn as a picture of its box; larger ones are drawn coarser.
constexpr double mostTrianglePixels = 1 << 20;

}  // namespace

void FillGradientBox(DeviceContext& context, const Vertex& first, const Vertex& second, bool across) {
  const Box box = Box{first.at.x, first.at.y, second.at.x, second.at.y}.Normalised();
  const Matrix map = context.LogicalToSheet();
  const Point from = map.Apply(first.at);
  const Point to = map.Apply(across ? Point{second.at.x, first.at.y} : Point{first.at.x, second.at.y});
  context.GetCanvas().FillGradient(context.State().clip, context.SheetBox(box), {from, first.colour},
                                   {to, second.colour});
}

void FillGradientTriangle(DeviceContext& context, const std::array<Vertex, 3>& corners) {
  const Matrix map = context.LogicalToSheet();
  const Point a = map.Apply(corners[0].at), b = map.Apply(corners[1].at), c = map.Apply(corners[2].at);
  Path path;
  path.AddPolyline(std::array{a, b, c}, true);
  const Box box = path.Transformed({}).Bounds().GrownToWhole().Intersected(context.GetCanvas().Area());
  const double area = (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
  if (box.IsEmpty() || !std::isfinite(area) || std::abs(area) < 1e-6) return;
  if (!context.Budget().Spend(40 * std::min(box.Area(), mostTrianglePixels))) return;
  const double coarseness = std::max(1.0, std::sqrt(box.Area() / mostTrianglePixels));
  const int width = std::max(1, static_cast<int>(box.Width() / coarseness));
  const int height = std::max(1, static_cast<int>(box.Height() / coarseness));
  const double stepX = box.Width() / width, stepY = box.Height() / height;
  Pixels image = Pixels::Make({width, height}, PixelFormat::Argb, 0);
  for (int row = 0; row < height; ++row) {
    double x = box.left + stepX / 2;
    const double y = box.top + (row + 0.5) * stepY;
    for (std::uint32_t& word : image.Row(row)) {
      // How near the point is to each corner; the three together are 1.
      const double nearB = ((x - a.x) * (c.y - a.y) - (c.x - a.x) * (y - a.y)) / area;
      const double nearC = ((b.x - a.x) * (y - a.y) - (x - a.x) * (b.y - a.y)) / area;
      const double nearA = 1 - nearB - nearC;
      x += stepX;
      if (nearA < 0 || nearB < 0 || nearC < 0) continue;
      const auto channel = [&](int shift) {
        const auto of = [&](const Vertex& vertex) {
          return static_cast<double>(vertex.colour >> shift & 0xFF);
        };
        const double value = nearA * of(corners[0]) + nearB * of(corners[1]) + nearC * of(corners[2]);
        return static_cast<std::uint32_t>(std::clamp(value + 0.5, 0.0, 255.0)) << shift;
      };
      word = 0xFF000000u | channel(16) | channel(8) | channel(0);
    }
  }
  const Matrix toSheet{.xx = stepX, .yy = stepY, .x0 = box.left, .y0 = box.top};
  context.GetCanvas().DrawImage(
      context.State().clip,
      {image, {0, 0, static_cast<double>(width), static_cast<double>(height)}, toSheet});
}

}  // namespace lumidex::metafile
