// Decoding against what the libraries and the format itself allow, in one run. Limits: PNG and TIFF at most
// 1.1 times the bare library writing 32-bit pixels, JPEG 1.05; our own decoders at least 200 megapixels a
// second for plain and 100 for run-length rows; the facts of 20,000 files at most 2.5 times opening them and
// reading their first 4 KiB; thumbnails of 80 pixels at most 1.1 times libjpeg-turbo at an eighth. One
// thread; the best of several rounds, in which the two sides take turns.
//
// usage: bench_formats [FOLDER]   where the 20,000 files are made for a while; left out without one

#include <fcntl.h>
#include <png.h>
#include <tiffio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include <jpeglib.h>  // after <cstdio>, which it needs

#include "gallery/encoders/bmp_encoder.h"
#include "gallery/encoders/gem_encoder.h"
#include "gallery/encoders/iff_encoder.h"
#include "gallery/encoders/jpeg_encoder.h"
#include "gallery/encoders/pcx_encoder.h"
#include "gallery/encoders/pic_encoder.h"
#include "gallery/encoders/png_encoder.h"
#include "gallery/encoders/pnm_encoder.h"
#include "gallery/encoders/ras_encoder.h"
#include "gallery/encoders/tga_encoder.h"
#include "gallery/encoders/tiff_encoder.h"
#include "gallery/encoders/wpg_encoder.h"
#include "pictures/codec.h"
#include "pictures/reduced_picture.h"
#include "platform/posix/posix_file_system.h"
#include "ports/open_picture.h"

namespace {

using namespace lumidex;
using FileBytes = std::vector<std::uint8_t>;
using Words = std::unique_ptr<std::uint32_t[]>;

constexpr int rounds = 5;
constexpr Size photo{6000, 4000};
constexpr Size drawing{4000, 3000};

double Seconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Of `work` and `limit`, each the best of its rounds.
std::array<double, 2> Best(const std::function<void()>& work, const std::function<void()>& limit) {
  std::array<double, 2> best{1e9, 1e9};
  for (int i = 0; i < rounds; ++i) {
    best[0] = std::min(best[0], Seconds(work));
    best[1] = std::min(best[1], Seconds(limit));
  }
  return best;
}

void PrintRatio(const char* name, const std::array<double, 2>& times, double aim) {
  std::printf("%-36s %8.1f ms, limit %8.1f ms, ratio %.2f (at most %.2f)%s\n", name, times[0] * 1000,
              times[1] * 1000, times[0] / times[1], aim, times[0] / times[1] > aim ? "  MISSED" : "");
}

Pixels Decoded(const PictureData& data) {
  return OpenDecoder(data)->Decode({});
}

// Smooth shades with a little noise, as a camera's.
Pixels Photo(Size size) {
  Pixels pixels = Pixels::MakeUnfilled(size, PixelFormat::Rgb);
  std::uint32_t noise = 1;
  for (int y = 0; y < size.height; ++y) {
    int x = 0;
    for (std::uint32_t& word : pixels.Row(y)) {
      noise = noise * 1664525 + 1013904223;
      const auto level = [&](int scale, int shift) {
        return static_cast<std::uint32_t>(
            ((x * scale + y * (7 - scale)) / 40 + static_cast<int>(noise >> shift & 7)) & 255);
      };
      word = 0xFF000000U | level(3, 10) << 16 | level(5, 15) << 8 | level(2, 20);
      ++x;
    }
  }
  return pixels;
}

// Sixteen colours in stripes of about a dozen pixels: neither the best nor the worst for run lengths.
IndexedPicture Stripes(Size size, int colours) {
  IndexedPicture picture{size, colours == 2 ? BlackAndWhite() : GreyColours(colours), {}};
  picture.indices.resize(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
  for (std::size_t i = 0; i < picture.indices.size(); ++i) {
    const std::size_t x = i % static_cast<std::size_t>(size.width),
                      y = i / static_cast<std::size_t>(size.width);
    picture.indices[i] =
        static_cast<std::uint8_t>((x + y / 3) / (7 + y % 11) % static_cast<std::size_t>(colours));
  }
  return picture;
}

Words BarePng(const FileBytes& file) {
  png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  struct Place {
    const FileBytes* bytes;
    std::size_t at;
  } place{&file, 0};
  png_set_read_fn(png, &place, [](png_structp p, png_bytep into, std::size_t count) {
    auto& from = *static_cast<Place*>(png_get_io_ptr(p));
    std::memcpy(into, from.bytes->data() + from.at, count);
    from.at += count;
  });
  png_read_info(png, info);
  png_set_bgr(png);
  png_set_filler(png, 0xFF, PNG_FILLER_AFTER);
  png_read_update_info(png, info);
  const std::size_t width = png_get_image_width(png, info), height = png_get_image_height(png, info);
  auto words = std::make_unique_for_overwrite<std::uint32_t[]>(width * height);
  for (std::size_t y = 0; y < height; ++y)
    png_read_row(png, reinterpret_cast<png_bytep>(words.get() + y * width), nullptr);
  png_destroy_read_struct(&png, &info, nullptr);
  return words;
}

struct TiffPlace {
  const FileBytes* bytes;
  std::size_t at = 0;
};

// Strip by strip, then three bytes to a word each.
Words BareTiff(const FileBytes& file) {
  TiffPlace place{&file};
  TIFF* const tiff = TIFFClientOpen(
      "bench", "rm", &place,
      [](thandle_t self, void* into, tmsize_t count) -> tmsize_t {
        auto& from = *static_cast<TiffPlace*>(self);
        const std::size_t have = std::min(static_cast<std::size_t>(count), from.bytes->size() - from.at);
        std::memcpy(into, from.bytes->data() + from.at, have);
        from.at += have;
        return static_cast<tmsize_t>(have);
      },
      [](thandle_t, void*, tmsize_t) -> tmsize_t { return 0; },
      [](thandle_t self, toff_t offset, int whence) -> toff_t {
        auto& from = *static_cast<TiffPlace*>(self);
        from.at = whence == SEEK_CUR   ? from.at + offset
                  : whence == SEEK_END ? from.bytes->size() + offset
                                       : offset;
        return from.at;
      },
      [](thandle_t) { return 0; },
      [](thandle_t self) { return toff_t{static_cast<TiffPlace*>(self)->bytes->size()}; }, nullptr, nullptr);
  std::uint32_t width = 0, height = 0, stripRows = 0;
  TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &width);
  TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &height);
  TIFFGetFieldDefaulted(tiff, TIFFTAG_ROWSPERSTRIP, &stripRows);
  auto words = std::make_unique_for_overwrite<std::uint32_t[]>(std::size_t{width} * height);
  std::vector<std::uint8_t> strip(static_cast<std::size_t>(TIFFStripSize(tiff)));
  std::uint32_t* word = words.get();
  for (std::uint32_t i = 0; i < TIFFNumberOfStrips(tiff); ++i) {
    const tmsize_t count = TIFFReadEncodedStrip(tiff, i, strip.data(), static_cast<tmsize_t>(strip.size()));
    for (tmsize_t k = 0; k + 2 < count; k += 3) {
      const std::uint8_t* const b = strip.data() + k;
      *word++ = 0xFF000000U | std::uint32_t{b[0]} << 16 | std::uint32_t{b[1]} << 8 | b[2];
    }
  }
  TIFFClose(tiff);
  return words;
}

Words BareJpeg(const FileBytes& file, unsigned eighths) {
  jpeg_decompress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&info);
  jpeg_mem_src(&info, file.data(), file.size());
  jpeg_read_header(&info, TRUE);
  info.out_color_space = JCS_EXT_BGRX;
  info.scale_num = eighths;
  info.scale_denom = 8;
  jpeg_start_decompress(&info);
  const std::size_t width = info.output_width;
  auto words = std::make_unique_for_overwrite<std::uint32_t[]>(width * info.output_height);
  while (info.output_scanline < info.output_height) {
    JSAMPROW row = reinterpret_cast<JSAMPROW>(words.get() + info.output_scanline * width);
    jpeg_read_scanlines(&info, &row, 1);
  }
  jpeg_destroy_decompress(&info);
  return words;
}

void MeasureLibraries() {
  const Pixels picture = Photo(photo);
  const auto dataOf = [](const FileBytes& bytes) {
    return PictureData(std::make_shared<MemorySource>(bytes), {});
  };
  const FileBytes png = EncodePng(Photo(drawing)), tiff = EncodeTiff(picture), jpeg = EncodeJpeg(picture, 90);
  const PictureData pngData = dataOf(png), tiffData = dataOf(tiff), jpegData = dataOf(jpeg);
  PrintRatio("PNG, 12 megapixels", Best([&] { Decoded(pngData); }, [&] { BarePng(png); }), 1.1);
  PrintRatio("TIFF (LZW), 24 megapixels", Best([&] { Decoded(tiffData); }, [&] { BareTiff(tiff); }), 1.1);
  PrintRatio("JPEG, 24 megapixels", Best([&] { Decoded(jpegData); }, [&] { BareJpeg(jpeg, 8); }), 1.05);
  const auto thumbnail = [&] { ReducedPicture(Picture::Open(jpegData), 80).FullPixels(); };
  PrintRatio("thumbnail of 24 megapixels", Best(thumbnail, [&] { BareJpeg(jpeg, 1); }), 1.1);
}

void PrintSpeed(const char* name, const FileBytes& file, const char* extension, Size size, double aim) {
  const PictureData data(std::make_shared<MemorySource>(file), extension);
  double best = 1e9;
  for (int i = 0; i < rounds; ++i) best = std::min(best, Seconds([&] { Decoded(data); }));
  const double speed = static_cast<double>(size.width) * size.height / best / 1e6;
  std::printf("%-36s %8.0f megapixels a second, %.2f of %.0f%s\n", name, speed, speed / aim, aim,
              speed < aim ? "  MISSED" : "");
}

void MeasureOwn() {
  const Pixels pixels = Photo(drawing);
  const IndexedPicture many = Stripes(drawing, 256), few = Stripes(drawing, 16), two = Stripes(drawing, 2);
  const Pixels striped = Expand(many);
  constexpr double plain = 200, packed = 100;
  PrintSpeed("BMP, 24 bits", EncodeBmp(pixels), ".bmp", drawing, plain);
  PrintSpeed("BMP, 8 bits", EncodeBmp(many), ".bmp", drawing, plain);
  PrintSpeed("BMP, 4 bits", EncodeBmp(few), ".bmp", drawing, plain);
  PrintSpeed("BMP, 1 bit", EncodeBmp(two), ".bmp", drawing, plain);
  PrintSpeed("TGA, 24 bits", EncodeTga(pixels, {.runLength = false}), ".tga", drawing, plain);
  PrintSpeed("TGA, 8 bits", EncodeTga(many, {.runLength = false}), ".tga", drawing, plain);
  PrintSpeed("RAS, 24 bits", EncodeRas(pixels, RasForm::Plain), ".ras", drawing, plain);
  PrintSpeed("RAS, 8 bits", EncodeRas(many, RasForm::Plain), ".ras", drawing, plain);
  PrintSpeed("PPM, raw", EncodePpm(pixels, PnmKind::Raw), ".ppm", drawing, plain);
  PrintSpeed("PGM, raw", EncodePgm(pixels, PnmKind::Raw), ".pgm", drawing, plain);
  PrintSpeed("PBM, raw", EncodePbm(two, PnmKind::Raw), ".pbm", drawing, plain);
  PrintSpeed("ILBM, 4 planes", EncodeIlbm(few, IffForm::Plain), ".iff", drawing, plain);
  PrintSpeed("ILBM, 24 planes", EncodeIlbm(pixels, IffForm::Plain), ".iff", drawing, plain);
  PrintSpeed("DEEP, 24 bits", EncodeDeep(pixels, IffForm::Plain), ".iff", drawing, plain);
  PrintSpeed("PBM chunks, 8 bits", EncodeLbm(many, IffForm::Plain), ".lbm", drawing, plain);
  PrintSpeed("BMP run-length, 8 bits", EncodeRunLengthBmp(many), ".bmp", drawing, packed);
  PrintSpeed("BMP run-length, 4 bits", EncodeRunLengthBmp(few), ".bmp", drawing, packed);
  PrintSpeed("TGA run-length, 24 bits", EncodeTga(striped, {}), ".tga", drawing, packed);
  PrintSpeed("TGA run-length, 8 bits", EncodeTga(many, {}), ".tga", drawing, packed);
  PrintSpeed("RAS run-length, 24 bits", EncodeRas(striped), ".ras", drawing, packed);
  PrintSpeed("RAS run-length, 8 bits", EncodeRas(many), ".ras", drawing, packed);
  PrintSpeed("PCX, 24 bits", EncodePcx(striped), ".pcx", drawing, packed);
  PrintSpeed("PCX, 8 bits", EncodePcx(many), ".pcx", drawing, packed);
  PrintSpeed("PCX, 4 planes", EncodePcx(few), ".pcx", drawing, packed);
  PrintSpeed("PCX, 1 bit", EncodePcx(two), ".pcx", drawing, packed);
  PrintSpeed("ILBM run-length, 8 planes", EncodeIlbm(many), ".iff", drawing, packed);
  PrintSpeed("ILBM run-length, 24 planes", EncodeIlbm(striped), ".iff", drawing, packed);
  PrintSpeed("RGB8", EncodeColourRuns(striped), ".iff", drawing, packed);
  PrintSpeed("DEEP run-length, 24 bits", EncodeDeep(striped), ".iff", drawing, packed);
  PrintSpeed("PBM chunks run-length, 8 bits", EncodeLbm(many), ".lbm", drawing, packed);
  PrintSpeed("GEM, 1 plane", EncodeGem(two), ".img", drawing, packed);
  PrintSpeed("XIMG, 8 planes", EncodeXimg(many), ".img", drawing, packed);
  PrintSpeed("WPG, 8 bits", EncodeWpg(many), ".wpg", drawing, packed);
  PrintSpeed("WPG, 1 bit", EncodeWpg(two), ".wpg", drawing, packed);
  PrintSpeed("PIC, 8 bits", EncodePic(many), ".pic", drawing, packed);
}

void MeasureFacts(const std::filesystem::path& folder) {
  constexpr int files = 20000;
  const FileBytes jpeg = EncodeJpeg(Photo({640, 480}), 90);
  const std::filesystem::path place = folder / "bench_formats_files";
  std::filesystem::create_directories(place);
  std::vector<std::string> paths;
  for (int i = 0; i < files; ++i) {
    paths.push_back((place / (std::to_string(i) + ".jpg")).string());
    std::ofstream(paths.back(), std::ios::binary)
        .write(reinterpret_cast<const char*>(jpeg.data()), static_cast<std::streamsize>(jpeg.size()));
  }
  const auto facts = [&] {
    int sum = 0;
    for (const std::string& path : paths)
      sum += OpenDecoder(OpenPictureData(PosixFileSystem(), path))->Facts().size.width;
    if (sum != 640 * files) std::printf("wrong sizes\n");
  };
  const auto bare = [&] {
    std::array<char, 4096> block{};
    ssize_t sum = 0;
    for (const std::string& path : paths) {
      const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
      sum += read(file, block.data(), block.size());
      close(file);
    }
    if (sum != ssize_t{4096} * files) std::printf("files shorter than 4 KiB\n");
  };
  PrintRatio("facts of 20,000 files", Best(facts, bare), 2.5);
  std::filesystem::remove_all(place);
}

}  // namespace

int main(int argc, char** argv) {
  MeasureLibraries();
  MeasureOwn();
  if (argc > 1) MeasureFacts(argv[1]);
  return 0;
}
