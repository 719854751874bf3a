#include "render/pictures.h"

#include "config/settings.h"
#include "platform/memory.h"
#include "png/png_dib.h"
#include "render/picture_turn.h"
#include "render/primitives.h"
#include "state/file_exists.h"

#include <algorithm>
#include <array>
#include <string>

namespace {

// Background between the banner and the middle of the frame.
constexpr LONG bandBelowBanner = 20;

// Taken off the width that a preview may fill.
constexpr LONG previewMargin = 10;

bool isBrowser() {
    return settings.menuType == menuTypeImageBrowser;
}

std::string artPath(const char* directory, const char* stem) {
    return std::string(directory) + "\\" + stem + ".png";
}

// The file of the game, or of its parent, in one directory; empty when there is none.
std::string findInDirectory(const GameRecord& game, const char* directory) {
    for (const char* stem : {game.name, game.cloneOf}) {
        if (stem) {
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

// A picture of a file, turned, for as long as one drawing operation needs it.
class Picture {
public:
    explicit Picture(const std::string& path) {
        params_.size = pngDibParamsSize;
        params_.fileName = path.c_str();
        if (pngToDib(&params_) == pngDibSuccess) {
            decodedPixels_ = params_.pixels;
            rotateDib(&params_);
        } else {
            params_ = {};
        }
    }
    ~Picture() {
        if (params_.pixels != decodedPixels_) {
            GlobalFree(params_.pixels);
        }
        GlobalFree(params_.dib);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    bool isThere() const { return params_.pixels != nullptr; }
    const BITMAPINFOHEADER& header() const { return info().bmiHeader; }

    void draw(HDC dc, int x, int y, int width, int height) const {
        StretchDIBits(dc, x, y, width, height, 0, 0, header().biWidth, header().biHeight, params_.pixels,
                      &info(), DIB_RGB_COLORS, SRCCOPY);
    }

private:
    const BITMAPINFO& info() const { return *static_cast<const BITMAPINFO*>(params_.dib); }

    PngDibParams params_{};
    BYTE* decodedPixels_ = nullptr;
};

int drawMarquee(HDC dc, const GameRecord& game, const RECT& place) {
    const std::string path = findMarquee(game);
    if (path.empty()) {
        return 1;
    }
    const Picture picture(path);
    if (!picture.isThere()) {
        return 0;
    }
    picture.draw(dc, place.left, place.top, place.right - place.left, place.bottom - place.top);
    return 1;
}

// Moves the start of a picture along the axis across the tiles: away from them where their column reaches
// over the middle of the frame into the picture's area, as far as the area goes.
double clearOfTiles(double start, double size, LONG areaStart, LONG areaEnd, bool tilesBefore) {
    const LONG middle = tilesBefore ? areaStart : areaEnd;
    const LONG columnEnd = settings.previewModeWidth + tileSpacer() * 3 / 2;
    const LONG overhang = isBrowser() ? std::max(columnEnd - middle, 0) : 0;
    if (tilesBefore) {
        return std::min(std::max(start, static_cast<double>(areaStart + overhang)), areaEnd - size);
    }
    return std::max(std::min(start, areaEnd - overhang - size), static_cast<double>(areaStart));
}

struct Origin {
    double x = 0;
    double y = 0;
};

// At 0 the margin shifts a picture to the right, past the middle of its area. On a turned screen it stands in
// the middle, clear of the tiles, which then lie above it, below it or to its right.
Origin previewOrigin(const RECT& area, double width, double height) {
    const double x = area.left + ((area.right - area.left) - width) * 0.5;
    const double y = area.top + ((area.bottom - area.top) - height) * 0.5;
    switch (settings.orientation) {
    case 90:
        return {x, clearOfTiles(y, height, area.top, area.bottom, true)};
    case -90:
        return {x, clearOfTiles(y, height, area.top, area.bottom, false)};
    case 180:
        return {clearOfTiles(x, width, area.left, area.right, false), y};
    default:
        return {area.left + previewMargin + ((area.right - area.left) - width) * 0.5, y};
    }
}

void drawFitted(HDC dc, const Picture& picture, const RECT& area) {
    const double pictureWidth = picture.header().biWidth;
    const double pictureHeight = picture.header().biHeight;
    const double availableWidth = area.right - area.left - previewMargin;
    const double availableHeight = area.bottom - area.top;
    double fitScale = availableWidth / pictureWidth;
    if (pictureHeight * fitScale > availableHeight) {
        fitScale = availableHeight / pictureHeight;
    }
    const double width = pictureWidth * fitScale;
    const double height = pictureHeight * fitScale;
    const Origin origin = previewOrigin(area, width, height);
    picture.draw(dc, static_cast<int>(origin.x), static_cast<int>(origin.y), static_cast<int>(width),
                 static_cast<int>(height));
}

} // namespace

int drawMarqueeBanner(HDC dc, const GameRecord* game, const RECT* area) {
    return drawMarquee(dc, *game, {0, 0, area->right, area->bottom / 2 - bandBelowBanner});
}

int drawMarqueeTile(HDC dc, const GameRecord* game, const RECT* tile) {
    return drawMarquee(dc, *game, *tile);
}

int drawPreviewPicture(HDC dc, const GameRecord* game, const RECT* area, const char* directory,
                       int fallback) {
    const std::string path = findPreview(*game, directory, fallback);
    if (path.empty()) {
        return 1;
    }
    const Picture picture(path);
    if (!picture.isThere()) {
        return 0;
    }
    drawFitted(dc, picture, *area);
    return 1;
}

const char* previewDirectory() {
    switch (settings.previewPictures) {
    case previewScreenShots:
        return settings.snapshotDir;
    case previewTitles:
        return settings.titleDir;
    case previewFlyers:
    case previewMarquees: // marquees are too wide for this place
        return settings.flyerDir;
    default:
        return settings.cabinetDir;
    }
}

RECT browserPictureArea(const RECT& area, BrowserPicture which) {
    const LONG middleX = (area.left + area.right) / 2;
    const LONG middleY = (area.top + area.bottom) / 2;
    const bool upper = which == BrowserPicture::Upper;
    switch (settings.orientation) {
    case 90:
        return {upper ? middleX : area.left, middleY, upper ? area.right : middleX, area.bottom};
    case -90:
        return {upper ? area.left : middleX, area.top, upper ? middleX : area.right, middleY};
    case 180:
        return {area.left, upper ? middleY : area.top, middleX, upper ? area.bottom : middleY};
    default:
        return {middleX, upper ? area.top : middleY, area.right, upper ? middleY : area.bottom};
    }
}
