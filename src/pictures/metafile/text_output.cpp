#include "pictures/metafile/text_output.h"

#include <algorithm>
#include <numbers>

#include "pictures/metafile/font_matching.h"
#include "pictures/metafile/symbol_fonts.h"

namespace lumidex::metafile {
namespace {

// A font in place of the one meant may run wider than the letters' given places; it is narrowed, but not
// below this.
constexpr double narrowest = 0.6;

constexpr double perText = 20000;
// Measuring a letter.
constexpr double perUnit = 2000;
// Following a letter's outline.
constexpr double perOutlinedLetter = 10000;

Ink Solid(std::uint32_t colour) {
  return {.kind = Ink::Kind::Solid, .colour = colour};
}

}  // namespace

// From ems to the sheet, with the pen at `at`. Text stays upright where only the page is mirrored: its y axis
// growing upwards does not turn letters over, but it does turn lines the other way round.
Matrix TextOutput::TextMatrix(double width, double height, Point at) const {
  const Matrix page = context_.PageToDevice().Then(context_.GetDevice().toSheet);
  const Matrix& world = context_.State().world;
  const Matrix upright{.xx = std::abs(page.xx), .yy = std::abs(page.yy)};
  const bool mirrored = page.xx * page.yy < 0;
  Matrix placed = Matrix{.xx = world.xx, .yx = world.yx, .xy = world.xy, .yy = world.yy}.Then(upright);
  if (placed.Determinant() < 0) placed = Matrix{.yy = -1}.Then(placed);
  const double turn = context_.State().font.escapement / 10 * std::numbers::pi / 180 * (mirrored ? 1 : -1);
  const double cosine = std::cos(turn), sine = std::sin(turn);
  Matrix result = Matrix{.xx = width, .yy = height}
                      .Then({.xx = cosine, .yx = sine, .xy = -sine, .yy = cosine})
                      .Then(placed);
  const Point origin = context_.LogicalToSheet().Apply(at);
  result.x0 = origin.x;
  result.y0 = origin.y;
  return result;
}

double TextOutput::EmHeight(const TextFace& face) const {
  const double height = context_.State().font.height;
  if (height == 0) return 12 / std::max(1e-6, std::abs(context_.PageToDevice().yy));
  return height > 0 ? height / (face.Ascent() + face.Descent()) : -height;
}

double TextOutput::EmWidth(const TextFace& face) const {
  const double width = std::abs(context_.State().font.width);
  return width != 0 ? width / face.MeanAdvance() : EmHeight(face);
}

double TextOutput::WidthOf(const std::string& text) {
  if (!context_.Budget().Spend(perUnit)) return 0;
  const TextFace& face = MatchingFace(faces_, context_.State().font, text);
  return face.Advance(text) * EmWidth(face);
}

double TextOutput::SpacingOf(const TextUnit& unit) const {
  const DeviceState& state = context_.State();
  return state.letterSpacing + (unit.text == " " ? state.blankSpacing : 0);
}

void TextOutput::Draw(TextLine line) {
  if (line.fillBox) FillBox(line);
  if (line.units.empty() ||
      !context_.Budget().Spend(perText + perUnit * static_cast<double>(line.units.size())))
    return;
  const DeviceState& state = context_.State();
  Clip clip = state.clip;
  if (line.clipToBox)
    context_.GetCanvas().CombineClip(clip, state.base, context_.SheetBox(line.box), FillRule::Winding,
                                     ClipMode::And);

  std::string whole;
  for (const TextUnit& unit : line.units) whole += unit.text;
  const TextFace& face = MatchingFace(faces_, state.font, whole);
  if (IsSymbolFont(state.font.family)) {
    whole.clear();
    for (TextUnit& unit : line.units) {
      if (!face.Has(unit.text)) unit.text = " ";
      whole += unit.text;
    }
  }
  Setting setting{.face = face, .width = EmWidth(face), .height = EmHeight(face), .clip = clip};
  if (!(setting.width > 0) || !(setting.height > 0)) return;
  setting.length = Fit(line, setting);
  setting.toSheet = PlaceOf(line, setting);

  if (state.opaqueBackground && !line.fillBox && !bracket_.IsOpen())
    FillStripe(-face.Ascent(), face.Descent(), state.backgroundColour, setting);
  DrawLetters(line, whole, setting);
  if (state.font.underlined) FillStripe(0.08, 0.14, state.textColour, setting);
  if (state.font.struckOut) FillStripe(-0.3, -0.24, state.textColour, setting);
  if ((state.textAlign & text_align::updatePosition) != 0) MoveBehind(setting);
}

void TextOutput::FillBox(const TextLine& line) {
  const DeviceState& state = context_.State();
  context_.GetCanvas().Fill(state.clip, context_.SheetBox(line.box), FillRule::Winding,
                            Solid(state.backgroundColour), copyPen);
}

double TextOutput::Fit(const TextLine& line, Setting& setting) const {
  double given = 0, natural = 0;
  for (const TextUnit& unit : line.units) {
    natural += setting.face.Advance(unit.text);
    given += unit.advance / setting.width;
  }
  if (!line.hasAdvances) {
    for (const TextUnit& unit : line.units) natural += SpacingOf(unit) / setting.width;
    return natural;
  }
  if (!(given > 0 && natural > given * 1.02 && line.units.size() > 1)) return given;
  const double narrowed = std::max(narrowest, given / natural);
  setting.width *= narrowed;
  return given / narrowed;
}

Matrix TextOutput::PlaceOf(const TextLine& line, const Setting& setting) const {
  const DeviceState& state = context_.State();
  const unsigned across = state.textAlign & text_align::horizontalMask;
  const unsigned down = state.textAlign & text_align::verticalMask;
  const bool fromPosition = (state.textAlign & text_align::updatePosition) != 0;
  const double x = across == text_align::centre  ? -setting.length / 2
                   : across == text_align::right ? -setting.length
                                                 : 0;
  const double y = down == text_align::baseline ? 0
                   : down == text_align::bottom ? -setting.face.Descent()
                                                : setting.face.Ascent();
  return Matrix{.x0 = x, .y0 = y}.Then(
      TextMatrix(setting.width, setting.height, fromPosition ? state.current : line.at));
}

void TextOutput::FillStripe(double top, double bottom, std::uint32_t colour, const Setting& setting) {
  const Path stripe = Path::OfBox({0, top, setting.length, bottom});
  context_.GetCanvas().Fill(setting.clip, stripe.Transformed(setting.toSheet), FillRule::Winding,
                            Solid(colour), copyPen);
}

void TextOutput::DrawLetters(const TextLine& line, const std::string& whole, const Setting& setting) {
  const DeviceState& state = context_.State();
  const bool spaced = state.letterSpacing != 0 || state.blankSpacing != 0;
  if (!line.hasAdvances && !spaced) return DrawLetters(whole, {}, 1, setting);
  Point from;
  for (const TextUnit& unit : line.units) {
    const double own = setting.face.Advance(unit.text);
    const double room = unit.advance / setting.width;
    // Letters of a wider font than the one meant must not run into each other.
    const bool tooWide = line.hasAdvances && room > 0 && own > room * 1.1;
    DrawLetters(unit.text, from, tooWide ? std::max(narrowest, room / own) : 1, setting);
    from.y -= unit.rise / setting.height;
    from.x += line.hasAdvances ? room : own + SpacingOf(unit) / setting.width;
  }
}

void TextOutput::DrawLetters(const std::string& text, Point from, double narrowing, const Setting& setting) {
  const Matrix place = Matrix{.xx = narrowing, .x0 = from.x, .y0 = from.y}.Then(setting.toSheet);
  if (!bracket_.IsOpen()) {
    context_.GetCanvas().DrawText(setting.clip, setting.face, text, place, context_.State().textColour);
  } else if (context_.Budget().Spend(perOutlinedLetter * static_cast<double>(text.size()))) {
    bracket_.Add(setting.face.Outline(text).Transformed(place), false);
  }
}

// The current position goes to the end of the line from which the next would go on.
void TextOutput::MoveBehind(const Setting& setting) {
  DeviceState& state = context_.State();
  const unsigned across = state.textAlign & text_align::horizontalMask;
  const Matrix map = context_.LogicalToSheet();
  if (across == text_align::centre || !map.IsUsable()) return;
  const Point start = setting.toSheet.Apply({0, 0}), end = setting.toSheet.Apply({setting.length, 0});
  const Point by = across == text_align::right ? Point{start.x - end.x, start.y - end.y}
                                               : Point{end.x - start.x, end.y - start.y};
  const double size = map.Determinant();
  state.current.x += (map.yy * by.x - map.xy * by.y) / size;
  state.current.y += (map.xx * by.y - map.yx * by.x) / size;
}

}  // namespace lumidex::metafile
