#pragma once
// A font as the renderer offers it: its metrics in ems and its outlines. A family that is not installed
// becomes the sans serif one.

#include <map>
#include <string>
#include <tuple>

#include "pictures/metafile/cairo_handles.h"
#include "pictures/metafile/path.h"

namespace lumidex::metafile {

class TextFace {
 public:
  TextFace(const std::string& family, bool bold, bool italic);

  // In ems, both positive.
  double Ascent() const { return ascent_; }
  double Descent() const { return descent_; }
  // How far `text` (UTF-8) moves the pen, in ems.
  double Advance(const std::string& text) const;
  // Whether the font can show these letters.
  bool Has(const std::string& text) const;
  // The mean advance of the small letters, in ems.
  double MeanAdvance() const { return meanAdvance_; }

  // The letters' outlines in ems, the pen starting at the origin.
  Path Outline(const std::string& text) const;

  cairo_font_face_t* Handle() const { return face_.get(); }
  // Unhinted, so that text keeps its shape at every size.
  static CairoFontOptions Options();

 private:
  CairoFontFace face_;
  CairoScaledFont measuring_;
  double ascent_ = 0.9;
  double descent_ = 0.2;
  double meanAdvance_ = 0.5;
};

// The faces one drawing uses, each looked up once. Looking a family up is slow, so that after a number that
// no drawing needs the sans serif one stands for all others.
class TextFaces {
 public:
  const TextFace& Get(const std::string& family, bool bold, bool italic);
  // False when the family has the measures of one that can not exist, and so stands for any.
  bool IsInstalled(const std::string& family);

 private:
  std::map<std::tuple<std::string, bool, bool>, TextFace> faces_;
  std::map<std::string, bool> installed_;
};

}  // namespace lumidex::metafile
