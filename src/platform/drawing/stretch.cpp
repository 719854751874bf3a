// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/stretch.h"

#include "platform/drawing.h"
#include "platform/drawing/context_table.h"
#include "platform/drawing/object_table.h"
#include "platform/drawing/resample.h"

#include <algorithm>

namespace {

bool isSupported(const BITMAPINFOHEADER& header) {
    const WORD bits = header.biBitCount;
    return header.biSize == sizeof(header) && header.biPlanes == 1 && header.biCompression == BI_RGB &&
           header.biWidth > 0 && header.biHeight > 0 && (bits == 1 || bits == 4 || bits == 8 || bits == 24);
}

std::size_t strideOf(const BITMAPINFOHEADER& header) {
    return (std::size_t{header.biBitCount} * static_cast<std::size_t>(header.biWidth) + 31) / 32 * 4;
}

PictureSource sourceOf(const BITMAPINFO& info, const void* bits) {
    const BITMAPINFOHEADER& header = info.bmiHeader;
    PictureSource source;
    source.bits = static_cast<const std::uint8_t*>(bits);
    source.width = header.biWidth;
    source.height = header.biHeight;
    source.bitsPerPixel = header.biBitCount;
    source.stride = strideOf(header);
    if (source.bitsPerPixel <= 8) {
        const DWORD most = 1U << source.bitsPerPixel;
        const DWORD count = header.biClrUsed == 0 ? most : std::min(header.biClrUsed, most);
        const RGBQUAD* colors = info.bmiColors;
        std::transform(colors, colors + count, source.palette.begin(), [](const RGBQUAD& color) {
            return static_cast<std::uint32_t>(color.rgbRed << 16 | color.rgbGreen << 8 | color.rgbBlue);
        });
    }
    return source;
}

} // namespace

int StretchDIBits(HDC dc, int x, int y, int width, int height, int sourceX, int sourceY, int sourceWidth,
                  int sourceHeight, const void* bits, const BITMAPINFO* info, UINT usage, DWORD operation) {
    DeviceContext* context = findDeviceContext(dc);
    if (!context || !bits || !info || !isSupported(info->bmiHeader) || usage != DIB_RGB_COLORS ||
        operation != SRCCOPY) {
        return 0;
    }
    const bool whole = sourceX == 0 && sourceY == 0 && sourceWidth == info->bmiHeader.biWidth &&
                       sourceHeight == info->bmiHeader.biHeight;
    if (!whole || width < 1 || height < 1) {
        return 0;
    }
    resample(sourceOf(*info, bits), {x, y, width, height}, *context->surface);
    return sourceHeight;
}

int GetDIBits(HDC, HBITMAP bitmap, UINT firstRow, UINT rows, void* bits, const BITMAPINFO* info, UINT usage) {
    const GdiObject* object = findObject(bitmap);
    const auto* surface = object ? std::get_if<Surface>(&object->content) : nullptr;
    if (!surface || !bits || !info || !isSupported(info->bmiHeader) || usage != DIB_RGB_COLORS) {
        return 0;
    }
    const BITMAPINFOHEADER& header = info->bmiHeader;
    if (header.biBitCount != 24 || header.biWidth != surface->width || header.biHeight != surface->height ||
        firstRow != 0 || rows != static_cast<UINT>(surface->height)) {
        return 0;
    }
    auto* line = static_cast<std::uint8_t*>(bits);
    for (int y = surface->height - 1; y >= 0; --y, line += strideOf(header)) {
        std::uint8_t* byte = line;
        for (int x = 0; x < surface->width; ++x, byte += 3) {
            const std::uint32_t pixel = surface->row(y)[x];
            byte[0] = static_cast<std::uint8_t>(pixel);
            byte[1] = static_cast<std::uint8_t>(pixel >> 8);
            byte[2] = static_cast<std::uint8_t>(pixel >> 16);
        }
    }
    return surface->height;
}
