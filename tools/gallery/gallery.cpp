#include "gallery/gallery.h"

#include "gallery/encoders/bmp_encoder.h"
#include "gallery/encoders/gif_encoder.h"
#include "gallery/encoders/jpeg_encoder.h"
#include "gallery/encoders/png_encoder.h"
#include "gallery/encoders/pnm_encoder.h"
#include "gallery/encoders/tiff_encoder.h"
#include "gallery/scenes/scenes.h"

namespace lumidex {
namespace {

using Scene = void (*)(Canvas&);

Pixels Draw(Scene scene, Size size) {
  Canvas canvas(size, SceneWidth);
  scene(canvas);
  return canvas.ToPixels();
}

IndexedPicture Coloured(Scene scene, Size size, int colours) {
  const Pixels pixels = Draw(scene, size);
  return Reduce(pixels, MedianCut(pixels, colours), Dithering::ErrorDiffusion);
}

// Flat areas stay flat, for the run-length formats.
IndexedPicture Flat(Scene scene, Size size, int colours) {
  const Pixels pixels = Draw(scene, size);
  return Reduce(pixels, MedianCut(pixels, colours), Dithering::None);
}

IndexedPicture BlackOnWhite(Scene scene, Size size) {
  return Reduce(Draw(scene, size), BlackAndWhite(), Dithering::ErrorDiffusion);
}

}  // namespace

const std::vector<GalleryPicture>& GalleryPictures() {
  static const std::vector<GalleryPicture> pictures{
      {"lighthouse.jpg",
       {800, 600},
       "A lighthouse at dusk, baseline JPEG.",
       [](Size size) { return EncodeJpeg(Draw(DrawLighthouse, size), 88); }},
      {"mountains.jpg",
       {800, 600},
       "Mountains behind a lake, progressive JPEG.",
       [](Size size) { return EncodeJpeg(Draw(DrawMountains, size), 88, JpegKind::Progressive); }},
      {"still_life.jpg",
       {800, 600},
       "Fruit and a jug, baseline JPEG.",
       [](Size size) { return EncodeJpeg(Draw(DrawStillLife, size), 88); }},
      {"parrot.png",
       {640, 480},
       "A parrot among leaves, PNG in true colour.",
       [](Size size) { return EncodePng(Draw(DrawParrot, size)); }},
      {"rosette.png",
       {400, 300},
       "A tiling of stars, PNG with a palette.",
       [](Size size) { return EncodePng(Flat(DrawRosette, size, 256)); }},
      {"balloons.gif",
       {400, 300},
       "Balloons over hills, GIF of 256 colours.",
       [](Size size) { return EncodeGif(Coloured(DrawBalloons, size, 256)); }},
      {"balloons.bmp",
       {320, 240},
       "Balloons over hills, bitmap of 24 bits.",
       [](Size size) { return EncodeBmp(Draw(DrawBalloons, size)); }},
      {"parrot.dib",
       {320, 240},
       "A parrot, device-independent bitmap of 256 colours.",
       [](Size size) { return EncodeBmp(Coloured(DrawParrot, size, 256)); }},
      {"sailboat.rle",
       {320, 240},
       "A sailing boat, run-length bitmap of 16 colours.",
       [](Size size) { return EncodeRunLengthBmp(Flat(DrawSailboat, size, 16)); }},
      {"mountains.tif",
       {400, 300},
       "Mountains behind a lake, TIFF with LZW compression.",
       [](Size size) { return EncodeTiff(Draw(DrawMountains, size)); }},
      {"cat.pbm",
       {320, 240},
       "A cat at a window, raw portable bitmap.",
       [](Size size) { return EncodePbm(BlackOnWhite(DrawCat, size), PnmKind::Raw); }},
      {"still_life.pgm",
       {320, 240},
       "Fruit and a jug in grey, raw portable greymap.",
       [](Size size) { return EncodePgm(Draw(DrawStillLife, size), PnmKind::Raw); }},
      {"lighthouse.ppm",
       {240, 180},
       "A lighthouse at dusk, raw portable pixmap.",
       [](Size size) { return EncodePpm(Draw(DrawLighthouse, size), PnmKind::Raw); }},
      {"rosette.pnm",
       {120, 90},
       "A tiling of stars, plain portable pixmap.",
       [](Size size) { return EncodePpm(Draw(DrawRosette, size), PnmKind::Plain); }},
  };
  return pictures;
}

}  // namespace lumidex
