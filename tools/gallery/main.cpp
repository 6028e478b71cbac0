// Draws the gallery: lumidex-gallery DIRECTORY writes every picture of the table and its README.md there.

#include <sstream>

#include "drawing/drawing_program.h"
#include "gallery/gallery.h"
#include "pictures/pixels.h"

namespace {

using namespace lumidex;

void WriteGallery(const std::filesystem::path& directory) {
  std::ostringstream readme;
  readme
      << "# Gallery\n\n"
         "Pictures to look at with Lumidex, at least one of every type it knows. All of them are drawn by\n"
         "`lumidex-gallery` (`tools/gallery`); run `lumidex-gallery gallery` to draw them again.\n\n"
         "| File | Size | What it is |\n| --- | --- | --- |\n";
  for (const GalleryPicture& picture : GalleryPictures()) {
    const Pixels scene = DrawScene(picture);
    WriteFile(directory / picture.file, picture.encode(scene));
    if (picture.encodePalette)
      WriteFile((directory / picture.file).replace_extension(".pal"), picture.encodePalette(scene));
    readme << "| `" << picture.file << "` | " << picture.size.width << " x " << picture.size.height << " | "
           << picture.description << " |\n";
  }
  WriteFile(directory / "README.md", readme.str());
}

}  // namespace

int main(int count, char** arguments) {
  return RunDrawingProgram(count, arguments, WriteGallery);
}
