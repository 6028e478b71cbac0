#pragma once
// Owning handles for the renderer's objects.

#include <memory>

#include "pictures/late_cairo.h"

namespace lumidex::metafile {

struct CairoRelease {
  void operator()(cairo_t* context) const { cairo_destroy(context); }
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
  void operator()(cairo_font_face_t* face) const { cairo_font_face_destroy(face); }
  void operator()(cairo_scaled_font_t* font) const { cairo_scaled_font_destroy(font); }
  void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
  void operator()(cairo_glyph_t* glyphs) const { cairo_glyph_free(glyphs); }
  void operator()(cairo_path_t* path) const { cairo_path_destroy(path); }
};

using CairoContext = std::unique_ptr<cairo_t, CairoRelease>;
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoRelease>;
using CairoPattern = std::unique_ptr<cairo_pattern_t, CairoRelease>;
using CairoFontFace = std::unique_ptr<cairo_font_face_t, CairoRelease>;
using CairoScaledFont = std::unique_ptr<cairo_scaled_font_t, CairoRelease>;
using CairoFontOptions = std::unique_ptr<cairo_font_options_t, CairoRelease>;
using CairoGlyphs = std::unique_ptr<cairo_glyph_t, CairoRelease>;
using CairoPath = std::unique_ptr<cairo_path_t, CairoRelease>;

}  // namespace lumidex::metafile
