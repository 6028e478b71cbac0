#pragma once
// What the hostile drawings are made with: files of a mebibyte, filled with one step again and again.

#include <algorithm>
#include <functional>
#include <vector>

#include "gallery/encoders/emf_encoder.h"
#include "gallery/encoders/wmf_encoder.h"

namespace lumidex {

inline constexpr std::size_t fileBytes = std::size_t{1} << 20;
inline constexpr std::size_t roomForEnds = 4096;
inline constexpr int side = 4000;

// A bitmap's header with `colors` colours of different looks, and `pixels` behind it.
inline std::vector<std::uint8_t> Bitmap(int width, int height, int bits, int compression, int colours,
                                        const std::vector<std::uint8_t>& pixels) {
  ByteWriter writer;
  writer.U32Le(40).U32Le(static_cast<std::uint32_t>(width)).U32Le(static_cast<std::uint32_t>(height));
  writer.U16Le(1).U16Le(static_cast<std::uint32_t>(bits)).U32Le(static_cast<std::uint32_t>(compression));
  writer.U32Le(static_cast<std::uint32_t>(pixels.size())).U32Le(0).U32Le(0);
  writer.U32Le(static_cast<std::uint32_t>(colours)).U32Le(0);
  for (int i = 0; i < colours; ++i) writer.U32Le(static_cast<std::uint32_t>(i) * 0x0B2945U & 0xFFFFFFU);
  return writer.Append(pixels).Take();
}

inline EmfWriter Sheet() {
  return {side, side};
}

// Repeats `step(i)` until `writer` holds a mebibyte.
template <class Writer>
std::vector<std::uint8_t> Filled(Writer writer, const std::function<void(Writer&, int)>& step) {
  int i = 0;
  while (writer.Size() + roomForEnds < fileBytes) {
    const std::size_t before = writer.Size();
    step(writer, i++);
    if (writer.Size() == before || writer.Size() + roomForEnds + (writer.Size() - before) > fileBytes) break;
  }
  return writer.File();
}

inline std::vector<std::uint8_t> FilledEmf(EmfWriter writer,
                                           const std::function<void(EmfWriter&, int)>& step) {
  return Filled<EmfWriter>(std::move(writer), step);
}

inline std::vector<std::uint8_t> FilledWmf(const std::function<void(WmfWriter&, int)>& step,
                                           const std::function<void(WmfWriter&)>& before) {
  WmfWriter writer;
  writer.Window(0, 0, side, side);
  before(writer);
  return Filled<WmfWriter>(std::move(writer), step);
}

inline EmfWriter Tools(unsigned penWidth) {
  EmfWriter writer = Sheet();
  writer.CreateGeometricPen(1, 0, static_cast<int>(penWidth), 0x204060).CreateBrush(2, 0, 0x80A0C0);
  writer.Select(1).Select(2);
  return writer;
}

}  // namespace lumidex
