#include "pictures/codecs/pnm.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <mutex>
#include <optional>

#include "pictures/alpha.h"
#include "pictures/byte_stream.h"
#include "pictures/file_decoder.h"
#include "pictures/palettes.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

bool IsBlank(int character) {
  return character == ' ' || (character >= '\t' && character <= '\r');
}

// The words of a header, and samples written as such.
class Characters {
 public:
  explicit Characters(ByteStream from) : from_(std::move(from)) {}

  // -1 at the end.
  int Next() { return from_.Next(); }
  // Only directly after Next, and not at the end.
  void Back() { from_.Back(); }
  std::uint64_t Position() const { return from_.Position(); }
  // Fills `into` as far as the file goes and returns how much that was.
  std::size_t Read(std::span<std::uint8_t> into) { return from_.Read(into); }

  // A number behind blanks and comments, no more than `most`; nothing when something else stands there.
  std::optional<int> Number(int most) {
    int character = SkipBlanks();
    if (character < '0' || character > '9') return std::nullopt;
    std::int64_t value = 0;
    for (; character >= '0' && character <= '9'; character = Next()) {
      value = std::min<std::int64_t>(value * 10 + (character - '0'), std::int64_t{most} + 1);
    }
    if (character >= 0) Back();
    if (value > most) return std::nullopt;
    return static_cast<int>(value);
  }

  // The first character that is neither blank nor part of a comment.
  int SkipBlanks() {
    int character = Next();
    while (IsBlank(character) || character == '#') {
      if (character == '#') {
        while (character != '\n' && character != '\r' && character >= 0) character = Next();
      } else {
        character = Next();
      }
    }
    return character;
  }

  std::string Line() {
    constexpr std::size_t most = 4096;
    std::string line;
    for (int character = Next(); character >= 0 && character != '\n' && line.size() < most;
         character = Next()) {
      line += static_cast<char>(character);
    }
    return line;
  }

 private:
  ByteStream from_;
};

constexpr std::int64_t MostSide = 1 << 20;

struct Header {
  std::int64_t width = 0;
  std::int64_t height = 0;
  int most = 1;     // the greatest sample
  int samples = 1;  // a pixel
  bool plain = false;
  bool bits = false;  // PBM: one bit a pixel, 1 is black
  std::uint64_t pixelOffset = 0;

  // Of a raw file; sides are far beyond the limits before this is too much to calculate with.
  std::uint64_t PixelBytes() const {
    const auto side = [](std::int64_t length) {
      return static_cast<std::uint64_t>(std::min(length, MostSide));
    };
    const std::uint64_t rowBits = side(width) * static_cast<std::uint64_t>(samples) *
                                  (bits         ? 1
                                   : most > 255 ? 16
                                                : 8);
    return (rowBits + 7) / 8 * side(height);
  }
};

constexpr int MostNumber = 0x7FFFFFFF;
constexpr int MostSample = 65535;

void ReadPamHeader(Characters& file, Header& header) {
  for (;;) {
    const std::string line = file.Line();
    if (line.starts_with("ENDHDR")) break;
    const std::size_t space = line.find_first_of(" \t");
    const std::string word = line.substr(0, space);
    if (line.empty() || line[0] == '#' || word == "TUPLTYPE") {
      if (file.Next() < 0) Refuse("PNM: the header is cut");
      file.Back();
      continue;
    }
    const std::int64_t value = space == std::string::npos ? 0 : std::atoll(line.c_str() + space);
    if (word == "WIDTH") header.width = value;
    if (word == "HEIGHT") header.height = value;
    if (word == "DEPTH") header.samples = static_cast<int>(std::clamp<std::int64_t>(value, 0, 5));
    if (word == "MAXVAL") header.most = static_cast<int>(std::clamp<std::int64_t>(value, 0, MostSample + 1));
  }
  if (header.samples < 1 || header.samples > 4) Refuse("PNM: this number of channels is not known");
}

// One blank ends the header of a raw file; everything behind it is pixels. Editors make a line end of two
// characters of it, told from a first pixel of that value by the length of the file; and a comment may follow
// the last number at once.
void EndRawHeader(Characters& file, const Header& header, std::uint64_t fileSize) {
  int character = file.Next();
  if (character == '#')
    while (character >= 0 && character != '\n') character = file.Next();
  if (character != '\r' || file.Position() + header.PixelBytes() >= fileSize) return;
  if (file.Next() != '\n') file.Back();
}

Header ReadHeader(Characters& file, std::uint64_t fileSize) {
  Header header;
  file.Next();
  const int kind = file.Next();
  if (kind == '7') {
    file.Line();
    ReadPamHeader(file, header);
  } else {
    header.plain = kind <= '3';
    header.bits = kind == '1' || kind == '4';
    header.samples = kind == '3' || kind == '6' ? 3 : 1;
    const auto width = file.Number(MostNumber);
    const auto height = file.Number(MostNumber);
    if (!width || !height) Refuse("PNM: the size is missing");
    header.width = *width;
    header.height = *height;
    if (!header.bits) header.most = file.Number(MostSample).value_or(0);
    if (!header.plain) EndRawHeader(file, header, fileSize);
  }
  if (header.most < 1 || header.most > MostSample) Refuse("PNM: the greatest sample must be 1 to 65535");
  header.pixelOffset = file.Position();
  return header;
}

int StoredBits(const Header& header) {
  // Greys of two values are bits, also where each takes a byte.
  if (header.most == 1 && header.samples == 1) return 1;
  return (header.most > 255 ? 16 : 8) * header.samples;
}

class PnmDecoder final : public FileDecoder {
 public:
  PnmDecoder(const PictureData& data, const OpenOptions& options) : FileDecoder(data, options, "PNM") {
    // The head alone is needed, nearly always.
    Characters file(ByteStream(data.Source(), 0, PictureData::HeadSize));
    header_ = ReadHeader(file, data.Size());
    SetShape(Checked(header_.width, header_.height), StoredBits(header_), header_.samples);
  }

  Pixels Decode(const DecodeRequest&) const override {
    std::call_once(levelsMade_, [this] { MakeLevels(); });
    const bool alpha = header_.samples == 2 || header_.samples == 4;
    Pixels pixels = Pixels::MakeUnfilled(facts_.size, alpha ? PixelFormat::Argb : PixelFormat::Rgb, Limits());
    Characters file(ByteStream(Data().Source(), header_.pixelOffset, ByteStream::blockSize));
    std::vector<std::uint8_t> bytes;
    for (int y = 0; y < pixels.Height(); ++y) {
      const auto row = pixels.Row(y);
      std::size_t done = 0;
      if (header_.plain) {
        done = ReadPlainRow(file, row);
      } else {
        done = header_.bits ? ReadBitRow(file, bytes, row) : ReadRawRow(file, bytes, row);
      }
      std::ranges::fill(row.subspan(done), blankPixel);
    }
    if (alpha) DeclareOpaqueIfSo(pixels);
    return pixels;
  }

 private:
  // All readers return how many pixels there were.
  std::size_t ReadPlainRow(Characters& file, std::span<std::uint32_t> row) const {
    for (std::size_t x = 0; x < row.size(); ++x) {
      std::array<std::uint8_t, 4> samples{};
      for (std::size_t i = 0; i < static_cast<std::size_t>(header_.samples); ++i) {
        if (header_.bits) {
          // Digits need no blanks between them.
          const int digit = file.SkipBlanks();
          if (digit != '0' && digit != '1') return x;
          samples[i] = digit == '1' ? 0 : 255;
        } else {
          const auto value = file.Number(MostNumber);
          if (!value) return x;
          samples[i] = Level(static_cast<std::uint32_t>(*value));
        }
      }
      row[x] = Join(samples);
    }
    return row.size();
  }

  static std::size_t ReadBitRow(Characters& file, std::vector<std::uint8_t>& bytes,
                                std::span<std::uint32_t> row) {
    bytes.resize((row.size() + 7) / 8);
    const std::size_t count = std::min(row.size(), file.Read(bytes) * 8);
    for (std::size_t x = 0; x < count; ++x) {
      row[x] = (bytes[x / 8] >> (7 - x % 8) & 1) != 0 ? 0xFF000000U : 0xFFFFFFFFU;
    }
    return count;
  }

  std::size_t ReadRawRow(Characters& file, std::vector<std::uint8_t>& bytes,
                         std::span<std::uint32_t> row) const {
    const std::size_t perSample = header_.most > 255 ? 2 : 1;
    const std::size_t perPixel = perSample * static_cast<std::size_t>(header_.samples);
    bytes.resize(row.size() * perPixel);
    const std::size_t count = file.Read(bytes) / perPixel;
    if (header_.most == 255 && header_.samples == 3) {
      const std::uint8_t* in = bytes.data();
      for (std::uint32_t& word : row.first(count)) {
        word = Rgb(in[0], in[1], in[2]);
        in += 3;
      }
      return count;
    }
    for (std::size_t x = 0; x < count; ++x) {
      const std::uint8_t* in = bytes.data() + x * perPixel;
      std::array<std::uint8_t, 4> samples{};
      for (std::size_t i = 0; i < static_cast<std::size_t>(header_.samples); ++i) {
        samples[i] =
            Level(perSample == 1 ? in[i] : static_cast<std::uint32_t>(in[2 * i]) << 8 | in[2 * i + 1]);
      }
      row[x] = Join(samples);
    }
    return count;
  }

  // Up to 65,536 of them: too many to make for a file that is only asked for its header.
  void MakeLevels() const {
    const std::uint32_t most = static_cast<std::uint32_t>(header_.most);
    levels_.resize(std::size_t{most} + 1);
    for (std::uint32_t value = 0; value <= most; ++value) {
      levels_[value] = static_cast<std::uint8_t>((value * 255 + most / 2) / most);
    }
  }

  // Samples above the greatest are taken for it.
  std::uint8_t Level(std::uint32_t value) const {
    return levels_[std::min<std::size_t>(value, levels_.size() - 1)];
  }

  std::uint32_t Join(const std::array<std::uint8_t, 4>& samples) const {
    switch (header_.samples) {
      case 1:
        return Rgb(samples[0], samples[0], samples[0]);
      case 2:
        return (Rgb(samples[0], samples[0], samples[0]) & 0xFFFFFFU) | std::uint32_t{samples[1]} << 24;
      case 3:
        return Rgb(samples[0], samples[1], samples[2]);
      default:
        return (Rgb(samples[0], samples[1], samples[2]) & 0xFFFFFFU) | std::uint32_t{samples[3]} << 24;
    }
  }

  Header header_;
  mutable std::once_flag levelsMade_;
  mutable std::vector<std::uint8_t> levels_;
};

// Taken here to be refused by name.
bool IsFloatMap(Bytes head) {
  return head[1] == 'F' || head[1] == 'f';
}

}  // namespace

Match MatchPnm(const PictureData& data) {
  const Bytes head = data.Head();
  if (head.size() < 3 || head[0] != 'P' || !(IsBlank(head[2]) || head[2] == '#')) return Match::No;
  if (IsFloatMap(head)) return Match::Maybe;
  return head[1] >= '1' && head[1] <= '7' ? Match::Sure : Match::No;
}

std::unique_ptr<Decoder> OpenPnm(const PictureData& data, const OpenOptions& options) {
  if (IsFloatMap(data.Head())) Refuse("PNM: maps of floating-point numbers are not supported");
  return std::make_unique<PnmDecoder>(data, options);
}

}  // namespace lumidex
