#pragma once
// Plays the later "plus" records, which stand in comments of an enhanced metafile, for files that hold
// nothing else. The effects of pictures are left out.

#include <array>

#include "pictures/metafile/drawing.h"
#include "pictures/metafile/letters.h"
#include "pictures/metafile/plus_objects.h"

namespace lumidex::metafile::plus {

class Player {
 public:
  // `drawing` is one of the player's own: plain and plus records keep their states apart.
  explicit Player(Drawing drawing);

  // The records of one comment, behind its mark. Records of files that hold their drawing as plain ones too
  // are left to those.
  void Play(Bytes records);
  // Lets go of the picture kept for being drawn again. To be done before a metafile inside is played: each
  // level keeping one would fill memory.
  void ForgetPicture() { decoded_.reset(); }

 private:
  struct Record {
    unsigned type = 0;
    unsigned flags = 0;
    ByteReader reader;

    bool HasNarrowPoints() const { return (flags & 0x4000) != 0; }
    bool HasRelativePoints() const { return (flags & 0x0800) != 0; }
    unsigned ObjectNumber() const { return flags & 0xFF; }
  };

  void PlayRecord(Record record);
  void PlayHeader(Record& record);
  void PlayObject(Record& record);
  bool PlayTransform(Record& record);
  bool PlayState(Record& record);
  bool PlayClip(Record& record);
  bool PlayFill(Record& record);
  bool PlayLine(Record& record);
  bool PlayImage(Record& record);
  bool PlayText(Record& record);

  template <class Kind>
  const Kind* Get(std::uint32_t number) const {
    return std::get_if<Kind>(&objects_[number % objects_.size()]);
  }
  // The brush that the first word of a fill names, or is.
  Brush ReadFillBrush(Record& record) const;
  void Fill(const Path& path, const Brush& brush);
  void Stroke(const Path& path, std::uint32_t pen);
  void Clip(const Path& path, unsigned mode);
  void ClipTo(const ClipObject& area, unsigned mode);
  // What the area covers of the whole sheet.
  metafile::Clip AreaOf(const ClipObject& area);
  void FillArea(const ClipObject& area, const Brush& brush);
  void UpdateWorld();
  double UnitsOfDevice(Unit unit) const;
  // In units of the drawing.
  double Length(double length, Unit unit) const;
  void PlayString(Record& record);
  // Cut into lines: at line ends and, where `room` is above 0, before words that would reach beyond it.
  std::vector<TextLine> Lines(const std::vector<Letter>& letters, double room);
  void PlayGlyphs(Record& record);
  void UseFont(const FontObject& font, const Brush& brush);
  // A curve through points.
  Path ReadSpline(Record& record, double tension, bool closed) const;
  Path ReadPoly(Record& record, std::uint32_t count, bool closed) const;
  const Pixels* ImageOf(unsigned number);
  void Restore(std::uint32_t number);

  Drawing drawing_;
  bool ignored_ = false;
  std::array<Object, 256> objects_;
  std::vector<std::uint8_t> pending_;  // of an object that comes in parts
  Matrix world_;
  Matrix page_;
  double dotsPerInch_ = 96;
  struct Saved {
    std::uint32_t number = 0;
    Matrix world, page;
  };
  std::vector<Saved> saved_;
  unsigned decodedNumber_ = 0;  // of the picture drawn last
  std::optional<Pixels> decoded_;
};

}  // namespace lumidex::metafile::plus
