#include "gallery/gallery.h"

#include <algorithm>

#include "gallery/drawing_files.h"
#include "gallery/encoders/art_encoder.h"
#include "gallery/encoders/bmp_encoder.h"
#include "gallery/encoders/cut_encoder.h"
#include "gallery/encoders/gem_encoder.h"
#include "gallery/encoders/gif_encoder.h"
#include "gallery/encoders/hrz_encoder.h"
#include "gallery/encoders/icon_encoder.h"
#include "gallery/encoders/iff_encoder.h"
#include "gallery/encoders/jpeg_encoder.h"
#include "gallery/encoders/mac_encoder.h"
#include "gallery/encoders/msp_encoder.h"
#include "gallery/encoders/pcx_encoder.h"
#include "gallery/encoders/pic_encoder.h"
#include "gallery/encoders/png_encoder.h"
#include "gallery/encoders/pnm_encoder.h"
#include "gallery/encoders/ras_encoder.h"
#include "gallery/encoders/tga_encoder.h"
#include "gallery/encoders/tiff_encoder.h"
#include "gallery/encoders/wpg_encoder.h"
#include "gallery/scenes/scenes.h"
#include "pictures/pixels.h"

namespace lumidex {
namespace {

using Scene = void (*)(Canvas&);

// Shows the scene's middle, as large as it goes while filling the whole picture.
Canvas MakeCanvas(Size size) {
  Canvas canvas(size, std::min(SceneWidth, SceneHeight * size.width / size.height));
  canvas.Translate((canvas.Width() - SceneWidth) / 2, (canvas.Height() - SceneHeight) / 2);
  return canvas;
}

Pixels Draw(Scene scene, Size size) {
  Canvas canvas = MakeCanvas(size);
  scene(canvas);
  return canvas.ToPixels();
}

NotedDrawing Note(Scene scene, Size size) {
  NotedDrawing drawing{size, {}};
  Canvas canvas = MakeCanvas({size.width * NotedDrawing::Fineness, size.height * NotedDrawing::Fineness});
  canvas.NoteShapes(&drawing.shapes);
  scene(canvas);
  return drawing;
}

IndexedPicture Coloured(const Pixels& pixels, int colours) {
  return Reduce(pixels, MedianCut(pixels, colours), Dithering::ErrorDiffusion);
}

// Flat areas stay flat, for the run-length formats.
IndexedPicture Flat(const Pixels& pixels, int colours) {
  return Reduce(pixels, MedianCut(pixels, colours), Dithering::None);
}

// Through grey, since black and white can't take up what is left of a colour.
IndexedPicture BlackOnWhite(const Pixels& pixels) {
  const Pixels grey = Expand(Reduce(pixels, GreyColours(256), Dithering::None));
  return Reduce(grey, BlackAndWhite(), Dithering::ErrorDiffusion);
}

std::vector<std::uint8_t> EncodeStarIcon(const Pixels& largest) {
  const std::vector<Pixels> sizes{largest, Draw(DrawStar, {32, 32}), Draw(DrawStar, {16, 16})};
  return EncodeIcon(sizes);
}

}  // namespace

const std::vector<GalleryPicture>& GalleryPictures() {
  static const std::vector<GalleryPicture> pictures{
      {"lighthouse.jpg",
       {800, 600},
       DrawLighthouse,
       "A lighthouse at dusk, baseline JPEG.",
       [](const Pixels& pixels) { return EncodeJpeg(pixels, 88); }},
      {"mountains.jpg",
       {800, 600},
       DrawMountains,
       "Mountains behind a lake, progressive JPEG.",
       [](const Pixels& pixels) { return EncodeJpeg(pixels, 88, JpegKind::Progressive); }},
      {"still_life.jpg",
       {800, 600},
       DrawStillLife,
       "Fruit and a jug, baseline JPEG.",
       [](const Pixels& pixels) { return EncodeJpeg(pixels, 88); }},
      {"parrot.png",
       {640, 480},
       DrawParrot,
       "A parrot among leaves, PNG in true colour.",
       [](const Pixels& pixels) { return EncodePng(pixels); }},
      {"rosette.png",
       {400, 300},
       DrawRosette,
       "A tiling of stars, PNG with a palette.",
       [](const Pixels& pixels) { return EncodePng(Flat(pixels, 256)); }},
      {"balloons.gif",
       {400, 300},
       DrawBalloons,
       "Balloons over hills, GIF of 256 colours.",
       [](const Pixels& pixels) { return EncodeGif(Coloured(pixels, 256)); }},
      {"balloons.bmp",
       {320, 240},
       DrawBalloons,
       "Balloons over hills, bitmap of 24 bits.",
       [](const Pixels& pixels) { return EncodeBmp(pixels); }},
      {"parrot.dib",
       {320, 240},
       DrawParrot,
       "A parrot, device-independent bitmap of 256 colours.",
       [](const Pixels& pixels) { return EncodeBmp(Coloured(pixels, 256)); }},
      {"sailboat.rle",
       {320, 240},
       DrawSailboat,
       "A sailing boat, run-length bitmap of 16 colours.",
       [](const Pixels& pixels) { return EncodeRunLengthBmp(Flat(pixels, 16)); }},
      {"mountains.tif",
       {400, 300},
       DrawMountains,
       "Mountains behind a lake, TIFF with LZW compression.",
       [](const Pixels& pixels) { return EncodeTiff(pixels); }},
      {"cat.pbm",
       {320, 240},
       DrawCat,
       "A cat at a window, raw portable bitmap.",
       [](const Pixels& pixels) { return EncodePbm(BlackOnWhite(pixels), PnmKind::Raw); }},
      {"still_life.pgm",
       {320, 240},
       DrawStillLife,
       "Fruit and a jug in grey, raw portable greymap.",
       [](const Pixels& pixels) { return EncodePgm(pixels, PnmKind::Raw); }},
      {"lighthouse.ppm",
       {240, 180},
       DrawLighthouse,
       "A lighthouse at dusk, raw portable pixmap.",
       [](const Pixels& pixels) { return EncodePpm(pixels, PnmKind::Raw); }},
      {"rosette.pnm",
       {120, 90},
       DrawRosette,
       "A tiling of stars, plain portable pixmap.",
       [](const Pixels& pixels) { return EncodePpm(pixels, PnmKind::Plain); }},
      {"balloons.art",
       {320, 240},
       DrawBalloons,
       "Balloons over hills in black and white, First Publisher clip art.",
       [](const Pixels& pixels) { return EncodeArt(BlackOnWhite(pixels)); }},
      {"balloons.cut",
       {320, 240},
       DrawBalloons,
       "Balloons over hills, Dr. Halo with its palette file.",
       [](const Pixels& pixels) { return EncodeCut(Coloured(pixels, 256)); },
       [](const Pixels& pixels) { return EncodeCutPalette(Coloured(pixels, 256).palette); }},
      {"cat.gem",
       {320, 240},
       DrawCat,
       "A cat at a window, GEM bit image in black and white.",
       [](const Pixels& pixels) { return EncodeGem(BlackOnWhite(pixels)); }},
      {"sailboat.img",
       {320, 240},
       DrawSailboat,
       "A sailing boat, GEM bit image of 16 colours.",
       [](const Pixels& pixels) { return EncodeXimg(Flat(pixels, 16)); }},
      {"lighthouse.hrz",
       {256, 240},
       DrawLighthouse,
       "A lighthouse at dusk, slow-scan television.",
       EncodeHrz},
      {"poster.mac",
       {576, 720},
       DrawCatPoster,
       "A poster of the cat, MacPaint page.",
       [](const Pixels& pixels) { return EncodeMac(BlackOnWhite(pixels)); }},
      {"sailboat.msp",
       {320, 240},
       DrawSailboat,
       "A sailing boat in black and white, Microsoft Paint.",
       [](const Pixels& pixels) { return EncodeMsp(BlackOnWhite(pixels)); }},
      {"parrot.pic",
       {320, 200},
       DrawParrot,
       "A parrot, Pictor picture of 256 colours.",
       [](const Pixels& pixels) { return EncodePic(Coloured(pixels, 256)); }},
      {"parrot.iff",
       {320, 200},
       DrawParrot,
       "A parrot, interleaved planes of 32 colours.",
       [](const Pixels& pixels) { return EncodeIlbm(Coloured(pixels, 32)); }},
      {"balloons.lbm",
       {320, 200},
       DrawBalloons,
       "Balloons over hills, chunky bytes of 256 colours.",
       [](const Pixels& pixels) { return EncodeLbm(Coloured(pixels, 256)); }},
      {"still_life.pcx",
       {320, 240},
       DrawStillLife,
       "Fruit and a jug, PCX of 256 colours.",
       [](const Pixels& pixels) { return EncodePcx(Coloured(pixels, 256)); }},
      {"mountains.ras",
       {320, 240},
       DrawMountains,
       "Mountains behind a lake, Sun raster of 24 bits.",
       [](const Pixels& pixels) { return EncodeRas(pixels); }},
      {"lighthouse.tga",
       {320, 240},
       DrawLighthouse,
       "A lighthouse at dusk, run-length TGA of 24 bits.",
       [](const Pixels& pixels) { return EncodeTga(pixels); }},
      {"rosette.wpg",
       {320, 240},
       DrawRosette,
       "A tiling of stars, WordPerfect bitmap of 256 colours.",
       [](const Pixels& pixels) { return EncodeWpg(Coloured(pixels, 256)); }},
      {"sailboat.wmf",
       {400, 300},
       DrawSailboat,
       "A sailing boat, Windows metafile.",
       [](const Pixels& pixels) { return EncodeWmf(Note(DrawSailboat, pixels.GetSize())); }},
      {"stars.emf",
       {400, 300},
       DrawStarTiles,
       "A tiling of stars, enhanced metafile.",
       [](const Pixels& pixels) { return EncodeEmf(Note(DrawStarTiles, pixels.GetSize())); }},
      {"star.ico", {48, 48}, DrawStar, "A star in 48, 32 and 16 pixels, icon.", EncodeStarIcon},
      {"pointer.cur",
       {32, 32},
       DrawPointerArrow,
       "An arrow with its hot spot at the tip, cursor.",
       [](const Pixels& pixels) { return EncodeCursor(pixels, 2, 2); }},
  };
  return pictures;
}

Pixels DrawScene(const GalleryPicture& picture) {
  return Draw(picture.scene, picture.size);
}

}  // namespace lumidex
