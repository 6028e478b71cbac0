// Draws the program's small pictures: lumidex-artwork src writes the folders artwork of the forms and of the
// window system's side there.

#include <string>

#include "artwork/toolbar.h"
#include "artwork/types.h"
#include "artwork/windows.h"
#include "drawing/drawing_program.h"
#include "gallery/encoders/bmp_encoder.h"
#include "gallery/encoders/png_encoder.h"
#include "pictures/pixels.h"

namespace {

namespace fs = std::filesystem;
using namespace lumidex;

template <class Draw>
Pixels Drawn(Size size, double grid, Draw&& draw) {
  Canvas canvas(size, grid);
  draw(canvas);
  return canvas.ToPixels();
}

// DIRECTORY/name-24.png and name-48.png.
void WriteIcon(const fs::path& directory, std::string_view name, void (*draw)(Canvas&)) {
  for (const int side : {24, 48})
    WriteFile(directory / (std::string(name) + "-" + std::to_string(side) + ".png"),
              EncodePng(Drawn({side, side}, IconGrid, draw)));
}

void WriteTypes(const fs::path& directory) {
  for (const TypePicture& type : TypePictures()) {
    const std::string key(type.key);
    const Pixels bitmap = Drawn({64, 32}, 64, [&](Canvas& canvas) { DrawTypeBitmap(canvas, type); });
    WriteFile(directory / (key + ".bmp"), EncodeBmp(Reduce(bitmap, MedianCut(bitmap, 16), Dithering::None)));
    WriteFile(directory / (key + ".png"),
              EncodePng(Drawn({96, 96}, 96, [&](Canvas& canvas) { DrawTypeSheet(canvas, type); })));
  }
}

// What belongs to the design of forms is no business of the window system.
void WriteDesignPictures(const fs::path& directory) {
  WriteFile(directory / "empty.png", EncodePng(Drawn({96, 96}, IconGrid, DrawEmptyThumbnail)));
  WriteFile(directory / "error.png", EncodePng(Drawn({96, 96}, IconGrid, DrawErrorThumbnail)));
}

void WriteAll(const fs::path& sources) {
  WriteDesignPictures(sources / "forms" / "artwork");
  const fs::path directory = sources / "platform" / "qt" / "artwork";
  for (const ToolbarPicture& picture : ToolbarPictures())
    WriteIcon(directory / "toolbar", picture.key, picture.draw);
  WriteIcon(directory / "folders", "desktop", DrawDesktopFolder);
  WriteIcon(directory / "folders", "documents", DrawDocumentsFolder);
  WriteIcon(directory / "folders", "favourites", DrawFavouritesFolder);
  WriteTypes(directory / "types");
}

}  // namespace

int main(int count, char** arguments) {
  return RunDrawingProgram(count, arguments, WriteAll);
}
