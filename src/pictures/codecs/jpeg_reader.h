#pragma once
// One run of libjpeg over a byte source: blocks read as needed, errors turned into a false answer.

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <limits>

#include <jpeglib.h>

#include "pictures/byte_stream.h"

namespace lumidex {

class JpegReader {
 public:
  // Reads from `start` on, in blocks of `blockBytes`.
  JpegReader(const ByteSource& source, std::uint64_t start, std::size_t blockBytes);
  ~JpegReader();
  JpegReader(const JpegReader&) = delete;
  JpegReader& operator=(const JpegReader&) = delete;

  // Runs steps of libjpeg; false when they ended in an error. The steps must own nothing that needs
  // destroying, since an error jumps out of them.
  template <class Steps>
  bool Try(Steps steps) {
    if (setjmp(jump_) != 0) return false;
    steps();
    return true;
  }

  jpeg_decompress_struct& Info() { return info_; }
  // The first row of MCUs that had no data left; rows count in MCUs.
  unsigned FirstEmptyRow() const { return firstEmptyRow_; }
  const char* Message() const { return message_; }

 private:
  void MarkEmptyRow() { firstEmptyRow_ = std::min(firstEmptyRow_, info_.input_iMCU_row); }
  static JpegReader& Self(j_common_ptr info) { return *static_cast<JpegReader*>(info->client_data); }
  static JpegReader& Self(j_decompress_ptr info) { return *static_cast<JpegReader*>(info->client_data); }
  static void Fail(j_common_ptr info);
  static void Warn(j_common_ptr info, int level);
  static boolean Fill(j_decompress_ptr info);
  static void Skip(j_decompress_ptr info, long count);

  jpeg_decompress_struct info_{};
  jpeg_error_mgr errors_{};
  jpeg_source_mgr manager_{};
  std::jmp_buf jump_{};
  char message_[JMSG_LENGTH_MAX] = "";
  ByteStream from_;
  Bytes block_;  // what libjpeg was given of it last
  bool ended_ = false;
  unsigned firstEmptyRow_ = std::numeric_limits<unsigned>::max();
};

}  // namespace lumidex
