// Draws the gallery: lumidex-gallery DIRECTORY writes every picture of the table and its README.md there.

#include <filesystem>
#include <fstream>
#include <iostream>

#include "gallery/gallery.h"

namespace {

using namespace lumidex;

std::ofstream Create(const std::filesystem::path& path) {
  std::ofstream file;
  file.exceptions(std::ios::failbit | std::ios::badbit);
  file.open(path, std::ios::binary);
  return file;
}

void WriteFile(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes) {
  std::ofstream file = Create(path);
  for (const std::uint8_t byte : bytes) file.put(static_cast<char>(byte));
}

void WriteAll(const std::filesystem::path& directory) {
  std::ofstream readme = Create(directory / "README.md");
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
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "usage: lumidex-gallery DIRECTORY\n";
    return 2;
  }
  try {
    WriteAll(arguments[1]);
  } catch (const std::exception& error) {
    std::cerr << "lumidex-gallery: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
