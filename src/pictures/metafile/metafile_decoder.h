#pragma once
// What the two metafile decoders have in common: the size in pixels, and playing into a fresh white picture.

#include "pictures/file_decoder.h"
#include "pictures/metafile/canvas.h"
#include "pictures/metafile/stage.h"

namespace lumidex::metafile {

// The picture's size for a drawing of so many inches, at 96 pixels an inch, rounded. Drawings without an
// extent or beyond the limits raise InvalidPicture. Of sheets that would fill memory as pixels, the size is
// taken in proportion smaller: a drawing has no pixels of its own.
Size NaturalSize(Point inches, const PictureLimits& limits);

class MetafileDecoder : public FileDecoder {
 public:
  // Draws at exactly the size wanted, or at full size when that is beyond the limits.
  Pixels Decode(const DecodeRequest& request) const override;
  std::vector<std::uint8_t> Drawing() const override { return Data().All(); }

 protected:
  MetafileDecoder(const PictureData& data, const OpenOptions& options, std::string_view format);
  // Plays `bytes`, the whole file, onto the stage, of which the canvas may be a part.
  virtual void Play(Bytes bytes, Canvas& canvas, const Stage& stage) const = 0;

 private:
  struct Rows {
    Pixels pixels;
    bool lookedAround = false;  // what they show depends on rows above or below them
  };
  // `count` rows from `top` on of the drawing at `size`, for `share` times the usual work.
  Rows DrawRows(Bytes bytes, Size size, int top, int count, double share) const;
};

}  // namespace lumidex::metafile
