// The table of all picture formats: adding a format is one line here.

#include <algorithm>
#include <array>

#include "pictures/codec.h"
#include "pictures/codecs/art.h"
#include "pictures/codecs/bmp.h"
#include "pictures/codecs/cut.h"
#include "pictures/codecs/emf.h"
#include "pictures/codecs/gem.h"
#include "pictures/codecs/gif.h"
#include "pictures/codecs/hrz.h"
#include "pictures/codecs/ico.h"
#include "pictures/codecs/iff.h"
#include "pictures/codecs/jpeg.h"
#include "pictures/codecs/mac.h"
#include "pictures/codecs/msp.h"
#include "pictures/codecs/pcx.h"
#include "pictures/codecs/pic.h"
#include "pictures/codecs/png.h"
#include "pictures/codecs/pnm.h"
#include "pictures/codecs/ras.h"
#include "pictures/codecs/tga.h"
#include "pictures/codecs/tiff.h"
#include "pictures/codecs/wmf.h"
#include "pictures/codecs/wpg.h"
#include "pictures/refusal.h"

namespace lumidex {
namespace {

constexpr std::string_view artEndings[] = {".art"};
constexpr std::string_view bmpEndings[] = {".bmp", ".dib", ".rle"};
constexpr std::string_view curEndings[] = {".cur"};
constexpr std::string_view cutEndings[] = {".cut"};
constexpr std::string_view emfEndings[] = {".emf"};
constexpr std::string_view gemEndings[] = {".gem", ".img"};
constexpr std::string_view gifEndings[] = {".gif"};
constexpr std::string_view hrzEndings[] = {".hrz"};
constexpr std::string_view icoEndings[] = {".ico"};
constexpr std::string_view iffEndings[] = {".iff", ".lbm"};
constexpr std::string_view jpegEndings[] = {".jpg", ".jpe", ".jpeg", ".jfif"};
constexpr std::string_view macEndings[] = {".mac"};
constexpr std::string_view mspEndings[] = {".msp"};
constexpr std::string_view pcxEndings[] = {".pcx"};
constexpr std::string_view picEndings[] = {".pic"};
constexpr std::string_view pngEndings[] = {".png"};
constexpr std::string_view pnmEndings[] = {".pbm", ".pgm", ".ppm", ".pnm", ".pam"};
constexpr std::string_view rasEndings[] = {".ras"};
constexpr std::string_view tgaEndings[] = {".tga"};
constexpr std::string_view tiffEndings[] = {".tif", ".tiff"};
constexpr std::string_view wmfEndings[] = {".wmf"};
constexpr std::string_view wpgEndings[] = {".wpg"};

// Formats with a signature come first; those without one, which go by their extension, stand last.
constexpr auto allCodecs = std::to_array<Codec>({
    {"JPEG", jpegEndings, MatchJpeg, OpenJpeg}, {"PNG", pngEndings, MatchPng, OpenPng},
    {"GIF", gifEndings, MatchGif, OpenGif},     {"ICO", icoEndings, MatchIco, OpenIco},
    {"CUR", curEndings, MatchCur, OpenCur},     {"PNM", pnmEndings, MatchPnm, OpenPnm},
    {"TIFF", tiffEndings, MatchTiff, OpenTiff}, {"BMP", bmpEndings, MatchBmp, OpenBmp},
    {"IFF", iffEndings, MatchIff, OpenIff},     {"WMF", wmfEndings, MatchWmf, OpenWmf},
    {"EMF", emfEndings, MatchEmf, OpenEmf},     {"MSP", mspEndings, MatchMsp, OpenMsp},
    {"PCX", pcxEndings, MatchPcx, OpenPcx},     {"PIC", picEndings, MatchPic, OpenPic},
    {"RAS", rasEndings, MatchRas, OpenRas},     {"WPG", wpgEndings, MatchWpg, OpenWpg},
    {"MAC", macEndings, MatchMac, OpenMac},     {"GEM", gemEndings, MatchGem, OpenGem},
    {"TGA", tgaEndings, MatchTga, OpenTga},     {"ART", artEndings, MatchArt, OpenArt},
    {"CUT", cutEndings, MatchCut, OpenCut},     {"HRZ", hrzEndings, MatchHrz, OpenHrz},
});

bool HasExtension(const Codec& codec, const std::string& extension) {
  return std::ranges::find(codec.extensions, extension) != codec.extensions.end();
}

}  // namespace

std::span<const Codec> Codecs() {
  return allCodecs;
}

std::unique_ptr<Decoder> OpenDecoder(const PictureData& data, const OpenOptions& options) {
  if (data.Head().empty()) Refuse("The file is empty");
  const Codec* candidate = nullptr;
  for (const Codec& codec : Codecs()) {
    const Match match = codec.match(data);
    if (match == Match::Sure) return codec.open(data, options);
    if (match == Match::Maybe && !candidate && HasExtension(codec, data.Extension())) candidate = &codec;
  }
  if (candidate) return candidate->open(data, options);
  Refuse("No picture format is recognised");
}

}  // namespace lumidex
