#include <numbers>

#include "pictures/metafile/drawing.h"
#include "pictures/metafile/letters.h"
#include "pictures/metafile/sign_fonts.h"

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
  if (HasOwnSigns(name)) return "DejaVu Sans";
  // In place of one that is not here, the system offers whatever is its first font, most often a wide one.
  if (name.empty() || (IsEuropean(text) && !faces.IsInstalled(name))) return FamilyOfKind(font);
  return name;
}

// A font in place of the one meant may run wider than the letters' given places; it is narrowed, but not
// below this.
constexpr double narrowest = 0.6;

constexpr double perText = 20000;
// Measuring a letter.
constexpr double perUnit = 2000;
// Following a letter's outline.
constexpr double perOutlinedLetter = 10000;

}  // namespace

// From ems to the sheet, with the pen at `at`. Text stays upright where only the page is mirrored: its y axis
// growing upwards does not turn letters over, but it does turn lines the other way round.
Matrix Drawing::TextMatrix(double width, double height, Point at) const {
  const Matrix page = PageToDevice().Then(device_.toSheet);
  const Matrix& world = state_.world;
  const Matrix upright{.xx = std::abs(page.xx), .yy = std::abs(page.yy)};
  const bool mirrored = page.xx * page.yy < 0;
  Matrix placed = Matrix{.xx = world.xx, .yx = world.yx, .xy = world.xy, .yy = world.yy}.Then(upright);
  if (placed.Determinant() < 0) placed = Matrix{.yy = -1}.Then(placed);
  const double turn = state_.font.escapement / 10 * std::numbers::pi / 180 * (mirrored ? 1 : -1);
  const double cosine = std::cos(turn), sine = std::sin(turn);
  Matrix result = Matrix{.xx = width, .yy = height}
                      .Then({.xx = cosine, .yx = sine, .xy = -sine, .yy = cosine})
                      .Then(placed);
  const Point origin = LogicalToSheet().Apply(at);
  result.x0 = origin.x;
  result.y0 = origin.y;
  return result;
}

const TextFace& Drawing::FaceFor(const std::string& text) {
  const Font& font = state_.font;
  return faces_.Get(FamilyOf(font, text, faces_), font.weight > 550, font.italic);
}

double Drawing::EmHeight(const TextFace& face) const {
  const double height = state_.font.height;
  if (height == 0) return 12 / std::max(1e-6, std::abs(PageToDevice().yy));
  return height > 0 ? height / (face.Ascent() + face.Descent()) : -height;
}

double Drawing::EmWidth(const TextFace& face) const {
  const double width = std::abs(state_.font.width);
  return width != 0 ? width / face.MeanAdvance() : EmHeight(face);
}

double Drawing::TextWidth(const std::string& text) {
  if (!canvas_.Budget().Spend(perUnit)) return 0;
  const TextFace& face = FaceFor(text);
  return face.Advance(text) * EmWidth(face);
}

void Drawing::Text(TextLine line) {
  const Font& font = state_.font;
  const Ink background{.kind = Ink::Kind::Solid, .color = state_.backgroundColor};
  if (line.fillBox) canvas_.Fill(state_.clip, SheetBox(line.box), FillRule::Winding, background, copyPen);
  if (line.units.empty() ||
      !canvas_.Budget().Spend(perText + perUnit * static_cast<double>(line.units.size())))
    return;

  Clip clip = state_.clip;
  if (line.clipToBox)
    canvas_.CombineClip(clip, state_.base, SheetBox(line.box), FillRule::Winding, ClipMode::And);

  std::string whole;
  for (const TextUnit& unit : line.units) whole += unit.text;
  const TextFace& face = FaceFor(whole);
  if (HasOwnSigns(font.family)) {
    whole.clear();
    for (TextUnit& unit : line.units) {
      if (!face.Has(unit.text)) unit.text = " ";
      whole += unit.text;
    }
  }
  const double height = EmHeight(face);
  double width = EmWidth(face);
  if (!(width > 0) || !(height > 0)) return;

  // All lengths along the line from here on are in ems of `width`.
  double total = 0, natural = 0;
  for (const TextUnit& unit : line.units) {
    natural += face.Advance(unit.text);
    total += unit.advance / width;
  }
  const auto spacing = [&](const TextUnit& unit) {
    return (state_.letterSpacing + (unit.text == " " ? state_.blankSpacing : 0)) / width;
  };
  const bool spaced = state_.letterSpacing != 0 || state_.blankSpacing != 0;
  if (!line.hasAdvances) {
    total = natural;
    for (const TextUnit& unit : line.units) total += spacing(unit);
  } else if (total > 0 && natural > total * 1.02 && line.units.size() > 1) {
    const double narrowed = std::max(narrowest, total / natural);
    width *= narrowed;
    total /= narrowed;
  }

  const unsigned across = state_.textAlign & text_align::horizontalMask;
  const unsigned down = state_.textAlign & text_align::verticalMask;
  const bool updates = (state_.textAlign & text_align::updatePosition) != 0;
  const Point at = updates ? state_.current : line.at;
  double x = across == text_align::centre ? -total / 2 : across == text_align::right ? -total : 0;
  const double y = down == text_align::baseline ? 0
                   : down == text_align::bottom ? -face.Descent()
                                                : face.Ascent();
  const Matrix matrix = Matrix{.x0 = x, .y0 = y}.Then(TextMatrix(width, height, at));

  const auto stripe = [&](double top, double bottom) {
    Path path;
    path.AddBox({0, top, total, bottom});
    return path.Transformed(matrix);
  };
  if (state_.opaqueBackground && !line.fillBox && !pathOpen_)
    canvas_.Fill(clip, stripe(-face.Ascent(), face.Descent()), FillRule::Winding, background, copyPen);
  const auto letters = [&](const std::string& text, Point from, double narrowing) {
    const Matrix place = Matrix{.xx = narrowing, .x0 = from.x, .y0 = from.y}.Then(matrix);
    if (pathOpen_) {
      if (canvas_.Budget().Spend(perOutlinedLetter * static_cast<double>(text.size())))
        Extend(face.Outline(text).Transformed(place), false);
    } else {
      canvas_.DrawText(clip, face, text, place, state_.textColor);
    }
  };
  if (!line.hasAdvances && !spaced) {
    letters(whole, {}, 1);
  } else {
    Point from;
    for (const TextUnit& unit : line.units) {
      const double own = face.Advance(unit.text);
      const double room = unit.advance / width;
      // Letters of a wider font than the one meant must not run into each other.
      const bool tooWide = line.hasAdvances && room > 0 && own > room * 1.1;
      letters(unit.text, from, tooWide ? std::max(narrowest, room / own) : 1);
      from.y -= unit.rise / height;
      from.x += line.hasAdvances ? room : own + spacing(unit);
    }
  }
  const Ink ink{.kind = Ink::Kind::Solid, .color = state_.textColor};
  if (font.underlined) canvas_.Fill(clip, stripe(0.08, 0.14), FillRule::Winding, ink, copyPen);
  if (font.struckOut) canvas_.Fill(clip, stripe(-0.3, -0.24), FillRule::Winding, ink, copyPen);
  if (!updates || across == text_align::centre) return;
  const Point start = matrix.Apply({0, 0}), end = matrix.Apply({total, 0});
  MoveOnSheet(across == text_align::right ? Point{start.x - end.x, start.y - end.y}
                                          : Point{end.x - start.x, end.y - start.y});
}

void Drawing::MoveOnSheet(Point by) {
  const Matrix map = LogicalToSheet();
  const double size = map.Determinant();
  if (!map.IsUsable()) return;
  state_.current.x += (map.yy * by.x - map.xy * by.y) / size;
  state_.current.y += (map.xx * by.y - map.yx * by.x) / size;
}

}  // namespace lumidex::metafile
