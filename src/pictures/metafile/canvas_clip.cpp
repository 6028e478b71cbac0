#include "pictures/metafile/outlining.h"
#include "pictures/metafile/surfaces.h"

namespace lumidex::metafile {
namespace {

// All clip masks of one picture together; beyond that, clips stay as they are.
constexpr double mostMaskBytes = 96.0 * (1 << 20);

// Paints what shows through the clip.
void PaintClip(cairo_t* painter, const Clip& clip, cairo_operator_t blend) {
  ClipToBox(painter, clip.box);
  cairo_set_operator(painter, blend);
  if (clip.mask) {
    cairo_set_source_surface(painter, clip.mask.get(), 0, 0);
  } else {
    cairo_set_source_rgba(painter, 0, 0, 0, 1);
  }
  cairo_paint(painter);
  cairo_reset_clip(painter);
}

}  // namespace

std::shared_ptr<cairo_surface_t> Canvas::MakeMask() {
  const double bytes = area_.Area();
  if (*maskBytes_ + bytes > mostMaskBytes || !budget_.Spend(bytes)) return nullptr;
  *maskBytes_ += bytes;
  return {BlankSurface(area_, CAIRO_FORMAT_A8).release(),
          [counter = maskBytes_, bytes](cairo_surface_t* surface) {
            *counter -= bytes;
            cairo_surface_destroy(surface);
          }};
}

void Canvas::CombineClip(Clip& clip, const Clip& base, const Path& path, FillRule rule, ClipMode mode) {
  if (mode == ClipMode::Copy) {
    clip = base;
    mode = ClipMode::And;
  }
  if (mode == ClipMode::And) {
    if (const auto box = path.IsEmpty() ? Box{} : path.AsBox()) {
      clip.box = box->Rounded().Intersected(clip.box);
      return;
    }
  }
  if (path.IsEmpty()) {
    if (mode == ClipMode::Complement) clip.box = {};
    return;
  }
  const Box bounds = path.Bounds().GrownToWhole().Intersected(area_);
  JoinCover(clip, base, bounds, mode, FillCost(path, bounds), [&](cairo_t* painter, cairo_operator_t blend) {
    cairo_set_operator(painter, blend);
    cairo_set_source_rgba(painter, 0, 0, 0, 1);
    SetFillRule(painter, rule);
    Trace(painter, path);
    cairo_fill(painter);
  });
}

void Canvas::CombineClip(Clip& clip, const Clip& base, const Path& path, const StrokeStyle& style,
                         ClipMode mode) {
  if (path.IsEmpty()) return CombineClip(clip, base, path, FillRule::Winding, mode);
  const metafile::Stroke stroke(path, style);
  const Box bounds = stroke.bounds.Grown(1).GrownToWhole().Intersected(area_);
  JoinCover(clip, base, bounds, mode, stroke.Cost(bounds), [&](cairo_t* painter, cairo_operator_t blend) {
    cairo_set_operator(painter, blend);
    cairo_set_source_rgba(painter, 0, 0, 0, 1);
    stroke.Paint(painter);
  });
}

void Canvas::CombineClip(Clip& clip, const Clip& base, const Clip& other, ClipMode mode) {
  const bool plain = !other.mask && (mode == ClipMode::And || mode == ClipMode::Copy);
  if (plain) {
    if (mode == ClipMode::Copy) clip = base;
    clip.box = clip.box.Intersected(other.box);
    return;
  }
  JoinCover(clip, base, other.box, mode, perPixel * other.box.Area(),
            [&](cairo_t* painter, cairo_operator_t blend) { PaintClip(painter, other, blend); });
}

void Canvas::ClipToImage(Clip& clip, const ImagePart& part) {
  const auto placed = PlaceImage(part);
  if (!placed) {
    clip.box = {};
    return;
  }
  const Box bounds = placed->outline.Bounds().GrownToWhole().Intersected(area_);
  cairo_pattern_set_filter(placed->pattern.get(), CAIRO_FILTER_NEAREST);
  JoinCover(clip, clip, bounds, ClipMode::And, placed->CostPerPixel() * bounds.Area(),
            [&](cairo_t* painter, cairo_operator_t blend) {
              cairo_set_operator(painter, blend);
              cairo_set_source(painter, placed->pattern.get());
              Trace(painter, placed->outline);
              cairo_fill(painter);
            });
}

void Canvas::JoinCover(Clip& clip, const Clip& base, const Box& bounds, ClipMode mode, double cost,
                       const PaintCover& paint) {
  if (mode == ClipMode::Copy) clip = base;
  if (!budget_.Spend(cost + area_.Area())) return;
  std::shared_ptr<cairo_surface_t> mask = MakeMask();
  if (!mask) return;
  const CairoContext painter(cairo_create(mask.get()));
  cairo_set_tolerance(painter.get(), tolerance);
  const auto keepWithin = [&](const Clip& other) {
    if (!other.mask) return;
    cairo_set_operator(painter.get(), CAIRO_OPERATOR_IN);
    cairo_set_source_surface(painter.get(), other.mask.get(), 0, 0);
    cairo_paint(painter.get());
  };
  const Box joined = Box{std::min(clip.box.left, bounds.left), std::min(clip.box.top, bounds.top),
                         std::max(clip.box.right, bounds.right), std::max(clip.box.bottom, bounds.bottom)}
                         .Intersected(base.box);
  switch (mode) {
    case ClipMode::Copy:
    case ClipMode::And:
      paint(painter.get(), CAIRO_OPERATOR_OVER);
      keepWithin(clip);
      clip.box = clip.box.Intersected(bounds);
      break;
    case ClipMode::Or:
    case ClipMode::Xor:
      PaintClip(painter.get(), clip, CAIRO_OPERATOR_OVER);
      paint(painter.get(), mode == ClipMode::Or ? CAIRO_OPERATOR_OVER : CAIRO_OPERATOR_XOR);
      keepWithin(base);
      clip.box = joined;
      break;
    case ClipMode::Difference:
      PaintClip(painter.get(), clip, CAIRO_OPERATOR_OVER);
      paint(painter.get(), CAIRO_OPERATOR_DEST_OUT);
      break;
    case ClipMode::Complement:
      paint(painter.get(), CAIRO_OPERATOR_OVER);
      PaintClip(painter.get(), clip, CAIRO_OPERATOR_DEST_OUT);
      keepWithin(base);
      clip.box = bounds.Intersected(base.box);
      break;
  }
  clip.mask = std::move(mask);
}

}  // namespace lumidex::metafile
