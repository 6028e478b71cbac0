#pragma once
// Small animation files, written by hand for the tests.

#include <cstdint>
#include <string_view>
#include <vector>

namespace lumidex {

using FileBytes = std::vector<std::uint8_t>;

struct AviFile {
  int width = 2, height = 1;
  int bitsPerPixel = 24;
  std::uint32_t coding = 0;  // as BITMAPINFOHEADER counts
  std::uint32_t microsecondsPerFrame = 40000;
  FileBytes palette;              // blue, green, red, 0 for each colour
  std::vector<FileBytes> frames;  // as they stand in their chunks
  std::string_view frameKind = "00db";

  FileBytes Bytes() const {
    FileBytes header;
    Add32(header, microsecondsPerFrame);
    header.resize(56);
    FileBytes format;
    for (const int number : {40, width, height}) Add32(format, static_cast<std::uint32_t>(number));
    Add16(format, 1);
    Add16(format, static_cast<std::uint32_t>(bitsPerPixel));
    Add32(format, coding);
    Add32(format, 0);
    for (int i = 0; i < 2; ++i) Add32(format, 0);
    Add32(format, static_cast<std::uint32_t>(palette.size() / 4));
    Add32(format, 0);
    Append(format, palette);
    FileBytes list = Text("strl");
    Append(list, Chunk("strh", FileBytes(48)));
    Append(list, Chunk("strf", format));
    FileBytes headers = Text("hdrl");
    Append(headers, Chunk("avih", header));
    Append(headers, Chunk("LIST", list));
    FileBytes pictures = Text("movi");
    for (const FileBytes& frame : frames) Append(pictures, Chunk(frameKind, frame));
    FileBytes file = Text("AVI ");
    Append(file, Chunk("LIST", headers));
    Append(file, Chunk("LIST", pictures));
    return Chunk("RIFF", file);
  }

  static FileBytes Text(std::string_view text) { return {text.begin(), text.end()}; }
  static void Append(FileBytes& to, const FileBytes& more) { to.insert(to.end(), more.begin(), more.end()); }
  static FileBytes Chunk(std::string_view kind, const FileBytes& content) {
    FileBytes chunk = Text(kind);
    Add32(chunk, static_cast<std::uint32_t>(content.size()));
    Append(chunk, content);
    if (content.size() % 2 == 1) chunk.push_back(0);
    return chunk;
  }

 private:
  static void Add16(FileBytes& to, std::uint32_t value) {
    to.push_back(static_cast<std::uint8_t>(value));
    to.push_back(static_cast<std::uint8_t>(value >> 8));
  }
  static void Add32(FileBytes& to, std::uint32_t value) {
    Add16(to, value & 0xFFFF);
    Add16(to, value >> 16);
  }
};

}  // namespace lumidex
