// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shapes.h"

#include "platform/drawing/context_table.h"
#include "platform/drawing/object_table.h"
#include "platform/fonts/cairo_owners.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

// Coordinates are clamped to this: far beyond every surface, and within cairo's range.
constexpr int maxCoordinate = 100000;

// The centre line of the outline, and the radii of its corners.
struct RoundedPath {
    double left;
    double top;
    double right;
    double bottom;
    double radiusX;
    double radiusY;
};

// The ends of one axis of the rectangle, first <= last.
struct Ends {
    int first;
    int last;
};

Ends endsOf(int a, int b) {
    const int near = std::clamp(a, -maxCoordinate, maxCoordinate);
    const int far = std::clamp(b, -maxCoordinate, maxCoordinate);
    return {std::min(near, far), std::max(near, far)};
}

// Returns the centre of a pen that covers the pixel. An even width covers one pixel more before it than after
// it.
double penCentre(int pixel, int penWidth) {
    return pixel - penWidth / 2 + penWidth * 0.5;
}

void addCorner(cairo_t* cairo, double x, double y, const RoundedPath& path, int quarter) {
    cairo_save(cairo);
    cairo_translate(cairo, x, y);
    cairo_scale(cairo, std::max(path.radiusX, 1e-3), std::max(path.radiusY, 1e-3));
    cairo_arc(cairo, 0, 0, 1, quarter * M_PI_2, (quarter + 1) * M_PI_2);
    cairo_restore(cairo);
}

void addPath(cairo_t* cairo, const RoundedPath& path) {
    cairo_new_path(cairo);
    if (path.radiusX <= 0 || path.radiusY <= 0) {
        cairo_rectangle(cairo, path.left, path.top, path.right - path.left, path.bottom - path.top);
        return;
    }
    addCorner(cairo, path.right - path.radiusX, path.bottom - path.radiusY, path, 0);
    addCorner(cairo, path.left + path.radiusX, path.bottom - path.radiusY, path, 1);
    addCorner(cairo, path.left + path.radiusX, path.top + path.radiusY, path, 2);
    addCorner(cairo, path.right - path.radiusX, path.top + path.radiusY, path, 3);
    cairo_close_path(cairo);
}

void setColor(cairo_t* cairo, COLORREF color) {
    cairo_set_source_rgb(cairo, (color & 0xFF) / 255.0, (color >> 8 & 0xFF) / 255.0,
                         (color >> 16 & 0xFF) / 255.0);
}

void drawPath(Surface& surface, const RoundedPath& path, const Pen& pen, const COLORREF* inside) {
    const CairoSurface target(cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(surface.pixels.get()), CAIRO_FORMAT_RGB24, surface.width,
        surface.height, surface.width * static_cast<int>(sizeof(std::uint32_t))));
    const Cairo cairo(cairo_create(target.get()));
    addPath(cairo.get(), path);
    if (inside) {
        setColor(cairo.get(), *inside);
        cairo_fill_preserve(cairo.get());
    }
    setColor(cairo.get(), pen.color);
    cairo_set_line_width(cairo.get(), pen.width);
    cairo_stroke(cairo.get());
    cairo_surface_flush(target.get());
    const auto first = [&](double place) { return static_cast<std::int64_t>(place) - pen.width; };
    const auto last = [&](double place) { return static_cast<std::int64_t>(place) + pen.width; };
    surface.clearUnusedBytes({first(path.left), first(path.top), last(path.right), last(path.bottom)});
    surface.changed = true;
}

} // namespace

HPEN CreatePen(int style, int width, COLORREF color) {
    return style == PS_SOLID && width >= 0 ? addPen({std::clamp(width, 1, maxCoordinate), color}) : nullptr;
}

HBRUSH CreateBrushIndirect(const LOGBRUSH* description) {
    if (description && description->lbStyle == BS_SOLID) {
        return addBrush(description->lbColor);
    }
    return description && description->lbStyle == BS_HOLLOW ? addHollowBrush() : nullptr;
}

BOOL RoundRect(HDC dc, int left, int top, int right, int bottom, int ellipseWidth, int ellipseHeight) {
    DeviceContext* context = findDeviceContext(dc);
    if (!context) {
        return FALSE;
    }
    const Ends across = endsOf(left, right);
    const Ends down = endsOf(top, bottom);
    if (across.first == across.last || down.first == down.last) {
        return TRUE;
    }
    const Pen& pen = std::get<Pen>(findSelected(context->pen)->content);
    RoundedPath path{};
    path.left = penCentre(across.first, pen.width);
    path.top = penCentre(down.first, pen.width);
    path.right = penCentre(across.last - 1, pen.width);
    path.bottom = penCentre(down.last - 1, pen.width);
    path.radiusX = std::min(std::abs(ellipseWidth * 0.5), (path.right - path.left) / 2);
    path.radiusY = std::min(std::abs(ellipseHeight * 0.5), (path.bottom - path.top) / 2);
    drawPath(*context->surface, path, pen, std::get_if<COLORREF>(&findSelected(context->brush)->content));
    return TRUE;
}
