#include "pictures/metafile/font_matching.h"

#include <string_view>

#include "pictures/metafile/letters.h"
#include "pictures/metafile/symbol_fonts.h"

namespace lumidex::metafile {
namespace {

struct Substitute {
  std::string_view name;
  const char* family;
};

constexpr const char *timesFamily = "Times New Roman", *courierFamily = "Courier New";

// Bitmap and screen fonts that no system here carries and whose names say nothing to a font matcher.
constexpr Substitute substitutes[] = {
    {"MS Sans Serif", "Arial"},
    {"Microsoft Sans Serif", "Arial"},
    {"MS Shell Dlg", "Arial"},
    {"MS Shell Dlg 2", "Arial"},
    {"System", "Arial"},
    {"Helv", "Arial"},
    {"Swiss", "Arial"},
    {"Univers", "Arial"},
    {"Modern", "Arial"},
    {"Arial Unicode MS", "Arial"},
    {"Tms Rmn", timesFamily},
    {"MS Serif", timesFamily},
    {"Roman", timesFamily},
    {"CG Times", timesFamily},
    {"Terminal", courierFamily},
    {"Fixedsys", courierFamily},
    {"Courier", courierFamily},
    {"Lucida Console", "monospace"},
    {"Book Antiqua", "Palatino"},
    // Wide themselves, or the first fonts of systems.
    {"Verdana", "Verdana"},
    {"DejaVu Sans", "DejaVu Sans"},
    {"Noto Sans", "Noto Sans"},
};

const char* FamilyOfKind(const Font& font) {
  // The upper half of the byte names the kind of letters: 1 with serifs, 3 all of one width.
  const int kind = font.pitchAndFamily >> 4;
  return kind == 1 ? timesFamily : kind == 3 ? courierFamily : "Arial";
}

// Letters that the fonts for European languages have: Latin, Greek, Cyrillic and their punctuation.
bool IsEuropean(const std::string& text) {
  constexpr unsigned char afterCyrillic = 0xD5, punctuation = 0xE2, lastPunctuation = 0x84;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const bool isPunctuation = lead == punctuation && i + 1 < text.size() &&
                               static_cast<unsigned char>(text[i + 1]) <= lastPunctuation;
    if (lead >= afterCyrillic && !isPunctuation) return false;
  }
  return true;
}

std::string FamilyOf(const Font& font, const std::string& text, TextFaces& faces) {
  // Names that begin so ask for letters lying on their side, for text that runs downwards.
  std::string name = font.family.starts_with('@') ? font.family.substr(1) : font.family;
  for (const Substitute& substitute : substitutes)
    if (HasSameLetters(name, substitute.name)) return substitute.family;
  // The one that has nearly all of the signs.
  if (IsSymbolFont(name)) return "DejaVu Sans";
  // In place of one that is not here, the system offers whatever is its first font, most often a wide one.
  if (name.empty() || (IsEuropean(text) && !faces.IsInstalled(name))) return FamilyOfKind(font);
  return name;
}

}  // namespace

const TextFace& MatchingFace(TextFaces& faces, const Font& font, const std::string& text) {
  return faces.Get(FamilyOf(font, text, faces), font.weight > 550, font.italic);
}

}  // namespace lumidex::metafile
