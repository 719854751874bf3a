// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/pictures.h"

#include "app/game_files.h"
#include "config/settings.h"
#include "platform/device_contexts.h"
#include "platform/drawing.h"
#include "platform/drawing_objects.h"
#include "platform/memory.h"
#include "png/png_dib.h"
#include "render/picture_turn.h"
#include "render/primitives.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace {

// Pixels subtracted from the width that a preview may fill.
constexpr LONG previewMargin = 10;

std::string artPath(const char* directory, const char* stem) {
    return std::string(directory) + "\\" + stem + ".png";
}

// Returns the path of the file of the game, or else of its parent, in one directory; empty when there is
// none.
std::string findInDirectory(const GameRecord& game, const char* directory) {
    for (const char* stem : {game.name, game.cloneOf}) {
        if (staysInFolder(stem)) {
            std::string path = artPath(directory, stem);
            if (fileExists(path.c_str())) {
                return path;
            }
        }
    }
    return {};
}

std::string findMarquee(const GameRecord& game) {
    std::string path = findInDirectory(game, settings.marqueeDir);
    if (path.empty()) {
        path = artPath(settings.marqueeDir, "generic");
        if (!fileExists(path.c_str())) {
            path.clear();
        }
    }
    return path;
}

std::string findPreview(const GameRecord& game, const char* directory, int fallback) {
    std::string path = findInDirectory(game, directory);
    const std::array<const char*, 4> others = {settings.cabinetDir, settings.snapshotDir, settings.flyerDir,
                                               settings.titleDir};
    for (std::size_t i = 0; fallback == 1 && path.empty() && i < others.size(); ++i) {
        path = findInDirectory(game, others[i]);
    }
    return path;
}

// Turning needs a second block of memory. Larger pictures are stretched to their final size before they are
// turned.
constexpr DWORD turnedSizeLimit = 32 << 20; // bytes: 11 million pixels in 24 bits

// A decoded picture; exists during one drawing operation.
struct DecodedPicture {
    PngDibParams params; // owns the decoded block
    BYTE* rotatedPixels; // owned; null at rotation 0 and before a large picture is turned
    bool turned;
    LONG width; // pixels after turning
    LONG height;
};

void releasePicture(DecodedPicture& picture) {
    GlobalFree(picture.rotatedPixels);
    GlobalFree(picture.params.dib);
}

// Returns 0 when out of memory; the picture must be released in either case.
int turnPicture(DecodedPicture& picture) {
    const BYTE* decodedPixels = picture.params.pixels;
    rotateDib(&picture.params);
    picture.rotatedPixels = picture.params.pixels != decodedPixels ? picture.params.pixels : nullptr;
    picture.turned = true;
    return picture.params.pixels ? 1 : 0;
}

// Returns 0, with nothing to release, when the file cannot be displayed.
int decodePicture(PngDibParams& params, const std::string& path) {
    params.size = pngDibParamsSize;
    params.fileName = path.c_str();
    return pngToDib(&params) == pngDibSuccess ? 1 : 0;
}

// Likewise.
int loadPicture(DecodedPicture& picture, const std::string& path) {
    picture = {};
    if (!decodePicture(picture.params, path)) {
        return 0;
    }
    const auto* header = static_cast<const BITMAPINFOHEADER*>(picture.params.dib);
    picture.width = header->biWidth;
    picture.height = header->biHeight;
    if (isQuarterTurn(settings.orientation)) {
        std::swap(picture.width, picture.height);
    }
    picture.turned = settings.orientation == 0;
    if (picture.params.dibSize <= turnedSizeLimit && !turnPicture(picture)) {
        releasePicture(picture);
        return 0;
    }
    return 1;
}

// Returns 0 when a large picture cannot be turned for lack of memory.
int stretchPicture(HDC dc, DecodedPicture& picture, int x, int y, int width, int height) {
    if (!picture.turned) {
        const bool quarter = isQuarterTurn(settings.orientation);
        if (!resizeDib(dc, &picture.params, quarter ? height : width, quarter ? width : height) ||
            !turnPicture(picture)) {
            return 0;
        }
    }
    const auto* info = static_cast<const BITMAPINFO*>(picture.params.dib);
    StretchDIBits(dc, x, y, width, height, 0, 0, info->bmiHeader.biWidth, info->bmiHeader.biHeight,
                  picture.params.pixels, info, DIB_RGB_COLORS, SRCCOPY);
    return 1;
}

int drawMarquee(HDC dc, const GameRecord& game, const RECT& target) {
    const std::string path = findMarquee(game);
    if (path.empty()) {
        return 1;
    }
    DecodedPicture picture;
    if (!loadPicture(picture, path)) {
        return 0;
    }
    const int drawn = stretchPicture(dc, picture, target.left, target.top, target.right - target.left,
                                     target.bottom - target.top);
    releasePicture(picture);
    return drawn;
}

int drawFitted(HDC dc, DecodedPicture& picture, const RECT& area, const PicturePlacement& placement) {
    const double pictureWidth = picture.width;
    const double pictureHeight = picture.height;
    const double availableWidth = area.right - area.left - previewMargin;
    const double availableHeight = area.bottom - area.top;
    double fitScale = availableWidth / pictureWidth;
    if (pictureHeight * fitScale > availableHeight) {
        fitScale = availableHeight / pictureHeight;
    }
    const double width = pictureWidth * fitScale;
    const double height = pictureHeight * fitScale;
    const SIZE size{static_cast<int>(width), static_cast<int>(height)};
    if (settings.orientation != 0) {
        const RECT target = placePicture(placement, size);
        return stretchPicture(dc, picture, target.left, target.top, size.cx, size.cy);
    }
    const double x = area.left + previewMargin + ((area.right - area.left) - width) * 0.5;
    const double y = area.top + (availableHeight - height) * 0.5;
    return stretchPicture(dc, picture, static_cast<int>(x), static_cast<int>(y), size.cx, size.cy);
}

// The rectangle, as read, in which a picture of the given proportions is whole and as large as possible. It
// is in the middle of the place, less the margin at the beginning of the lines, or further by that margin
// where there is room, as drawFitted centres it.
RECT rectInside(const RECT& place, LONG margin, SIZE picture) {
    const SIZE read = sizeAsRead(place);
    const double scale = std::min(static_cast<double>(read.cx - margin) / picture.cx,
                                  static_cast<double>(read.cy) / picture.cy);
    const double width = picture.cx * scale;
    const double height = picture.cy * scale;
    const SIZE size{static_cast<int>(width), static_cast<int>(height)};
    const LONG x = std::min(static_cast<LONG>(margin + (read.cx - width) * 0.5), read.cx - size.cx);
    const LONG y = static_cast<LONG>((read.cy - height) * 0.5);
    return {x, y, x + size.cx, y + size.cy};
}

void stretchTo(HDC dc, const RECT& target, const PngDibParams& picture) {
    const auto* info = static_cast<const BITMAPINFO*>(picture.dib);
    StretchDIBits(dc, target.left, target.top, target.right - target.left, target.bottom - target.top, 0, 0,
                  info->bmiHeader.biWidth, info->bmiHeader.biHeight, picture.pixels, info, DIB_RGB_COLORS,
                  SRCCOPY);
}

// Stretches the picture before turning it, since turning the pixels of a canvas is cheaper than turning those
// of a bitmap of 24 bits. Works in strips that stay in the processor's cache.
void stretchTurned(HDC dc, const RECT& place, const RECT& read, const PngDibParams& picture) {
    constexpr LONG stripPixels = 1 << 17; // 512 KiB
    const SIZE size{read.right - read.left, read.bottom - read.top};
    const LONG rows = std::clamp(stripPixels / std::max(size.cx, 1), 1, std::max(size.cy, 1));
    const HDC canvas = CreateCompatibleDC(dc);
    const HBITMAP bitmap = CreateCompatibleBitmap(dc, size.cx, rows);
    const HGDIOBJ previous = SelectObject(canvas, bitmap);
    for (LONG top = 0; previous && top < size.cy; top += rows) {
        const LONG bottom = std::min(top + rows, size.cy);
        stretchTo(canvas, {0, -top, size.cx, size.cy - top}, picture);
        const POINT corners[] = {textOrigin(place, read.left, read.top + top),
                                 textOrigin(place, read.right, read.top + top),
                                 textOrigin(place, read.left, read.top + bottom)};
        PlgBlt(dc, corners, canvas, 0, 0, size.cx, bottom - top, nullptr, 0, 0);
    }
    SelectObject(canvas, previous);
    DeleteObject(bitmap);
    DeleteDC(canvas);
}

// Fills the part of the place that is outside the rectangle as read.
void fillAround(HDC dc, const RECT& place, const RECT& read, COLORREF color) {
    const SIZE size = sizeAsRead(place);
    const RECT parts[] = {{0, 0, size.cx, read.top},
                          {0, read.top, read.left, read.bottom},
                          {read.right, read.top, size.cx, read.bottom},
                          {0, read.bottom, size.cx, size.cy}};
    for (const RECT& part : parts) {
        fillRect(dc, turnedRect(place, part), color);
    }
}

// Fills no pixel twice: that takes a noticeable part of the time of a redraw.
int drawInside(HDC dc, const std::string& path, const RECT& place, LONG margin, const COLORREF* background) {
    PngDibParams picture{};
    if (path.empty() || !decodePicture(picture, path)) {
        if (background) {
            fillRect(dc, place, *background);
        }
        return path.empty() ? 1 : 0;
    }
    const auto* header = static_cast<const BITMAPINFOHEADER*>(picture.dib);
    const RECT read = rectInside(place, margin, {header->biWidth, header->biHeight});
    if (background) {
        fillAround(dc, place, read, *background);
    }
    if (settings.orientation == 0) {
        stretchTo(dc, turnedRect(place, read), picture);
    } else {
        stretchTurned(dc, place, read, picture);
    }
    GlobalFree(picture.dib);
    return 1;
}

} // namespace

int drawMarqueeBanner(HDC dc, const GameRecord* game, const RECT* area) {
    return drawMarquee(dc, *game, {0, 0, area->right, area->bottom / 2 - bandBelowBanner});
}

int drawMarqueeTile(HDC dc, const GameRecord* game, const RECT* tile) {
    return drawMarquee(dc, *game, *tile);
}

int drawMarqueeInside(HDC dc, const GameRecord* game, const RECT* place, const COLORREF* background) {
    return drawInside(dc, findMarquee(*game), *place, 0, background);
}

int drawPreviewInside(HDC dc, const GameRecord* game, const RECT* place, const char* directory, int fallback,
                      const COLORREF* background) {
    return drawInside(dc, findPreview(*game, directory, fallback), *place, previewMargin, background);
}

int drawPreviewPicture(HDC dc, const GameRecord* game, const RECT* area, const char* directory, int fallback,
                       const PicturePlacement& placement) {
    const std::string path = findPreview(*game, directory, fallback);
    if (path.empty()) {
        return 1;
    }
    DecodedPicture picture;
    if (!loadPicture(picture, path)) {
        return 0;
    }
    const int drawn = drawFitted(dc, picture, *area, placement);
    releasePicture(picture);
    return drawn;
}

const char* previewDirectory() {
    switch (settings.previewPictures) {
    case previewScreenShots:
        return settings.snapshotDir;
    case previewTitles:
        return settings.titleDir;
    case previewFlyers:
    case previewMarquees: // marquees are too wide for the preview area
        return settings.flyerDir;
    default:
        return settings.cabinetDir;
    }
}
