#include "pictures/metafile/enclosed_emf.h"

#include "pictures/metafile/wmf_reading.h"

namespace lumidex::metafile {
namespace {

constexpr unsigned commentEscape = 15;
constexpr std::uint32_t commentMark = 0x43464D57;  // "WMFC"
constexpr std::uint32_t metafileComment = 1, version = 0x10000;

}  // namespace

std::optional<std::vector<std::uint8_t>> EnclosedEmf(Bytes wmfRecords) {
  std::vector<std::uint8_t> collected;
  std::uint32_t chunks = 0, expectedChunks = 0, total = 0;
  bool fits = true;
  ForEachRecord(wmfRecords, [&](WmfRecord type, ByteReader record) {
    if (type != WmfRecord::Escape || record.U16Le() != commentEscape) return true;
    record.Skip(2);
    if (record.U32Le() != commentMark || record.U32Le() != metafileComment || record.U32Le() != version)
      return true;
    record.Skip(6);  // a checksum, which makers compute in two ways, and flags
    const std::uint32_t count = record.U32Le(), size = record.U32Le(), left = record.U32Le(),
                        whole = record.U32Le();
    if (chunks == 0) {
      expectedChunks = count;
      total = whole;
    }
    fits = count == expectedChunks && whole == total && size <= record.Remaining() &&
           collected.size() + size + std::uint64_t{left} == total;
    if (!fits) return false;
    const Bytes data = record.Take(size);
    collected.insert(collected.end(), data.begin(), data.end());
    ++chunks;
    return left != 0;
  });
  if (!fits || chunks == 0 || chunks != expectedChunks || collected.size() != total) return std::nullopt;
  return collected;
}

}  // namespace lumidex::metafile
