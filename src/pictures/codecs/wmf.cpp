#include "pictures/codecs/wmf.h"

#include "pictures/metafile/metafile_decoder.h"
#include "pictures/metafile/wmf_layout.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

class WmfDecoder final : public metafile::MetafileDecoder {
 public:
  WmfDecoder(const PictureData& data, const OpenOptions& options) : MetafileDecoder(data, options, "WMF") {
    const auto header = metafile::ReadWmfHeader(data.Head());
    if (!header) Refuse("The metafile's header is damaged");
    // The window is nearly always among the first records.
    auto layout = metafile::LayOutWmf(*header, data.Head());
    if (!layout) {
      const std::vector<std::uint8_t> bytes = data.All();
      layout = metafile::LayOutWmf(*header, bytes);
      if (!layout) layout = metafile::MeasureWmf(*header, bytes);
    }
    if (!layout) Refuse("The metafile has no extent");
    layout_ = *layout;
    facts_.size = metafile::NaturalSize(layout_.Inches(), options.limits);
  }

 protected:
  void Play(Bytes bytes, metafile::Canvas& canvas, const metafile::Stage& stage) const override {
    metafile::PlayWmf(layout_, bytes, canvas, stage);
  }

 private:
  metafile::WmfLayout layout_;
};

}  // namespace

Match MatchWmf(const PictureData& data) {
  return metafile::ReadWmfHeader(data.Head()) ? Match::Sure : Match::No;
}

std::unique_ptr<Decoder> OpenWmf(const PictureData& data, const OpenOptions& options) {
  return std::make_unique<WmfDecoder>(data, options);
}

}  // namespace lumidex
