#include "pictures/metafile/surfaces.h"

namespace lumidex::metafile {
namespace {

std::uint32_t Premultiplied(std::uint32_t word) {
  const std::uint32_t alpha = word >> 24;
  const auto scaled = [&](int shift) { return ((word >> shift & 0xFF) * alpha + 127) / 255 << shift; };
  return alpha << 24 | scaled(16) | scaled(8) | scaled(0);
}

Box WholeOf(const Pixels& pixels) {
  return {0, 0, static_cast<double>(pixels.Width()), static_cast<double>(pixels.Height())};
}

// A copy of part of an image in the renderer's own form; `part` lies within the image.
CairoSurface CopiedPart(const Pixels& pixels, const Box& part) {
  CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(part.Width()),
                                                  static_cast<int>(part.Height())));
  for (int y = 0; y < static_cast<int>(part.Height()); ++y) {
    std::uint32_t* const to = SurfaceRow(surface.get(), y);
    if (!to) break;
    const auto row =
        pixels.Row(static_cast<int>(part.top) + y)
            .subspan(static_cast<std::size_t>(part.left), static_cast<std::size_t>(part.Width()));
    for (std::size_t x = 0; x < row.size(); ++x) {
      switch (pixels.Format()) {
        case PixelFormat::Rgb:
          to[x] = row[x] | 0xFF000000u;
          break;
        case PixelFormat::Argb:
          to[x] = Premultiplied(row[x]);
          break;
        case PixelFormat::ArgbPremultiplied:
          to[x] = row[x];
          break;
      }
    }
  }
  cairo_surface_mark_dirty(surface.get());
  return surface;
}

CairoPattern SurfacePattern(cairo_surface_t* surface, const Matrix& toSheet) {
  CairoPattern pattern(cairo_pattern_create_for_surface(surface));
  MapPattern(pattern.get(), toSheet);
  return pattern;
}

}  // namespace

void MapPattern(cairo_pattern_t* pattern, const Matrix& toSheet) {
  cairo_matrix_t matrix;
  cairo_matrix_init(&matrix, toSheet.xx, toSheet.yx, toSheet.xy, toSheet.yy, toSheet.x0, toSheet.y0);
  if (cairo_matrix_invert(&matrix) == CAIRO_STATUS_SUCCESS) cairo_pattern_set_matrix(pattern, &matrix);
}

CairoSurface SharedSurface(Pixels& pixels, cairo_format_t format) {
  return CairoSurface(cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels.Data()),
                                                          format, pixels.Width(), pixels.Height(),
                                                          pixels.Width() * 4));
}

CairoSurface BlankSurface(const Box& box, cairo_format_t format) {
  CairoSurface surface(
      cairo_image_surface_create(format, static_cast<int>(box.Width()), static_cast<int>(box.Height())));
  cairo_surface_set_device_offset(surface.get(), -box.left, -box.top);
  return surface;
}

std::uint32_t* SurfaceRow(cairo_surface_t* surface, int y) {
  unsigned char* const data = cairo_image_surface_get_data(surface);
  if (!data) return nullptr;
  return reinterpret_cast<std::uint32_t*>(data + std::ptrdiff_t{cairo_image_surface_get_stride(surface)} * y);
}

CairoPattern SolidPattern(std::uint32_t colour, double opacity) {
  return CairoPattern(cairo_pattern_create_rgba((colour >> 16 & 0xFF) / 255.0, (colour >> 8 & 0xFF) / 255.0,
                                                (colour & 0xFF) / 255.0, opacity));
}

CairoSurface CopiedSurface(const Pixels& pixels) {
  return CopiedPart(pixels, WholeOf(pixels));
}

CairoPattern TilePattern(cairo_surface_t* tile, const Ink& ink) {
  CairoPattern pattern;
  if (ink.tileMap) {
    pattern = SurfacePattern(tile, *ink.tileMap);
    cairo_pattern_set_filter(pattern.get(), CAIRO_FILTER_BILINEAR);
  } else {
    const double size = std::clamp(ink.tileScale, 1 / 16.0, 64.0);
    pattern = SurfacePattern(
        tile, {.xx = size, .yy = size, .x0 = std::floor(ink.origin.x), .y0 = std::floor(ink.origin.y)});
    cairo_pattern_set_filter(pattern.get(), size < 1 ? CAIRO_FILTER_BILINEAR : CAIRO_FILTER_NEAREST);
  }
  cairo_pattern_set_extend(pattern.get(), ink.tileEdge);
  return pattern;
}

std::optional<PlacedImage> PlaceImage(const ImagePart& part) {
  const Box whole = WholeOf(part.image);
  const Box source = part.source.GrownToWhole().Intersected(whole);
  if (source.IsEmpty() || !part.toSheet.IsUsable()) return std::nullopt;
  Matrix toSheet = Matrix{.x0 = source.left, .y0 = source.top}.Then(part.toSheet);
  const double width = source.Width(), height = source.Height();
  if (toSheet.KeepsAxes()) {
    const Point from = toSheet.Apply({0, 0}), to = toSheet.Apply({width, height});
    Box target = Box{from.x, from.y, to.x, to.y}.Normalised().Rounded();
    target.right = std::max(target.right, target.left + 1);
    target.bottom = std::max(target.bottom, target.top + 1);
    const bool mirrored = toSheet.xx < 0, flipped = toSheet.yy < 0;
    toSheet.xx = target.Width() / width * (mirrored ? -1 : 1);
    toSheet.yy = target.Height() / height * (flipped ? -1 : 1);
    toSheet.x0 = mirrored ? target.right : target.left;
    toSheet.y0 = flipped ? target.bottom : target.top;
  }
  if (!toSheet.IsUsable()) return std::nullopt;
  PlacedImage placed;
  Path outline;
  outline.AddBox({0, 0, width, height});
  placed.outline = outline.Transformed(toSheet);
  // Opaque pixels are in the renderer's form already.
  const bool asItIs = part.image.Format() == PixelFormat::Rgb && source.Area() == whole.Area();
  if (asItIs) placed.image = part.image;
  const CairoSurface surface =
      asItIs ? SharedSurface(placed.image, CAIRO_FORMAT_RGB24) : CopiedPart(part.image, source);
  placed.pattern = SurfacePattern(surface.get(), toSheet);
  cairo_pattern_set_extend(placed.pattern.get(), CAIRO_EXTEND_PAD);
  const double across = toSheet.HorizontalScale(), down = toSheet.VerticalScale();
  const bool same = std::abs(across - 1) < 1e-6 && std::abs(down - 1) < 1e-6 && toSheet.KeepsAxes();
  placed.scaled = !same;
  cairo_pattern_set_filter(placed.pattern.get(), same ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_GOOD);
  // The renderer averages over at most sixteen by sixteen pixels.
  placed.shrinking = std::clamp(1 / across, 1.0, 16.0) * std::clamp(1 / down, 1.0, 16.0);
  return placed;
}

}  // namespace lumidex::metafile
