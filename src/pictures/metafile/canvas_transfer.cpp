// How new colour meets the picture below it: through the clip, and with raster operations bit by bit.

#include "pictures/metafile/outlining.h"
#include "pictures/metafile/surfaces.h"

namespace lumidex::metafile {
namespace {

// What is painted through surfaces in between is painted in bands of so many pixels, which bounds their
// memory.
constexpr double mostGroupPixels = 1 << 22;
constexpr double mostBitsPixels = 1 << 20;

constexpr double perBitsPixel = 3 * perGroupPixel;

// Cuts a box of whole pixels into bands of at most about `pixels`, from its top.
template <class Visit>
void ForEachBand(const Box& box, double pixels, Visit visit) {
  const int bottom = static_cast<int>(box.bottom);
  const int rows = std::max(1, static_cast<int>(pixels / box.Width()));
  for (int top = static_cast<int>(box.top); top < bottom; top += rows)
    visit(Box{box.left, static_cast<double>(top), box.right,
              static_cast<double>(std::min(bottom, top + rows))});
}

}  // namespace

void Canvas::Paint(const Clip& clip, const Box& bounds, const Draw& draw) {
  cairo_t* context = context_.get();
  if (!clip.mask) {
    ClipToBox(context, bounds);
    draw(context);
    return;
  }
  if (!budget_.Spend(perGroupPixel * bounds.Area())) return;
  ForEachBand(bounds, mostGroupPixels, [&](const Box& band) {
    const CairoSurface group = BlankSurface(band, CAIRO_FORMAT_ARGB32);
    const CairoContext inner(cairo_create(group.get()));
    cairo_set_tolerance(inner.get(), tolerance);
    draw(inner.get());
    ClipToBox(context, band);
    cairo_set_source_surface(context, group.get(), 0, 0);
    cairo_mask_surface(context, clip.mask.get(), 0, 0);
  });
}

void Canvas::PaintBits(const Clip& clip, const Box& visible, int operation, cairo_pattern_t* source,
                       bool smoothed, const Ink& pattern, const Draw& shape) {
  ForEachBand(visible, mostBitsPixels, [&](const Box& band) {
    const CairoSurface sources = BlankSurface(band, CAIRO_FORMAT_RGB24);
    const CairoSurface patterns = BlankSurface(band, CAIRO_FORMAT_RGB24);
    if (source) {
      const CairoContext painter(cairo_create(sources.get()));
      cairo_set_source(painter.get(), source);
      cairo_paint(painter.get());
    }
    if (UsesPattern(operation) && pattern.kind != Ink::Kind::None) {
      const CairoContext painter(cairo_create(patterns.get()));
      SetInk(painter.get(), pattern, band);
      cairo_paint(painter.get());
    }
    cairo_surface_flush(surface_.get());
    const int left = static_cast<int>(band.left), top = static_cast<int>(band.top);
    const int width = static_cast<int>(band.Width()), height = static_cast<int>(band.Height());
    for (int y = 0; y < height; ++y) {
      std::uint32_t* const from = SurfaceRow(sources.get(), y);
      const std::uint32_t* const brush = SurfaceRow(patterns.get(), y);
      const std::uint32_t* const below = pixels_.Row(top + y).data() + left;
      if (!from || !brush) return;
      for (int x = 0; x < width; ++x)
        from[x] = smoothed ? CombineSmoothed(operation, from[x], below[x])
                           : Combine(operation, brush[x], from[x], below[x]);
    }
    cairo_surface_mark_dirty(sources.get());
    Paint(clip, band, [&](cairo_t* context) {
      cairo_set_source_surface(context, sources.get(), 0, 0);
      shape(context);
    });
  });
}

void Canvas::PaintShape(const Clip& clip, const Box& visible, const Ink& ink, int operation, double cost,
                        const Draw& shape) {
  if (operation == noPen) return;
  const bool known = operation >= blackPen && operation <= whitePen;
  if (known && operation != copyPen && operation != blackPen && operation != whitePen) {
    const double bands = 1 + visible.Area() / mostBitsPixels;
    if (budget_.Spend(cost * bands + perBitsPixel * visible.Area() + InkCost(ink, visible)))
      PaintBits(clip, visible, TernaryOf(operation), nullptr, false, ink, shape);
    return;
  }
  Ink used = ink;
  if (known && operation != copyPen)
    used = {.kind = Ink::Kind::Solid, .colour = operation == blackPen ? 0x000000U : 0xFFFFFFU};
  if (!budget_.Spend(cost + InkCost(used, visible))) return;
  Paint(clip, visible, [&](cairo_t* context) {
    SetInk(context, used, visible);
    shape(context);
  });
}

void Canvas::DrawImage(const Clip& clip, const ImagePart& part, double opacity) {
  const auto placed = PlaceImage(part);
  if (!placed) return;
  const Box visible = Visible(clip, placed->outline.Bounds());
  if (visible.IsEmpty() || !budget_.Spend(perShape + placed->CostPerPixel() * visible.Area())) return;
  Paint(clip, visible, [&](cairo_t* context) {
    cairo_set_source(context, placed->pattern.get());
    Trace(context, placed->outline);
    if (opacity >= 1) {
      cairo_fill(context);
      return;
    }
    cairo_save(context);
    cairo_clip(context);
    cairo_paint_with_alpha(context, opacity);
    cairo_restore(context);
  });
}

void Canvas::Transfer(const Clip& clip, const Path& area, int rasterOperation, const ImagePart* source,
                      const Ink& pattern) {
  if (rasterOperation == patternCopy) return Fill(clip, area, FillRule::Winding, pattern, copyPen);
  if (rasterOperation == sourceCopy && source) return DrawImage(clip, *source);
  const bool needsSource = UsesSource(rasterOperation);
  if (needsSource && !source) return;
  const auto placed = needsSource ? PlaceImage(*source) : std::nullopt;
  if (needsSource && !placed) return;
  const Path& outline = placed ? placed->outline : area;
  const Box visible = Visible(clip, outline.Bounds());
  if (visible.IsEmpty()) return;
  const double cost = perBitsPixel + (placed ? placed->CostPerPixel() : 0);
  if (!budget_.Spend(perShape + cost * visible.Area() + InkCost(pattern, visible))) return;
  const bool smoothed = placed && placed->scaled && IsMasking(rasterOperation);
  // The bits of colours that smoothing made up would come out as noise.
  if (placed && !smoothed) cairo_pattern_set_filter(placed->pattern.get(), CAIRO_FILTER_NEAREST);
  PaintBits(clip, visible, rasterOperation, placed ? placed->pattern.get() : nullptr, smoothed, pattern,
            [&](cairo_t* context) {
              Trace(context, outline);
              cairo_fill(context);
            });
}

}  // namespace lumidex::metafile
