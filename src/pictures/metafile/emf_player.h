#pragma once
// Plays the records of an enhanced metafile (the 32-bit kind) into a drawing; what the drawing does not know
// is skipped. Files that hold their drawing twice, the second time as the later "plus" records, are played
// from the plain ones; the plus player plays those that hold nothing else.

#include <optional>

#include "pictures/byte_reader.h"
#include "pictures/metafile/drawing.h"
#include "pictures/metafile/embedded_image.h"
#include "pictures/metafile/object_table.h"
#include "pictures/metafile/plus_player.h"

namespace lumidex::metafile {

struct EmfHeader {
  Box bounds;          // of what is drawn, device units, last row and column included
  Box frame;           // of the picture, hundredths of a millimetre
  Point devicePixels;  // of the device the file was made for
  Point deviceMillimetres;
  std::size_t recordsAt = 0;
};

// Nothing when the bytes are no enhanced metafile.
std::optional<EmfHeader> ReadEmfHeader(Bytes head);

class EmfPlayer {
 public:
  explicit EmfPlayer(Drawing& drawing) : drawing_(drawing), plus_(drawing.Fresh()) {}

  // `records` begins after the header record. Stops at the end record, at a record of impossible size and at
  // the end of the bytes.
  void Play(Bytes records);

 private:
  // A record from its first byte, since offsets inside count from there; the reader stands behind type and
  // size.
  struct Record {
    Bytes bytes;
    ByteReader reader;
  };

  void PlayRecord(unsigned type, Record record);
  void PlayComment(ByteReader& reader);
  // One picture in several formats; `reader` stands before its place, offsets count from the start of
  // `comment`.
  void PlayFormats(Bytes comment, ByteReader& reader);
  bool PlaySetting(unsigned type, ByteReader& reader);
  bool PlayMapping(unsigned type, ByteReader& reader);
  bool PlayShape(unsigned type, ByteReader& reader);
  bool PlayPoints(unsigned type, ByteReader& reader);
  bool PlayPath(unsigned type, ByteReader& reader);
  bool PlayClip(unsigned type, ByteReader& reader);
  bool PlayObject(unsigned type, Record& record);
  bool PlayText(unsigned type, Record& record);
  bool PlayBitmap(unsigned type, Record& record);

  void PlayPolyDraw(ByteReader& reader, bool narrow);
  void PlayPolyPolyline(ByteReader& reader, bool narrow, bool filled);
  void PlayGradient(ByteReader& reader);
  void SelectObject(std::uint32_t number);
  // One of the file's own or of those that need no making.
  Object ObjectAt(std::uint32_t number) const;
  Object ReadExtendedPen(Record& record);
  Object ReadTiledBrush(Record& record, bool takesTextColors);

  struct BitmapPlace {
    std::uint32_t headerAt = 0, headerBytes = 0, bitsAt = 0, bitsBytes = 0;
    bool IsGiven() const { return headerBytes != 0; }
  };
  static BitmapPlace ReadPlace(ByteReader& reader);
  std::optional<EmbeddedImage> DecodeAt(const Record& record, const BitmapPlace& place, unsigned usage);
  // Replaces the pixels of a plain 32-bit bitmap with its stored words, alpha included.
  static void ReadAlpha(const Record& record, const BitmapPlace& place, Pixels& pixels, bool topDown);
  // The reader stands before the text's description.
  void PlayTextString(Record& record, bool wide);
  void PlayTextStrings(Record& record, bool wide);
  void PlaySmallText(Record& record);
  void PlayBlock(Record& record, bool stretched);
  void PlayMaskedBlock(Record& record);
  void PlayParallelogram(Record& record);
  void PlayBlend(Record& record, bool byColor);
  void PlayStretchDib(Record& record);
  void PlaySetDibToDevice(Record& record);

  Drawing& drawing_;
  ObjectTable objects_;
  plus::Player plus_;
};

}  // namespace lumidex::metafile
