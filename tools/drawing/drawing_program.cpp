#include "drawing/drawing_program.h"

#include <fstream>
#include <iostream>

namespace lumidex {

void WriteFile(const std::filesystem::path& path, std::string_view text) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream file;
  file.exceptions(std::ios::failbit | std::ios::badbit);
  file.open(path, std::ios::binary);
  file << text;
}

void WriteFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
  WriteFile(path, std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

int RunDrawingProgram(int count, char** arguments, void (*draw)(const std::filesystem::path& target)) {
  const std::string name = std::filesystem::path(arguments[0]).filename().string();
  if (count != 2) {
    std::cerr << "usage: " << name << " TARGET\n";
    return 2;
  }
  try {
    draw(arguments[1]);
  } catch (const std::exception& error) {
    std::cerr << name << ": " << error.what() << '\n';
    return 1;
  }
  return 0;
}

}  // namespace lumidex
