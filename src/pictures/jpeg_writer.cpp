#include "pictures/jpeg_writer.h"

#include <algorithm>
#include <bit>
#include <csetjmp>
#include <cstdio>
#include <exception>
#include <vector>

#include <jpeglib.h>

#include <jerror.h>

#include "base/run_time_error.h"
#include "pictures/alpha.h"

namespace lumidex {
namespace {

constexpr std::size_t blockBytes = 65536;
// Rows handed over at once: what libjpeg codes together when the chroma is halved.
constexpr int rowsAtOnce = 16;

// One run of libjpeg. Its errors, and those of the sink, jump back to Run: no C++ exception may pass through
// the library's frames.
class JpegRun {
 public:
  explicit JpegRun(ByteSink& sink) : sink_(sink), block_(blockBytes) {
    info_.err = jpeg_std_error(&errors_);
    errors_.error_exit = [](j_common_ptr info) { std::longjmp(Self(info->client_data).jump_, 1); };
    errors_.emit_message = [](j_common_ptr, int) {};
    info_.client_data = this;
    manager_.init_destination = [](j_compress_ptr info) { Self(info->client_data).Restart(); };
    manager_.empty_output_buffer = [](j_compress_ptr info) -> boolean {
      Self(info->client_data).HandOn(0);
      return TRUE;
    };
    manager_.term_destination = [](j_compress_ptr info) {
      JpegRun& self = Self(info->client_data);
      self.HandOn(self.manager_.free_in_buffer);
    };
  }
  ~JpegRun() { jpeg_destroy_compress(&info_); }
  JpegRun(const JpegRun&) = delete;
  JpegRun& operator=(const JpegRun&) = delete;

  // The steps must own nothing that needs destroying.
  template <class Steps>
  void Run(Steps steps) {
    if (setjmp(jump_) == 0) return steps(info_);
    if (sinkError_) std::rethrow_exception(sinkError_);
    throw RunTimeError(info_.mem == nullptr || errors_.msg_code == JERR_OUT_OF_MEMORY
                           ? ErrorNumber::OutOfMemory
                           : ErrorNumber::InvalidPicture);
  }
  void Create() {
    Run([this](jpeg_compress_struct& info) {
      jpeg_create_compress(&info);
      info.client_data = this;
      info.dest = &manager_;
    });
  }

 private:
  static JpegRun& Self(void* data) { return *static_cast<JpegRun*>(data); }
  void Restart() {
    manager_.next_output_byte = block_.data();
    manager_.free_in_buffer = block_.size();
  }
  // Gives the sink all of the block but its last `unused` bytes.
  void HandOn(std::size_t unused) {
    try {
      sink_.Write(std::span(block_).first(block_.size() - unused));
    } catch (...) {
      sinkError_ = std::current_exception();
    }
    if (sinkError_) std::longjmp(jump_, 1);
    Restart();
  }

  ByteSink& sink_;
  std::vector<std::uint8_t> block_;
  jpeg_compress_struct info_{};
  jpeg_error_mgr errors_{};
  jpeg_destination_mgr manager_{};
  std::jmp_buf jump_{};
  std::exception_ptr sinkError_;
};

void Start(jpeg_compress_struct& info, Size size, const JpegWriterOptions& options) {
  info.image_width = static_cast<JDIMENSION>(size.width);
  info.image_height = static_cast<JDIMENSION>(size.height);
  info.input_components = 4;
  info.in_color_space = std::endian::native == std::endian::little ? JCS_EXT_BGRX : JCS_EXT_XRGB;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, std::clamp(options.quality, 1, 100), TRUE);
  info.smoothing_factor = std::clamp(options.smoothing, 0, 100);
  info.optimize_coding = options.optimize ? TRUE : FALSE;
}

// EXIF data wants to be the first thing in the file, and tells the density itself.
void StartFile(jpeg_compress_struct& info, const JpegMetadata& metadata) {
  info.write_JFIF_header = metadata.HasExif() ? FALSE : TRUE;
  info.density_unit = static_cast<UINT8>(metadata.densityUnit);
  info.X_density = static_cast<UINT16>(metadata.densityX);
  info.Y_density = static_cast<UINT16>(metadata.densityY);
  jpeg_start_compress(&info, TRUE);
  for (const JpegMetadata::Segment& segment : metadata.segments) {
    jpeg_write_marker(&info, segment.marker, segment.bytes.data(),
                      static_cast<unsigned>(segment.bytes.size()));
  }
  if (metadata.profile.empty()) return;
  jpeg_write_icc_profile(&info, metadata.profile.data(), static_cast<unsigned>(metadata.profile.size()));
}

}  // namespace

void WriteJpeg(const Pixels& pixels, const JpegWriterOptions& options, ByteSink& sink,
               const JpegMetadata& metadata) {
  if (pixels.IsEmpty()) throw RunTimeError(ErrorNumber::InvalidPicture);
  const auto width = static_cast<std::size_t>(pixels.Width());
  const bool opaque = pixels.Format() == PixelFormat::Rgb;
  std::vector<std::uint32_t> blended(opaque ? 0 : width * rowsAtOnce);
  JpegRun run(sink);
  run.Create();
  run.Run([&](jpeg_compress_struct& info) {
    Start(info, pixels.GetSize(), options);
    StartFile(info, metadata);
    while (info.next_scanline < info.image_height) {
      const int first = static_cast<int>(info.next_scanline);
      const int count = std::min(rowsAtOnce, pixels.Height() - first);
      JSAMPROW rows[rowsAtOnce];
      for (int i = 0; i < count; ++i) {
        std::uint32_t* row = const_cast<std::uint32_t*>(pixels.Row(first + i).data());
        if (!opaque) {
          row = blended.data() + static_cast<std::size_t>(i) * width;
          BlendOverWhite(pixels.Row(first + i), pixels.Format(), {row, width});
        }
        rows[i] = reinterpret_cast<JSAMPROW>(row);
      }
      jpeg_write_scanlines(&info, rows, static_cast<JDIMENSION>(count));
    }
    jpeg_finish_compress(&info);
  });
}

}  // namespace lumidex
