// SPDX-License-Identifier: GPL-3.0-or-later
// unique_ptr types for cairo's objects. Included by the font loading, text and shape code.
#pragma once

#include <cairo.h>

#include <memory>

template <auto destroy> struct DestroyCairoObject {
    template <typename Object> void operator()(Object* object) const { destroy(object); }
};

using Cairo = std::unique_ptr<cairo_t, DestroyCairoObject<cairo_destroy>>;
using CairoSurface = std::unique_ptr<cairo_surface_t, DestroyCairoObject<cairo_surface_destroy>>;
using CairoFontFace = std::unique_ptr<cairo_font_face_t, DestroyCairoObject<cairo_font_face_destroy>>;
using CairoScaledFont = std::unique_ptr<cairo_scaled_font_t, DestroyCairoObject<cairo_scaled_font_destroy>>;
using CairoFontOptions =
    std::unique_ptr<cairo_font_options_t, DestroyCairoObject<cairo_font_options_destroy>>;
