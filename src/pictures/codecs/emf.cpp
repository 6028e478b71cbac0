#include "pictures/codecs/emf.h"

#include "base/run_time_error.h"
#include "pictures/metafile/emf_layout.h"
#include "pictures/metafile/metafile_decoder.h"

namespace lumidex {
namespace {

class EmfDecoder final : public metafile::MetafileDecoder {
 public:
  EmfDecoder(const PictureData& data, const OpenOptions& options) : MetafileDecoder(data, options) {
    const auto header = metafile::ReadEmfHeader(data.Head());
    if (!header) throw RunTimeError(ErrorNumber::InvalidPicture, "The enhanced metafile's header is damaged");
    facts_.format = "EMF";
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
