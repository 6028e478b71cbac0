#include "pictures/file_window.h"

#include <algorithm>

namespace lumidex {

Bytes FileWindow::At(std::uint64_t offset, std::size_t count) {
  if (offset >= data_.Size()) return {};
  count = static_cast<std::size_t>(std::min<std::uint64_t>(count, data_.Size() - offset));
  if (offset + count <= data_.Head().size())
    return data_.Head().subspan(static_cast<std::size_t>(offset), count);
  if (offset < start_ || offset + count > start_ + block_.size()) {
    start_ = offset;
    block_ = data_.Stretch(offset, PictureData::HeadSize);
  }
  const std::size_t skip = static_cast<std::size_t>(offset - start_);
  return Bytes(block_).subspan(skip, std::min(count, block_.size() - skip));
}

}  // namespace lumidex
