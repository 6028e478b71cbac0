#include <numbers>

#include "pictures/metafile/drawing.h"

namespace lumidex::metafile {
namespace {

struct Substitute {
  std::string_view name;
  const char* family;
};

// Bitmap and screen fonts that no system here carries and whose names say nothing to a font matcher.
constexpr Substitute substitutes[] = {
    {"MS Sans Serif", "sans-serif"}, {"Microsoft Sans Serif", "sans-serif"},
    {"MS Shell Dlg", "sans-serif"},  {"System", "sans-serif"},
    {"Helv", "Helvetica"},           {"Tms Rmn", "Times New Roman"},
    {"MS Serif", "serif"},           {"Roman", "serif"},
    {"Modern", "sans-serif"},        {"Terminal", "monospace"},
    {"Fixedsys", "monospace"},       {"Lucida Console", "monospace"},
};

std::string FamilyOf(const Font& font) {
  for (const Substitute& substitute : substitutes)
    if (font.family == substitute.name) return substitute.family;
  if (!font.family.empty() && font.family != "Symbol") return font.family;
  // The upper half of the byte names the kind of letters: 1 with serifs, 3 all of one width.
  const int kind = font.pitchAndFamily >> 4;
  return kind == 1 ? "serif" : kind == 3 ? "monospace" : "sans-serif";
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

void Drawing::Text(const TextLine& line) {
  const Font& font = state_.font;
  const Ink background{.kind = Ink::Kind::Solid, .color = state_.backgroundColor};
  if (line.fillBox) canvas_.Fill(state_.clip, SheetBox(line.box), FillRule::Winding, background, copyPen);
  if (line.units.empty() ||
      !canvas_.Budget().Spend(perText + perUnit * static_cast<double>(line.units.size())))
    return;

  Clip clip = state_.clip;
  if (line.clipToBox) canvas_.CombineClip(clip, SheetBox(line.box), FillRule::Winding, ClipMode::And);

  const TextFace& face = faces_.Get(FamilyOf(font), font.weight > 550, font.italic);
  double height = std::abs(font.height);
  if (font.height > 0) height /= face.Ascent() + face.Descent();
  if (font.height == 0) height = 12 / std::max(1e-6, std::abs(PageToDevice().yy));
  double width = font.width != 0 ? std::abs(font.width) / face.MeanAdvance() : height;
  if (!(width > 0) || !(height > 0)) return;

  // All lengths along the line from here on are in ems of `width`.
  double total = 0, natural = 0;
  for (const TextUnit& unit : line.units) {
    natural += face.Advance(unit.text);
    total += unit.advance / width;
  }
  const double spacing = state_.letterSpacing / width;
  if (!line.hasAdvances) {
    total = natural + spacing * static_cast<double>(line.units.size());
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
  const auto letters = [&](const std::string& text, double from, double narrowing) {
    const Matrix place = Matrix{.xx = narrowing, .x0 = from}.Then(matrix);
    if (pathOpen_) {
      if (canvas_.Budget().Spend(perOutlinedLetter * static_cast<double>(text.size())))
        Extend(face.Outline(text).Transformed(place), false);
    } else {
      canvas_.DrawText(clip, face, text, place, state_.textColor);
    }
  };
  if (!line.hasAdvances && spacing == 0) {
    std::string whole;
    for (const TextUnit& unit : line.units) whole += unit.text;
    letters(whole, 0, 1);
  } else {
    double from = 0;
    for (const TextUnit& unit : line.units) {
      const double own = face.Advance(unit.text);
      const double room = unit.advance / width;
      // Letters of a wider font than the one meant must not run into each other.
      const bool tooWide = line.hasAdvances && room > 0 && own > room * 1.1;
      letters(unit.text, from, tooWide ? std::max(narrowest, room / own) : 1);
      from += line.hasAdvances ? room : own + spacing;
    }
  }
  const Ink ink{.kind = Ink::Kind::Solid, .color = state_.textColor};
  if (font.underlined) canvas_.Fill(clip, stripe(0.08, 0.14), FillRule::Winding, ink, copyPen);
  if (font.struckOut) canvas_.Fill(clip, stripe(-0.3, -0.24), FillRule::Winding, ink, copyPen);
  if (updates && across != text_align::centre)
    state_.current.x += (across == text_align::right ? -total : total) * width;
}

}  // namespace lumidex::metafile
