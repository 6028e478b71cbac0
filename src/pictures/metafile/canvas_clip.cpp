#include "pictures/metafile/outlining.h"
#include "pictures/metafile/surfaces.h"

namespace lumidex::metafile {
namespace {

// All clip masks of one picture together; beyond that, clips stay as they are.
constexpr double mostMaskBytes = 96.0 * (1 << 20);

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
  const Box bounds = path.Bounds().GrownToWhole().Intersected(area_);
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
  if (path.IsEmpty()) return;
  if (!budget_.Spend(FillCost(path, bounds) + area_.Area())) return;
  std::shared_ptr<cairo_surface_t> mask = MakeMask();
  if (!mask) return;
  const CairoContext painter(cairo_create(mask.get()));
  SetFillRule(painter.get(), rule);
  const auto paintOld = [&] {
    ClipToBox(painter.get(), clip.box);
    if (clip.mask) {
      cairo_set_source_surface(painter.get(), clip.mask.get(), 0, 0);
    } else {
      cairo_set_source_rgba(painter.get(), 0, 0, 0, 1);
    }
    cairo_paint(painter.get());
    cairo_reset_clip(painter.get());
  };
  const auto paintNew = [&](cairo_operator_t blend) {
    cairo_set_operator(painter.get(), blend);
    cairo_set_source_rgba(painter.get(), 0, 0, 0, 1);
    Trace(painter.get(), path);
    cairo_fill(painter.get());
  };
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
      paintNew(CAIRO_OPERATOR_OVER);
      keepWithin(clip);
      clip.box = clip.box.Intersected(bounds);
      break;
    case ClipMode::Or:
      paintOld();
      paintNew(CAIRO_OPERATOR_OVER);
      keepWithin(base);
      clip.box = joined;
      break;
    case ClipMode::Xor:
      paintOld();
      paintNew(CAIRO_OPERATOR_XOR);
      keepWithin(base);
      clip.box = joined;
      break;
    case ClipMode::Difference:
      paintOld();
      paintNew(CAIRO_OPERATOR_DEST_OUT);
      break;
  }
  clip.mask = std::move(mask);
}

}  // namespace lumidex::metafile
