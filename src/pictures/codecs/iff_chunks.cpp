// Follows "EA IFF 85", the standard for interchange format files, and its supplement on ILBM.
#include "pictures/codecs/iff_chunks.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "pictures/byte_reader.h"
#include "pictures/file_window.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

constexpr std::size_t chunkHead = 8;
constexpr std::size_t groupHead = 12;
constexpr int mostChunks = 10'000;
constexpr std::uint32_t mostDeepElements = 16;

constexpr std::uint32_t Id(std::string_view name) {
  std::uint32_t id = 0;
  for (const char letter : name) id = id << 8 | static_cast<unsigned char>(letter);
  return id;
}

constexpr std::uint32_t form = Id("FORM"), list = Id("LIST"), cat = Id("CAT ");

struct Chunk {
  std::uint32_t id = 0;
  std::uint64_t offset = 0;  // of the content
  std::uint64_t length = 0;  // as stored
  std::uint32_t type = 0;    // the first four bytes of the content: what a group holds
};

class ChunkWalk {
 public:
  ChunkWalk(FileWindow& window, std::uint64_t start) : window_(window), next_(start) {}

  std::optional<Chunk> Next() {
    if (++count_ > mostChunks) return {};
    ByteReader reader(window_.At(next_, groupHead));
    Chunk chunk;
    chunk.id = reader.U32Be();
    chunk.length = reader.U32Be();
    if (reader.WasCut() || !IsId(chunk.id)) return {};
    chunk.type = reader.U32Be();
    chunk.offset = next_ + chunkHead;
    next_ = chunk.offset + chunk.length;
    // Chunks of odd length are followed by a byte of padding, which some writers forget.
    if (chunk.length % 2 != 0 && !(IsIdAt(next_) && !IsIdAt(next_ + 1))) ++next_;
    return chunk;
  }

 private:
  static bool IsId(std::uint32_t id) {
    for (int shift = 0; shift < 32; shift += 8)
      if ((id >> shift & 255) < 0x20 || (id >> shift & 255) > 0x7E) return false;
    return true;
  }
  bool IsIdAt(std::uint64_t offset) {
    ByteReader reader(window_.At(offset, 4));
    return IsId(reader.U32Be());
  }

  FileWindow& window_;
  std::uint64_t next_;
  int count_ = 0;
};

std::optional<IffKind> KindOf(std::uint32_t type) {
  if (type == Id("ILBM")) return IffKind::Interleaved;
  if (type == Id("ACBM")) return IffKind::Contiguous;
  if (type == Id("PBM ")) return IffKind::Chunky;
  if (type == Id("RGB8") || type == Id("RGBN")) return IffKind::ColourRuns;
  if (type == Id("DEEP")) return IffKind::Deep;
  return {};
}

// Groups may hold pictures, and other groups: an animation holds its frames.
bool MayHoldPictures(const Chunk& group) {
  return group.id == list || group.id == cat || (group.id == form && group.type == Id("ANIM"));
}

struct FoundGroup {
  Chunk group;
  std::optional<Chunk> shared;  // what the pictures of a list have in common
};

// The first picture group from `start` on. Lengths of groups are not trusted to be the ends of groups.
std::optional<FoundGroup> FindGroup(FileWindow& window, std::uint64_t start, int level = 0) {
  constexpr int deepest = 4;
  ChunkWalk walk(window, start);
  std::optional<Chunk> shared;
  while (const auto chunk = walk.Next()) {
    if (chunk->id == form && KindOf(chunk->type)) return FoundGroup{*chunk, shared};
    if (chunk->id == Id("PROP") && KindOf(chunk->type)) shared = chunk;
    if (level < deepest && MayHoldPictures(*chunk))
      if (const auto found = FindGroup(window, chunk->offset + 4, level + 1)) return found;
    if (level == 0) break;
  }
  return {};
}

void ReadBitmapHeader(ByteReader reader, IffPicture& picture) {
  picture.size.width = reader.U16Be();
  picture.size.height = reader.U16Be();
  reader.Skip(4);  // position
  picture.planes = reader.U8();
  picture.masking = reader.U8();
  picture.compression = reader.U8();
  reader.Skip(1);
  picture.transparentIndex = reader.U16Be();
  if (reader.WasCut()) Refuse("IFF: the bitmap header is cut short");
}

void ReadColours(ByteReader reader, IffPicture& picture) {
  picture.colourCount = static_cast<int>(std::min<std::size_t>(reader.Remaining() / 3, 256));
  ReadRgbEntries(reader, picture.colourCount, picture.colours);
  const auto entries = std::span(picture.colours).first(static_cast<std::size_t>(picture.colourCount));
  // The first Amigas had four bits a component, kept in the high half of each byte.
  if (std::ranges::all_of(entries, [](std::uint32_t colour) { return (colour & 0x0F0F0F) == 0; }))
    for (std::uint32_t& colour : entries) colour |= colour >> 4 & 0x0F0F0F;
}

// The size of the screen it was made for, and the packing.
void ReadDeepHeader(ByteReader reader, IffPicture& picture) {
  picture.size.width = reader.U16Be();
  picture.size.height = reader.U16Be();
  picture.compression = reader.U16Be();
  if (reader.WasCut()) Refuse("IFF: the bitmap header is cut short");
}

// The size of the picture itself, where it is not that of the screen.
void ReadDeepPlace(ByteReader reader, IffPicture& picture) {
  const Size size{reader.U16Be(), reader.U16Be()};
  if (!reader.WasCut()) picture.size = size;
}

void ReadDeepElements(ByteReader reader, IffPicture& picture) {
  const std::uint32_t count = std::min(reader.U32Be(), mostDeepElements);
  picture.elements.clear();
  picture.planes = 0;
  for (std::uint32_t i = 0; i < count && reader.Remaining() >= 4; ++i) {
    const unsigned kind = reader.U16Be(), bits = reader.U16Be();
    picture.elements.push_back({kind, bits});
    picture.planes += static_cast<int>(bits);
  }
}

void KeepLineColours(IffLineColoursKind kind, const Chunk& chunk, IffPicture& picture) {
  picture.lineColours = kind;
  picture.lineColoursOffset = chunk.offset;
  picture.lineColoursLength = chunk.length;
}

// Takes what a chunk of a picture tells; those that mean nothing here are passed over.
void ReadChunk(const Chunk& chunk, FileWindow& window, IffPicture& picture) {
  const auto content = [&](std::size_t most) {
    return ByteReader(
        window.At(chunk.offset, static_cast<std::size_t>(std::min<std::uint64_t>(most, chunk.length))));
  };
  switch (chunk.id) {
    case Id("BMHD"):
      return ReadBitmapHeader(content(20), picture);
    case Id("CMAP"):
      return ReadColours(content(768), picture);
    case Id("CAMG"):
      picture.displayMode = content(4).U32Be();
      return;
    case Id("SHAM"):
      return KeepLineColours(IffLineColoursKind::Sliced, chunk, picture);
    case Id("CTBL"):
      return KeepLineColours(IffLineColoursKind::Table, chunk, picture);
    case Id("PCHG"):
      return KeepLineColours(IffLineColoursKind::Changes, chunk, picture);
    case Id("DGBL"):
      return ReadDeepHeader(content(6), picture);
    case Id("DLOC"):
      return ReadDeepPlace(content(4), picture);
    case Id("DPEL"):
      return ReadDeepElements(content(4 + 4 * mostDeepElements), picture);
    case Id("TVDC"): {
      ByteReader reader = content(2 * picture.steps.size());
      for (int& step : picture.steps) step = reader.S16Be();
      return;
    }
    case Id("BODY"):
    case Id("ABIT"):
    case Id("DBOD"):
      if (picture.bodyOffset == 0) picture.bodyOffset = chunk.offset;
      return;
    default:
      return;
  }
}

// Where a wrong length leads the walk astray, the rows are found by their name.
std::uint64_t SearchBody(const PictureData& data, std::uint64_t start) {
  constexpr std::size_t searched = 65536;
  constexpr std::string_view name = "BODY";
  const std::vector<std::uint8_t> stretch = data.Stretch(start, searched);
  const auto found = std::search(stretch.begin(), stretch.end(), name.begin(), name.end());
  if (found == stretch.end()) Refuse("IFF: the picture has no rows");
  return start + static_cast<std::uint64_t>(found - stretch.begin()) + chunkHead;
}

// Takes the chunks of a picture's own, or those shared by a list up to `end`. False when there was no bitmap
// header.
bool ReadChunks(FileWindow& window, std::uint64_t start, std::uint64_t end, IffPicture& picture) {
  ChunkWalk walk(window, start);
  bool hasHeader = false;
  while (const auto chunk = walk.Next()) {
    if (chunk->offset > end || chunk->id == form) break;
    const bool header = chunk->id == Id("BMHD") || chunk->id == Id("DGBL");
    // Of two headers the first one counts.
    if (!header || !hasHeader) ReadChunk(*chunk, window, picture);
    hasHeader = hasHeader || header;
    // Some writers put the colours behind the rows.
    if (picture.bodyOffset != 0 && (picture.colourCount > 0 || picture.planes > 8)) break;
  }
  return hasHeader;
}

}  // namespace

Match MatchIffHead(Bytes head) {
  ByteReader reader(head);
  const std::uint32_t id = reader.U32Be();
  reader.Skip(4);
  const std::uint32_t type = reader.U32Be();
  if (reader.WasCut()) return Match::No;
  if (id == list || id == cat) return Match::Sure;
  if (id == form) return KindOf(type) || type == Id("ANIM") ? Match::Sure : Match::Maybe;
  return id == Id("FOR4") || id == Id("FOR8") ? Match::Maybe : Match::No;
}

IffPicture FindIffPicture(const PictureData& data) {
  FileWindow window(data);
  const auto found = FindGroup(window, 0);
  if (!found) Refuse("IFF: there is no bitmap in this file");
  IffPicture picture;
  picture.kind = *KindOf(found->group.type);
  picture.colours = BlackPalette();
  bool hasHeader = false;
  if (found->shared) {
    const std::uint64_t start = found->shared->offset;
    hasHeader = ReadChunks(window, start + 4, start + found->shared->length, picture);
    picture.bodyOffset = 0;  // rows are nobody's to share
  }
  const std::uint64_t start = found->group.offset + 4;
  // The length of the picture's own group is not trusted.
  hasHeader = ReadChunks(window, start, data.Size(), picture) || hasHeader;
  if (!hasHeader) Refuse("IFF: the picture has no bitmap header");
  // Without a palette of its own, that of the first row is all there is.
  if (picture.lineColours != IffLineColoursKind::None && picture.colourCount == 0) picture.colourCount = 16;
  if (picture.bodyOffset == 0) picture.bodyOffset = SearchBody(data, start);
  return picture;
}

}  // namespace lumidex
