#pragma once
// The library that draws, loaded when it is first needed; see late_library.h.

#include <cairo.h>

#include "pictures/late_library.h"

namespace lumidex {

extern LateLibrary cairoLibrary;

LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_clip);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_close_path);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_copy_path);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_create);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_curve_to);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_destroy);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_fill);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_font_face_destroy);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_font_options_create);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_font_options_destroy);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_font_options_set_antialias);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_font_options_set_hint_metrics);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_font_options_set_hint_style);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_glyph_free);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_identity_matrix);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_image_surface_create);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_image_surface_create_for_data);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_image_surface_get_data);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_image_surface_get_stride);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_line_to);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_mask_surface);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_matrix_init);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_matrix_init_identity);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_matrix_init_scale);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_matrix_invert);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_move_to);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_new_path);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_paint);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_paint_with_alpha);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_path_destroy);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_pattern_add_color_stop_rgb);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_pattern_add_color_stop_rgba);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_pattern_create_for_surface);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_pattern_create_linear);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_pattern_create_rgba);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_pattern_destroy);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_pattern_set_extend);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_pattern_set_filter);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_pattern_set_matrix);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_rectangle);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_reset_clip);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_restore);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_save);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_scaled_font_create);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_scaled_font_destroy);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_scaled_font_extents);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_scaled_font_text_extents);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_scaled_font_text_to_glyphs);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_dash);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_fill_rule);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_font_face);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_font_matrix);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_font_options);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_line_cap);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_line_join);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_line_width);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_matrix);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_miter_limit);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_operator);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_scaled_font);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_source);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_source_rgba);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_source_surface);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_set_tolerance);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_show_text);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_stroke);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_surface_destroy);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_surface_flush);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_surface_mark_dirty);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_surface_set_device_offset);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_text_path);
LUMIDEX_LATE_FUNCTION(cairoLibrary, cairo_toy_font_face_create);

}  // namespace lumidex
