#include "pictures/codecs/emf.h"

#include "pictures/metafile/emf_layout.h"
#include "pictures/metafile/metafile_decoder.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

class EmfDecoder final : public metafile::MetafileDecoder {
 public:
  EmfDecoder(const PictureData& data, const OpenOptions& options) : MetafileDecoder(data, options, "EMF") {
    const auto header = metafile::ReadEmfHeader(data.Head());
    if (!header) Refuse("The enhanced metafile's header is damaged");
    layout_ = metafile::LayOutEmf(*header);
    facts_.size = metafile::NaturalSize(layout_.inches, options.limits);
  }

 protected:
  void Play(Bytes bytes, metafile::Canvas& canvas, const metafile::Stage& stage) const override {
    metafile::PlayEmf(layout_, bytes, canvas, stage);
  }

 private:
  metafile::EmfLayout layout_;
};

}  // namespace

Match MatchEmf(const PictureData& data) {
  return metafile::ReadEmfHeader(data.Head()) ? Match::Sure : Match::No;
}

std::unique_ptr<Decoder> OpenEmf(const PictureData& data, const OpenOptions& options) {
  return std::make_unique<EmfDecoder>(data, options);
}

}  // namespace lumidex
