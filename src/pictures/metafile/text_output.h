#pragma once
// Sets lines of text in the selected font: letters at the places that the record gives, or one behind the
// other.

#include <string>
#include <vector>

#include "pictures/metafile/device_context.h"
#include "pictures/metafile/path_bracket.h"
#include "pictures/metafile/text_face.h"

namespace lumidex::metafile {

// One letter, or several that belong together, and how far it moves the pen if the record says.
struct TextUnit {
  std::string text;    // UTF-8
  double advance = 0;  // logical units
  double rise = 0;     // and upwards from the line
};

struct TextLine {
  Point at;
  std::vector<TextUnit> units;
  bool hasAdvances = false;
  Box box;
  bool fillBox = false;
  bool clipToBox = false;
};

class TextOutput {
 public:
  TextOutput(DeviceContext& context, PathBracket& bracket) : context_(context), bracket_(bracket) {}

  // In a path bracket the letters' outlines join its path.
  void Draw(TextLine line);
  // How wide letters of the selected font are without further spacing, logical units; 0 when the budget is
  // spent.
  double WidthOf(const std::string& text);

 private:
  // A line as it is set. Lengths along it are in ems of `width`, from its start on.
  struct Setting {
    const TextFace& face;
    double width, height;  // of an em, logical units
    double length = 0;
    Matrix toSheet{};
    Clip clip{};
  };

  void FillBox(const TextLine& line);
  // The length of the line, whose letters are narrowed where they have less room than they need.
  double Fit(const TextLine& line, Setting& setting) const;
  // From ems to the sheet. Takes care of how the text is aligned.
  Matrix PlaceOf(const TextLine& line, const Setting& setting) const;
  void DrawLetters(const TextLine& line, const std::string& whole, const Setting& setting);
  void DrawLetters(const std::string& text, Point from, double narrowing, const Setting& setting);
  void FillStripe(double top, double bottom, std::uint32_t colour, const Setting& setting);
  void MoveBehind(const Setting& setting);

  // The height of an em of the selected font, logical units.
  double EmHeight(const TextFace& face) const;
  double EmWidth(const TextFace& face) const;
  // What stands between letters beside themselves, logical units.
  double SpacingOf(const TextUnit& unit) const;
  Matrix TextMatrix(double width, double height, Point at) const;

  DeviceContext& context_;
  PathBracket& bracket_;
  TextFaces faces_;
};

}  // namespace lumidex::metafile
