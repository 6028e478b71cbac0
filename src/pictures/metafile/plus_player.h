#pragma once
// Plays the later "plus" records, which stand in comments of an enhanced metafile, for files that hold
// nothing else. The effects of pictures are left out.

#include <array>

#include "pictures/metafile/drawing.h"
#include "pictures/metafile/letters.h"
#include "pictures/metafile/plus_objects.h"
#include "pictures/metafile/plus_records.h"

namespace lumidex::metafile::plus {

class Player {
 public:
  // Draws on the canvas in a state of its own: plain and plus records keep theirs apart.
  Player(Canvas& canvas, const Device& device);

  // The records of one comment, behind its mark. Records of files that hold their drawing as plain ones too
  // are left to those.
  void Play(Bytes records);
  // Lets go of the picture kept for being drawn again. To be done before a metafile inside is played: each
  // level keeping one would fill memory.
  void ForgetPicture() { decoded_.reset(); }

 private:
  struct Record {
    PlusRecord type{};
    unsigned flags = 0;
    ByteReader reader;

    bool HasNarrowPoints() const { return (flags & 0x4000) != 0; }
    bool HasRelativePoints() const { return (flags & 0x0800) != 0; }
    unsigned ObjectNumber() const { return flags & 0xFF; }
    unsigned ClipModeNumber() const { return flags >> 8 & 0xF; }
  };

  void PlayRecord(Record record);

  // Each of these plays the record of its name (plus_records.h).
  void PlayHeader(Record& record);
  void PlayObject(Record& record);

  void PlaySetWorldTransform(Record& record);
  void PlayResetWorldTransform(Record& record);
  void PlayMultiplyWorldTransform(Record& record);
  void PlayTranslateWorldTransform(Record& record);
  void PlayScaleWorldTransform(Record& record);
  void PlayRotateWorldTransform(Record& record);
  void PlaySetPageTransform(Record& record);

  void PlaySave(Record& record);
  void PlayRestore(Record& record);
  void PlayBeginContainer(Record& record);

  void PlayResetClip(Record& record);
  void PlaySetClipRect(Record& record);
  void PlaySetClipPath(Record& record);
  void PlaySetClipRegion(Record& record);
  void PlayOffsetClip(Record& record);

  void PlayClear(Record& record);
  void PlayFillRects(Record& record);
  void PlayFillPolygon(Record& record);
  void PlayFillEllipse(Record& record);
  void PlayFillPie(Record& record);
  void PlayFillRegion(Record& record);
  void PlayFillPath(Record& record);
  void PlayFillClosedCurve(Record& record);

  void PlayDrawRects(Record& record);
  void PlayDrawLines(Record& record);
  void PlayDrawEllipse(Record& record);
  void PlayDrawPie(Record& record);
  void PlayDrawArc(Record& record);
  void PlayDrawPath(Record& record);
  void PlayDrawClosedCurve(Record& record);
  void PlayDrawCurve(Record& record);
  void PlayDrawBeziers(Record& record);

  void PlayDrawImage(Record& record);
  void PlayDrawImagePoints(Record& record);
  void PlayDrawString(Record& record);
  void PlayDrawDriverString(Record& record);

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
  // Adds to the world's map, behind it or, by default, before it.
  void ChangeWorld(const Record& record, const Matrix& change);
  double UnitsOfDevice(Unit unit) const;
  // In units of the drawing.
  double Length(double length, Unit unit) const;
  // Cut into lines: at line ends and, where `room` is above 0, before words that would reach beyond it.
  std::vector<TextLine> Lines(const std::vector<Letter>& letters, double room);
  void UseFont(const FontObject& font, const Brush& brush);
  Path ReadBoxes(Record& record) const;
  Path ReadEllipse(Record& record) const;
  // A curve through points.
  Path ReadSpline(Record& record, double tension, bool closed) const;
  Path ReadPoly(Record& record, std::uint32_t count, bool closed) const;
  const Pixels* ImageOf(unsigned number);
  // The image that the record names; its top left, top right and bottom left corners in the drawing.
  void DrawImage(Record& record, Unit unit, Box source, std::span<const Point, 3> corners);
  DeviceState& State() { return drawing_.context.State(); }

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
