#include "platform/stretch.h"

#include "platform/device_context.h"
#include "platform/resample.h"

#include <algorithm>

namespace {

bool isOffered(const BITMAPINFOHEADER& header) {
    const WORD bits = header.biBitCount;
    return header.biSize == sizeof(header) && header.biPlanes == 1 && header.biCompression == BI_RGB &&
           header.biWidth > 0 && header.biHeight > 0 && (bits == 1 || bits == 4 || bits == 8 || bits == 24);
}

PictureSource sourceOf(const BITMAPINFO& info, const void* bits) {
    const BITMAPINFOHEADER& header = info.bmiHeader;
    PictureSource source;
    source.bits = static_cast<const std::uint8_t*>(bits);
    source.width = header.biWidth;
    source.height = header.biHeight;
    source.bitsPerPixel = header.biBitCount;
    source.stride = (std::size_t{header.biBitCount} * static_cast<std::size_t>(header.biWidth) + 31) / 32 * 4;
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
    if (!context || !bits || !info || !isOffered(info->bmiHeader) || usage != DIB_RGB_COLORS ||
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
