#include "pictures/codecs/jpeg_reader.h"

#include <jerror.h>

#include <algorithm>
#include <array>

#include "base/run_time_error.h"

namespace lumidex {

JpegReader::JpegReader(const ByteSource& source, std::uint64_t start, std::size_t blockBytes)
    : from_(source, start, blockBytes) {
  info_.err = jpeg_std_error(&errors_);
  errors_.error_exit = Fail;
  errors_.emit_message = Warn;
  info_.client_data = this;
  if (!Try([this] { jpeg_create_decompress(&info_); })) throw RunTimeError(ErrorNumber::OutOfMemory);
  info_.client_data = this;
  manager_.init_source = [](j_decompress_ptr) {};
  manager_.fill_input_buffer = Fill;
  manager_.skip_input_data = Skip;
  manager_.resync_to_restart = jpeg_resync_to_restart;
  manager_.term_source = [](j_decompress_ptr) {};
  info_.src = &manager_;
}

JpegReader::~JpegReader() {
  jpeg_destroy_decompress(&info_);
}

void JpegReader::Fail(j_common_ptr info) {
  JpegReader& self = Self(info);
  info->err->format_message(info, self.message_);
  std::longjmp(self.jump_, 1);
}

void JpegReader::Warn(j_common_ptr info, int level) {
  JpegReader& self = Self(info);
  const bool starved = level < 0 && info->err->msg_code == JWRN_HIT_MARKER;
  // Coarse content of the later scans is no reason to blank what the first one gave.
  if (starved && self.ended_ && self.info_.input_scan_number <= 1) self.MarkEmptyRow();
}

boolean JpegReader::Fill(j_decompress_ptr info) {
  // What libjpeg is given when the file ends too early.
  static constexpr std::array<JOCTET, 2> endMarker = {0xFF, JPEG_EOI};
  JpegReader& self = Self(info);
  self.from_.Advance(self.block_.size());
  self.block_ = self.from_.Ahead(1);
  self.ended_ = self.block_.empty();
  // The arithmetic decoder takes the end of its bytes for zeros and warns of nothing.
  if (self.ended_ && self.info_.arith_code != 0 && self.info_.input_scan_number == 1) self.MarkEmptyRow();
  self.manager_.next_input_byte = self.ended_ ? endMarker.data() : self.block_.data();
  self.manager_.bytes_in_buffer = self.ended_ ? endMarker.size() : self.block_.size();
  return TRUE;
}

void JpegReader::Skip(j_decompress_ptr info, long count) {
  if (count <= 0) return;
  JpegReader& self = Self(info);
  const auto wanted = static_cast<std::size_t>(count);
  const std::size_t here = std::min(wanted, self.manager_.bytes_in_buffer);
  self.manager_.next_input_byte += here;
  self.manager_.bytes_in_buffer -= here;
  if (wanted == here) return;
  self.from_.Skip(self.block_.size() + (wanted - here));
  self.block_ = {};
}

}  // namespace lumidex
