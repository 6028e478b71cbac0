#include "pictures/metafile/drawing.h"

namespace lumidex::metafile {

Matrix Drawing::BlitMatrix(const Blit& blit) const {
  const double across = blit.source.Width() != 0 ? blit.targetSize.x / blit.source.Width() : 0;
  const double down = blit.source.Height() != 0 ? blit.targetSize.y / blit.source.Height() : 0;
  const Matrix toLogical{.xx = across,
                         .yy = down,
                         .x0 = blit.target.x - blit.source.left * across,
                         .y0 = blit.target.y - blit.source.top * down};
  return toLogical.Then(LogicalToSheet());
}

void Drawing::Transfer(const Blit& blit, const Pixels& image) {
  const ImagePart part{image, blit.source.Normalised(), BlitMatrix(blit)};
  const Path area = SheetBox(
      {blit.target.x, blit.target.y, blit.target.x + blit.targetSize.x, blit.target.y + blit.targetSize.y});
  canvas_.Transfer(state_.clip, area, blit.rasterOperation, &part, Completed(state_.brush));
}

void Drawing::TransferPattern(const Box& box, int rasterOperation) {
  const Path area = SheetBox(box);
  // Nothing but the brush shows through these two, so they are filled without looking at the picture.
  if (rasterOperation == 0x00 || rasterOperation == 0xFF) {
    const Ink ink{.kind = Ink::Kind::Solid, .color = rasterOperation == 0 ? 0x000000u : 0xFFFFFFu};
    return canvas_.Fill(state_.clip, area, FillRule::Winding, ink, copyPen);
  }
  canvas_.Transfer(state_.clip, area, rasterOperation, nullptr, Completed(state_.brush));
}

void Drawing::Blend(const Blit& blit, const Pixels& image, double opacity) {
  canvas_.DrawImage(state_.clip, {image, blit.source.Normalised(), BlitMatrix(blit)}, opacity);
}

void Drawing::Parallelogram(const Box& source, std::span<const Point, 3> corners, const Pixels& image) {
  if (source.IsEmpty()) return;
  const Point a = corners[0], b = corners[1], c = corners[2];
  const double width = source.Width(), height = source.Height();
  const Matrix toUnit{
      .xx = 1 / width, .yy = 1 / height, .x0 = -source.left / width, .y0 = -source.top / height};
  const Matrix toLogical{b.x - a.x, b.y - a.y, c.x - a.x, c.y - a.y, a.x, a.y};
  canvas_.DrawImage(state_.clip, {image, source, toUnit.Then(toLogical).Then(LogicalToSheet())});
}

}  // namespace lumidex::metafile
