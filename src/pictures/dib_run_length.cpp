#include "pictures/dib_run_length.h"

#include "pictures/byte_reader.h"

namespace lumidex {
namespace {

class RunLengthDecoder {
 public:
  RunLengthDecoder(const DibHeader& header, Bytes bytes, Pixels& pixels)
      : header_(header), reader_(bytes), pixels_(pixels) {}

  void Run() {
    while (!reader_.AtEnd() && y_ < header_.size.height) {
      const int count = reader_.U8();
      if (count > 0) {
        Repeat(count);
      } else if (!Escape(reader_.U8())) {
        return;
      }
    }
  }

 private:
  // False at the end of the picture.
  bool Escape(int code) {
    switch (code) {
      case 0:
        x_ = 0;
        ++y_;
        return true;
      case 1:
        return false;
      case 2: {
        x_ = std::min(x_ + reader_.U8(), header_.size.width);
        y_ += reader_.U8();
        return true;
      }
      default:
        Literals(code);
        return true;
    }
  }

  void Repeat(int count) {
    if (header_.coding == DibCoding::Rle24) {
      const std::uint32_t colour = Triple();
      for (int i = 0; i < count; ++i) Put(colour);
    } else if (header_.coding == DibCoding::Rle8) {
      const std::uint32_t colour = header_.colours[reader_.U8()];
      for (int i = 0; i < count; ++i) Put(colour);
    } else {
      const unsigned pair = reader_.U8();
      for (int i = 0; i < count; ++i) Put(header_.colours[i % 2 == 0 ? pair >> 4 : pair & 15]);
    }
  }

  // Literals are padded to 16 bits.
  void Literals(int count) {
    const std::size_t start = reader_.Position();
    if (header_.coding == DibCoding::Rle24) {
      for (int i = 0; i < count && !reader_.AtEnd(); ++i) Put(Triple());
    } else if (header_.coding == DibCoding::Rle8) {
      for (int i = 0; i < count && !reader_.AtEnd(); ++i) Put(header_.colours[reader_.U8()]);
    } else {
      for (int i = 0; i < count && !reader_.AtEnd(); i += 2) {
        const unsigned pair = reader_.U8();
        Put(header_.colours[pair >> 4]);
        if (i + 1 < count) Put(header_.colours[pair & 15]);
      }
    }
    if ((reader_.Position() - start) % 2 != 0) reader_.Skip(1);
  }

  std::uint32_t Triple() {
    const std::uint32_t blue = reader_.U8(), green = reader_.U8(), red = reader_.U8();
    return 0xFF000000U | red << 16 | green << 8 | blue;
  }

  void Put(std::uint32_t colour) {
    if (x_ >= header_.size.width || y_ >= header_.size.height) return;
    const int row = header_.topDown ? y_ : header_.size.height - 1 - y_;
    pixels_.Row(row)[static_cast<std::size_t>(x_++)] = colour;
  }

  const DibHeader& header_;
  ByteReader reader_;
  Pixels& pixels_;
  int x_ = 0;
  int y_ = 0;  // in the order of the file
};

}  // namespace

void DecodeDibRunLength(const DibHeader& header, Bytes bytes, Pixels& pixels) {
  RunLengthDecoder(header, bytes, pixels).Run();
}

}  // namespace lumidex
