#include "pictures/metafile/blits.h"

#include <algorithm>

namespace lumidex::metafile {
namespace {

constexpr double perMaskedPixel = 6;

// Opaque where the mask has ones, which are not black, or its zeros.
Pixels OpaqueWhere(const Pixels& mask, bool ones) {
  Pixels result = Pixels::MakeUnfilled(mask.GetSize(), PixelFormat::Argb);
  for (int y = 0; y < result.Height(); ++y)
    std::ranges::transform(mask.Row(y), result.Row(y).begin(), [&](std::uint32_t word) {
      return ((word & 0xFFFFFF) != 0) == ones ? 0xFF000000U : 0U;
    });
  return result;
}

Matrix BlitMatrix(const DeviceContext& context, const Blit& blit) {
  const double across = blit.source.Width() != 0 ? blit.targetSize.x / blit.source.Width() : 0;
  const double down = blit.source.Height() != 0 ? blit.targetSize.y / blit.source.Height() : 0;
  const Matrix toLogical{.xx = across,
                         .yy = down,
                         .x0 = blit.target.x - blit.source.left * across,
                         .y0 = blit.target.y - blit.source.top * down};
  return toLogical.Then(context.LogicalToSheet());
}

}  // namespace

Box TargetBox(const Blit& blit) {
  return {blit.target.x, blit.target.y, blit.target.x + blit.targetSize.x, blit.target.y + blit.targetSize.y};
}

void Transfer(DeviceContext& context, const Blit& blit, const Pixels& image) {
  const ImagePart part{image, blit.source.Normalised(), BlitMatrix(context, blit)};
  const Path area = context.SheetBox(TargetBox(blit));
  context.GetCanvas().Transfer(context.State().clip, area, blit.rasterOperation, &part,
                               context.Completed(context.State().brush));
}

void TransferMasked(DeviceContext& context, const Blit& blit, const Pixels* image, const Mask& mask,
                    int zerosOperation) {
  const double pixels = static_cast<double>(mask.pixels.Width()) * mask.pixels.Height();
  const Box source = blit.source.Normalised();
  const Point size = source.IsEmpty() ? Point{std::abs(blit.targetSize.x), std::abs(blit.targetSize.y)}
                                      : Point{source.Width(), source.Height()};
  Blit place = blit;
  place.source = {mask.from.x, mask.from.y, mask.from.x + size.x, mask.from.y + size.y};
  const Clip whole = context.State().clip;
  for (const bool ones : {true, false}) {
    Blit part = blit;
    if (!ones) part.rasterOperation = zerosOperation;
    if (part.rasterOperation == keepPicture) continue;
    if (!context.Budget().Spend(perMaskedPixel * pixels)) break;
    context.GetCanvas().ClipToImage(
        context.State().clip, {OpaqueWhere(mask.pixels, ones), place.source, BlitMatrix(context, place)});
    if (!UsesSource(part.rasterOperation)) {
      TransferPattern(context, TargetBox(part), part.rasterOperation);
    } else if (image) {
      Transfer(context, part, *image);
    }
    context.State().clip = whole;
  }
}

void TransferPattern(DeviceContext& context, const Box& box, int rasterOperation) {
  const Path area = context.SheetBox(box);
  // Nothing but the brush shows through these two, so they are filled without looking at the picture.
  if (rasterOperation == 0x00 || rasterOperation == 0xFF) {
    const Ink ink{.kind = Ink::Kind::Solid, .colour = rasterOperation == 0 ? 0x000000u : 0xFFFFFFu};
    return context.GetCanvas().Fill(context.State().clip, area, FillRule::Winding, ink, copyPen);
  }
  context.GetCanvas().Transfer(context.State().clip, area, rasterOperation, nullptr,
                               context.Completed(context.State().brush));
}

void Blend(DeviceContext& context, const Blit& blit, const Pixels& image, double opacity) {
  context.GetCanvas().DrawImage(context.State().clip,
                                {image, blit.source.Normalised(), BlitMatrix(context, blit)}, opacity);
}

void DrawParallelogram(DeviceContext& context, const Box& source, std::span<const Point, 3> corners,
                       const Pixels& image) {
  if (source.IsEmpty()) return;
  const Point a = corners[0], b = corners[1], c = corners[2];
  const double width = source.Width(), height = source.Height();
  const Matrix toUnit{
      .xx = 1 / width, .yy = 1 / height, .x0 = -source.left / width, .y0 = -source.top / height};
  const Matrix toLogical{b.x - a.x, b.y - a.y, c.x - a.x, c.y - a.y, a.x, a.y};
  context.GetCanvas().DrawImage(context.State().clip,
                                {image, source, toUnit.Then(toLogical).Then(context.LogicalToSheet())});
}

}  // namespace lumidex::metafile
