// Draws the program's artwork: lumidex-artwork DIRECTORY writes the folders toolbar, application, folders,
// types, search, splash and thumbnails there.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "artwork/toolbar.h"
#include "artwork/types.h"
#include "artwork/windows.h"
#include "gallery/encoders/bmp_encoder.h"
#include "gallery/encoders/png_encoder.h"

namespace {

namespace fs = std::filesystem;
using namespace lumidex;

void Write(const fs::path& path, const std::vector<std::uint8_t>& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream file;
  file.exceptions(std::ios::failbit | std::ios::badbit);
  file.open(path, std::ios::binary);
  for (const std::uint8_t byte : bytes) file.put(static_cast<char>(byte));
}

template <class Draw>
Pixels Drawn(Size size, double grid, Draw&& draw) {
  Canvas canvas(size, grid);
  draw(canvas);
  return canvas.ToPixels();
}

// DIRECTORY/name-24.png and name-48.png.
void WriteIcon(const fs::path& directory, std::string_view name, void (*draw)(Canvas&)) {
  for (const int side : {24, 48})
    Write(directory / (std::string(name) + "-" + std::to_string(side) + ".png"),
          EncodePng(Drawn({side, side}, IconGrid, draw)));
}

void WriteTypes(const fs::path& directory) {
  for (const TypePicture& type : TypePictures()) {
    const std::string key(type.key);
    const Pixels bitmap = Drawn({64, 32}, 64, [&](Canvas& canvas) { DrawTypeBitmap(canvas, type); });
    Write(directory / (key + ".bmp"), EncodeBmp(Reduce(bitmap, MedianCut(bitmap, 16), Dithering::None)));
    Write(directory / (key + ".png"),
          EncodePng(Drawn({96, 96}, 96, [&](Canvas& canvas) { DrawTypeSheet(canvas, type); })));
  }
}

void WriteAll(const fs::path& directory) {
  for (const ToolbarPicture& picture : ToolbarPictures())
    WriteIcon(directory / "toolbar", picture.key, picture.draw);
  for (const int side : {16, 32, 48, 64, 128, 256})
    Write(directory / "application" / ("lumidex-" + std::to_string(side) + ".png"),
          EncodePng(Drawn({side, side}, 64, [&](Canvas& canvas) { DrawProgramIcon(canvas, side); })));
  WriteIcon(directory / "folders", "desktop", DrawDesktopFolder);
  WriteIcon(directory / "folders", "documents", DrawDocumentsFolder);
  WriteIcon(directory / "folders", "favourites", DrawFavouritesFolder);
  WriteTypes(directory / "types");
  Write(directory / "splash" / "splash.png", EncodePng(Drawn({480, 320}, 480, DrawSplash)));
  Write(directory / "splash" / "backdrop.png", EncodePng(Drawn({512, 384}, 512, DrawBackdrop)));
  Write(directory / "search" / "frames.png",
        EncodePng(Drawn({96 * SearchFrames, 64}, 96 * SearchFrames, [](Canvas& canvas) {
          for (int frame = 0; frame < SearchFrames; ++frame)
            canvas.Within([&] {
              canvas.Translate(96 * frame, 0);
              DrawSearchFrame(canvas, frame);
            });
        })));
  Write(directory / "thumbnails" / "empty.png", EncodePng(Drawn({96, 96}, IconGrid, DrawEmptyThumbnail)));
  Write(directory / "thumbnails" / "error.png", EncodePng(Drawn({96, 96}, IconGrid, DrawErrorThumbnail)));
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "usage: lumidex-artwork DIRECTORY\n";
    return 2;
  }
  try {
    WriteAll(arguments[1]);
  } catch (const std::exception& error) {
    std::cerr << "lumidex-artwork: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
