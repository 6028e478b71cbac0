// lumidex-decode: prints what each picture file is and a hash of its pixels, one line a file.

#include <nettle/sha2.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "base/out_of_memory.h"
#include "base/run_time_error.h"
#include "pictures/codec.h"
#include "platform/posix/posix_file_system.h"
#include "ports/open_picture.h"

namespace lumidex {
namespace {

constexpr const char* usage =
    "usage: lumidex-decode [--out DIR] [--max WxH] [--facts] [--stored] [--list FILE] FILE...\n"
    "Prints path, width, height, bits per pixel, format and the SHA-256 of the RGBA pixels, tab-separated.\n"
    "  --out DIR   also writes DIR/N.pam, N the file's place from 1\n"
    "  --max WxH   decodes no larger than needed to show the picture at this size\n"
    "  --facts     stops at the header\n"
    "  --list FILE takes the files that FILE names, one a line, so that one run may take any number\n"
    "  --stored    leaves out turning by the orientation mark and colour conversion\n";

struct Arguments {
  std::string out;
  Size most;
  bool factsOnly = false;
  OpenOptions options;
  std::vector<std::string> files;
};

bool ReadSize(std::string_view text, Size& size) {
  const char* end = text.data() + text.size();
  const auto [middle, widthError] = std::from_chars(text.data(), end, size.width);
  if (widthError != std::errc{} || middle == end || *middle != 'x') return false;
  const auto [last, heightError] = std::from_chars(middle + 1, end, size.height);
  return heightError == std::errc{} && last == end && size.width > 0 && size.height > 0;
}

bool ReadList(const std::string& path, std::vector<std::string>& files) {
  std::ifstream list(path);
  for (std::string line; std::getline(list, line);)
    if (!line.empty()) files.push_back(line);
  return list.eof();
}

bool ReadArguments(const std::vector<std::string>& words, Arguments& arguments) {
  bool optionsEnded = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (optionsEnded || !word.starts_with("--")) {
      arguments.files.push_back(word);
    } else if (word == "--") {
      optionsEnded = true;
    } else if (word == "--facts") {
      arguments.factsOnly = true;
    } else if (word == "--stored") {
      arguments.options.asStored = true;
    } else if (word == "--out" && i + 1 < words.size()) {
      arguments.out = words[++i];
    } else if (word == "--list" && i + 1 < words.size()) {
      if (!ReadList(words[++i], arguments.files)) return false;
    } else if (word == "--max" && i + 1 < words.size()) {
      if (!ReadSize(words[++i], arguments.most)) return false;
    } else {
      return false;
    }
  }
  return !arguments.files.empty();
}

// R, G, B, A bytes of one row.
void RowBytes(std::span<const std::uint32_t> row, std::vector<std::uint8_t>& bytes) {
  bytes.resize(row.size() * 4);
  for (std::size_t x = 0; x < row.size(); ++x) {
    bytes[4 * x] = static_cast<std::uint8_t>(row[x] >> 16);
    bytes[4 * x + 1] = static_cast<std::uint8_t>(row[x] >> 8);
    bytes[4 * x + 2] = static_cast<std::uint8_t>(row[x]);
    bytes[4 * x + 3] = static_cast<std::uint8_t>(row[x] >> 24);
  }
}

// The SHA-256 of the pixels in lower-case hexadecimal.
std::string Hash(const Pixels& pixels) {
  sha256_ctx hash;
  sha256_init(&hash);
  std::vector<std::uint8_t> bytes;
  for (int y = 0; y < pixels.Height(); ++y) {
    RowBytes(pixels.Row(y), bytes);
    sha256_update(&hash, bytes.size(), bytes.data());
  }
  std::array<std::uint8_t, SHA256_DIGEST_SIZE> digest{};
  sha256_digest(&hash, digest.size(), digest.data());
  std::string text;
  for (const std::uint8_t byte : digest)
    for (const int digit : {byte >> 4, byte & 15}) text += "0123456789abcdef"[digit];
  return text;
}

void WritePam(const Pixels& pixels, const std::string& path) {
  std::ofstream file(path, std::ios::binary);
  file << "P7\nWIDTH " << pixels.Width() << "\nHEIGHT " << pixels.Height()
       << "\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n";
  std::string text;
  std::vector<std::uint8_t> bytes;
  for (int y = 0; y < pixels.Height(); ++y) {
    RowBytes(pixels.Row(y), bytes);
    text.assign(bytes.begin(), bytes.end());
    file << text;
  }
  file.close();
  if (!file) throw RunTimeError(ErrorNumber::DeviceIo, "Cannot write " + path);
}

// The size to show: the picture's shape within the box, never enlarged.
Size Fitted(Size picture, Size box) {
  if (box.width == 0) return {};
  const double factor = std::min({1.0, static_cast<double>(box.width) / picture.width,
                                  static_cast<double>(box.height) / picture.height});
  return {std::max(1, static_cast<int>(picture.width * factor)),
          std::max(1, static_cast<int>(picture.height * factor))};
}

void DecodeFile(const Arguments& arguments, std::size_t place) {
  const std::string& path = arguments.files[place];
  const auto decoder = OpenDecoder(OpenPictureData(PosixFileSystem(), path), arguments.options);
  const PictureFacts& facts = decoder->Facts();
  Size size = facts.size;
  std::string hash = "-";
  if (!arguments.factsOnly) {
    const Pixels pixels = decoder->Decode({Fitted(facts.size, arguments.most)});
    size = pixels.GetSize();
    hash = Hash(pixels);
    if (!arguments.out.empty()) WritePam(pixels, arguments.out + "/" + std::to_string(place + 1) + ".pam");
  }
  std::string line = path;
  for (const int number : {size.width, size.height, facts.bitsPerPixel})
    line += '\t' + std::to_string(number);
  line += '\t';
  line += facts.format;
  std::cout << line << '\t' << hash << '\n';
}

int Run(const std::vector<std::string>& words) {
  Arguments arguments;
  if (!ReadArguments(words, arguments)) {
    std::cerr << usage;
    return 2;
  }
  bool allRead = true;
  for (std::size_t place = 0; place < arguments.files.size(); ++place) {
    try {
      TellingOutOfMemory([&] { DecodeFile(arguments, place); });
    } catch (const RunTimeError& error) {
      std::cout << arguments.files[place] << "\terror\t" << error.what() << '\n';
      allRead = false;
    }
  }
  return allRead ? 0 : 1;
}

}  // namespace
}  // namespace lumidex

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);  // lines are written together, not one by one
  return lumidex::Run(std::vector<std::string>(argv + 1, argv + argc));
}
