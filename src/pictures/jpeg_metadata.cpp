#include "pictures/jpeg_metadata.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <string_view>

#include "pictures/exif.h"
#include "pictures/srgb_profile.h"

namespace lumidex {
namespace {

using namespace std::string_view_literals;

constexpr int jfifMarker = 0xE0, appMarker = 0xE1, profileMarker = 0xE2, photoMarker = 0xED,
              commentMarker = 0xFE;
constexpr std::string_view jfifName = "JFIF\0"sv, exifName = "Exif\0\0"sv, profileName = "ICC_PROFILE\0"sv;
constexpr std::string_view xmpName = "http://ns.adobe.com/xap/1.0/\0"sv;
constexpr std::string_view moreXmpName = "http://ns.adobe.com/xmp/extension/\0"sv;
constexpr std::string_view photoName = "Photoshop 3.0\0"sv;
constexpr std::size_t mostSegmentBytes = 65533;
constexpr std::size_t mostBytes = std::size_t{32} << 20;

bool BeginsWith(Bytes bytes, std::string_view name) {
  return bytes.size() >= name.size() && std::equal(name.begin(), name.end(), bytes.begin());
}

// What goes from file to file as it stands. Left out is what tells of places in its own file, as the offsets
// of further pictures behind this one.
bool IsKept(int marker, Bytes bytes) {
  if (marker == appMarker) {
    return BeginsWith(bytes, exifName) || BeginsWith(bytes, xmpName) || BeginsWith(bytes, moreXmpName);
  }
  return marker == commentMarker || (marker == photoMarker && BeginsWith(bytes, photoName));
}

// The numbered pieces of a profile; an incomplete one is none.
class ProfilePieces {
 public:
  void Add(Bytes bytes) {
    const std::size_t header = profileName.size() + 2;
    if (bytes.size() < header) return;
    const Bytes piece = bytes.subspan(header);
    count_ = bytes[header - 1];
    pieces_[bytes[header - 2]].assign(piece.begin(), piece.end());
  }
  std::vector<std::uint8_t> Joined() const {
    std::vector<std::uint8_t> joined;
    for (unsigned number = 1; number <= count_; ++number) {
      const auto found = pieces_.find(number);
      if (found == pieces_.end()) return {};
      joined.insert(joined.end(), found->second.begin(), found->second.end());
    }
    return joined;
  }

 private:
  std::map<unsigned, std::vector<std::uint8_t>> pieces_;
  unsigned count_ = 0;
};

void TakeDensity(JpegMetadata& metadata, Bytes bytes) {
  constexpr std::size_t unitAt = 7;
  if (!BeginsWith(bytes, jfifName) || bytes.size() < unitAt + 5) return;
  const auto number = [&](std::size_t at) { return bytes[at] << 8 | bytes[at + 1]; };
  if (bytes[unitAt] > 2 || number(unitAt + 1) == 0 || number(unitAt + 3) == 0) return;
  metadata.densityUnit = bytes[unitAt];
  metadata.densityX = number(unitAt + 1);
  metadata.densityY = number(unitAt + 3);
}

// Gives a property a value wherever the text has it, as an attribute or as an element of its own.
void SetProperty(std::string& xmp, std::string_view name, std::string_view value) {
  for (std::size_t at = xmp.find(name); at != std::string::npos; at = xmp.find(name, at + name.size())) {
    const std::size_t behind = at + name.size();
    std::size_t start = behind, end = std::string::npos;
    if (xmp.compare(behind, 2, "=\"") == 0 || xmp.compare(behind, 2, "='") == 0) {
      start = behind + 2;
      end = xmp.find(xmp[behind + 1], start);
    } else if (xmp.compare(behind, 1, ">") == 0 && at > 0 && xmp[at - 1] == '<') {
      start = behind + 1;
      end = xmp.find('<', start);
    }
    if (end != std::string::npos) xmp.replace(start, end - start, value);
  }
}

template <class Change>
void ChangeXmp(JpegMetadata& metadata, Change change) {
  for (JpegMetadata::Segment& segment : metadata.segments) {
    if (segment.marker != appMarker || !BeginsWith(segment.bytes, xmpName)) continue;
    std::string text(segment.bytes.begin(), segment.bytes.end());
    change(text);
    if (text.size() <= mostSegmentBytes) segment.bytes.assign(text.begin(), text.end());
  }
}

void ChangeAllExif(JpegMetadata& metadata, const ExifChanges& changes) {
  for (JpegMetadata::Segment& segment : metadata.segments) {
    if (segment.marker != appMarker || !BeginsWith(segment.bytes, exifName)) continue;
    ChangeExif(std::span(segment.bytes).subspan(exifName.size()), changes);
  }
}

}  // namespace

bool JpegMetadata::HasExif() const {
  return std::ranges::any_of(segments, [](const Segment& segment) {
    return segment.marker == appMarker && BeginsWith(segment.bytes, exifName);
  });
}

JpegMetadata ReadJpegMetadata(const ByteSource& source, std::uint64_t start) {
  constexpr std::uint8_t fill = 0xFF;
  constexpr int startOfScan = 0xDA, endOfImage = 0xD9;
  JpegMetadata metadata;
  ProfilePieces profile;
  std::size_t taken = 0;
  for (std::uint64_t at = start + 2;;) {
    std::array<std::uint8_t, 4> header{};
    if (source.ReadAt(at, header) < header.size() || header[0] != fill) break;
    if (header[1] == fill) {
      ++at;
      continue;
    }
    const int marker = header[1];
    const std::size_t length = std::size_t{header[2]} << 8 | header[3];
    if (marker == startOfScan || marker == endOfImage || length < 2) break;
    at += 4;
    const bool mayBeKept = marker == jfifMarker || marker == appMarker || marker == profileMarker ||
                           marker == photoMarker || marker == commentMarker;
    if (mayBeKept) {
      std::vector<std::uint8_t> bytes(length - 2);
      taken += bytes.size();
      if (taken > mostBytes || source.ReadAt(at, bytes) < bytes.size()) break;
      if (marker == jfifMarker) TakeDensity(metadata, bytes);
      if (marker == profileMarker && BeginsWith(bytes, profileName)) profile.Add(bytes);
      if (IsKept(marker, bytes)) metadata.segments.push_back({marker, std::move(bytes)});
    }
    at += length - 2;
  }
  metadata.profile = profile.Joined();
  return metadata;
}

void DescribeUpright(JpegMetadata& metadata, Size size, PixelsAre pixels) {
  ChangeAllExif(metadata, {.size = size, .dropsThumbnail = pixels == PixelsAre::Changed});
  ChangeXmp(metadata, [&](std::string& xmp) {
    SetProperty(xmp, "tiff:Orientation", "1");
    for (const char* name : {"tiff:ImageWidth", "exif:PixelXDimension"}) {
      SetProperty(xmp, name, std::to_string(size.width));
    }
    for (const char* name : {"tiff:ImageLength", "exif:PixelYDimension"}) {
      SetProperty(xmp, name, std::to_string(size.height));
    }
  });
}

void DescribeSrgb(JpegMetadata& metadata) {
  metadata.profile = MakeSrgbProfile();
  ChangeAllExif(metadata, {.coloursAreSrgb = true});
  ChangeXmp(metadata, [](std::string& xmp) {
    SetProperty(xmp, "exif:ColorSpace", "1");
    SetProperty(xmp, "photoshop:ICCProfile", "sRGB IEC61966-2.1");
  });
}

}  // namespace lumidex
