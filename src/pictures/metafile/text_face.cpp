#include "pictures/metafile/text_face.h"

#include <algorithm>
#include <cmath>

namespace lumidex::metafile {
namespace {

// Large enough that rounding to the font's own grid does not show.
constexpr double measuringSize = 256;

constexpr std::size_t mostFaces = 64;

}  // namespace

CairoFontOptions TextFace::Options() {
  CairoFontOptions options(cairo_font_options_create());
  cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
  return options;
}

TextFace::TextFace(const std::string& family, bool bold, bool italic)
    : face_(cairo_toy_font_face_create(family.c_str(),
                                       italic ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                                       bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL)) {
  cairo_matrix_t size, identity;
  cairo_matrix_init_scale(&size, measuringSize, measuringSize);
  cairo_matrix_init_identity(&identity);
  measuring_.reset(cairo_scaled_font_create(face_.get(), &size, &identity, Options().get()));
  cairo_font_extents_t extents{};
  cairo_scaled_font_extents(measuring_.get(), &extents);
  if (extents.ascent > 0 && extents.descent >= 0) {
    ascent_ = extents.ascent / measuringSize;
    descent_ = extents.descent / measuringSize;
  }
  const double mean = Advance("abcdefghijklmnopqrstuvwxyz") / 26;
  if (mean > 0.05) meanAdvance_ = mean;
}

double TextFace::Advance(const std::string& text) const {
  cairo_text_extents_t extents{};
  cairo_scaled_font_text_extents(measuring_.get(), text.c_str(), &extents);
  return std::isfinite(extents.x_advance) ? extents.x_advance / measuringSize : 0;
}

bool TextFace::Has(const std::string& text) const {
  cairo_glyph_t* glyphs = nullptr;
  int count = 0;
  const cairo_status_t status =
      cairo_scaled_font_text_to_glyphs(measuring_.get(), 0, 0, text.c_str(), static_cast<int>(text.size()),
                                       &glyphs, &count, nullptr, nullptr, nullptr);
  const CairoGlyphs owned(glyphs);
  // Number 0 is the box for what is missing.
  return status == CAIRO_STATUS_SUCCESS &&
         std::none_of(glyphs, glyphs + count, [](const cairo_glyph_t& glyph) { return glyph.index == 0; });
}

Path TextFace::Outline(const std::string& text) const {
  // The text path needs a context, and that a surface; nothing is painted on it.
  const CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1));
  const CairoContext context(cairo_create(surface.get()));
  cairo_set_scaled_font(context.get(), measuring_.get());
  cairo_move_to(context.get(), 0, 0);
  cairo_text_path(context.get(), text.c_str());
  const CairoPath traced(cairo_copy_path(context.get()));
  Path outline;
  for (int i = 0; i < traced->num_data; i += traced->data[i].header.length) {
    const cairo_path_data_t* const item = &traced->data[i];
    const auto point = [&](int index) {
      return Point{item[index].point.x / measuringSize, item[index].point.y / measuringSize};
    };
    switch (item->header.type) {
      case CAIRO_PATH_MOVE_TO:
        outline.MoveTo(point(1));
        break;
      case CAIRO_PATH_LINE_TO:
        outline.LineTo(point(1));
        break;
      case CAIRO_PATH_CURVE_TO:
        outline.CurveTo(point(1), point(2), point(3));
        break;
      case CAIRO_PATH_CLOSE_PATH:
        outline.Close();
        break;
    }
  }
  return outline;
}

const TextFace& TextFaces::Get(const std::string& family, bool bold, bool italic) {
  const std::tuple wanted(family, bold, italic);
  if (const auto found = faces_.find(wanted); found != faces_.end()) return found->second;
  const std::tuple key =
      faces_.size() < mostFaces ? wanted : std::tuple(std::string("sans-serif"), bold, italic);
  return faces_.try_emplace(key, std::get<0>(key), bold, italic).first->second;
}

bool TextFaces::IsInstalled(const std::string& family) {
  if (const auto found = installed_.find(family); found != installed_.end()) return found->second;
  if (installed_.size() >= mostFaces) return true;
  constexpr const char* letters = "Hamburgefonstiv 0123456789";
  const TextFace& face = Get(family, false, false);
  const TextFace& anyFace = Get("a family that is not there", false, false);
  const bool same = face.Ascent() == anyFace.Ascent() && face.Descent() == anyFace.Descent() &&
                    face.Advance(letters) == anyFace.Advance(letters);
  return installed_[family] = !same;
}

}  // namespace lumidex::metafile

#if defined(__SANITIZE_ADDRESS__)
#define LUMIDEX_LEAK_CHECKED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define LUMIDEX_LEAK_CHECKED
#endif
#endif

#ifdef LUMIDEX_LEAK_CHECKED
// The renderer keeps the fonts it used for the next time, and the font matcher links their descriptions by
// distances instead of pointers, which the leak checker can not follow.
// NOLINTBEGIN(bugprone-reserved-identifier): the leak checker fixes the name.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig\n";
}
// NOLINTEND(bugprone-reserved-identifier)
#endif
