// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/png_dib.h"

#include "platform/files.h"
#include "platform/memory.h"

#include <png.h>

#include <algorithm>
#include <csetjmp>
#include <cstdint>
#include <cstdio>

namespace {

constexpr std::uint64_t headerBytes = sizeof(BITMAPINFOHEADER);
constexpr std::uint64_t rowAlignment = 4; // bytes

// Limit for the block and libpng's rows together, in bytes. A picture of 6,000 by 8,000 pixels with 24 bits
// fits. A small file can declare a far larger picture; its allocation may succeed, but decoding it would
// exhaust the memory of a small machine.
constexpr std::uint64_t maxMemory = 144ULL << 20;

// libpng holds two rows, with up to four 16-bit samples per pixel.
constexpr std::uint64_t readerBytesPerColumn = 16;

// Chunks with texts and profiles. libpng would keep up to 1,000 of them with 8 MB each. Four letters and a
// zero per name.
constexpr png_byte skippedChunks[] = "eXIf\0iCCP\0iTXt\0pCAL\0sCAL\0sPLT\0tEXt\0zTXt";
constexpr int skippedChunkCount = sizeof(skippedChunks) / 5;

// A larger picture with few bits per pixel would fit in memory, but take seconds to rotate and scale at each
// redraw.
constexpr std::uint64_t maxPixels = 110'000'000;

// Larger than the default of 4 KiB, since reading a file in small pieces takes 1 or 2% of the time to decode
// it.
constexpr std::size_t fileBufferBytes = 32 << 10;

// The state of one call. It is a local variable of the caller of the function with setjmp, so its fields keep
// their values across a longjmp. No object in this record or in the frames that a longjmp leaves may have a
// destructor.
struct Reading {
    std::jmp_buf errorReturn;
    png_structp png;
    png_infop info;
    FILE* file;
    char* fileBuffer; // of fileBufferBytes; outlives the file
    png_bytepp rows;
    BYTE* block;

    png_uint_32 width;
    png_uint_32 height;
    int bitDepth;
    int colorType;
    int bitsPerPixel;
    png_colorp filePalette;
    int paletteCount;
    png_uint_32 pixelsPerMeterX;
    png_uint_32 pixelsPerMeterY;
    std::uint64_t stride;
};

[[noreturn]] void pngErrorCallback(png_structp png, png_const_charp) {
    std::longjmp(static_cast<Reading*>(png_get_error_ptr(png))->errorReturn, -1);
}

void pngWarningCallback(png_structp, png_const_charp) {}

int readHeader(Reading& reading) {
    int interlace = 0;
    png_get_IHDR(reading.png, reading.info, &reading.width, &reading.height, &reading.bitDepth,
                 &reading.colorType, &interlace, nullptr, nullptr);
    switch (reading.colorType) {
    case PNG_COLOR_TYPE_GRAY:
    case PNG_COLOR_TYPE_GRAY_ALPHA:
        reading.bitsPerPixel = std::min(reading.bitDepth, 8);
        reading.paletteCount = 1 << reading.bitsPerPixel;
        break;
    case PNG_COLOR_TYPE_RGB:
    case PNG_COLOR_TYPE_RGB_ALPHA:
        reading.bitsPerPixel = 24;
        png_set_bgr(reading.png);
        break;
    case PNG_COLOR_TYPE_PALETTE:
        reading.bitsPerPixel = reading.bitDepth;
        png_get_PLTE(reading.png, reading.info, &reading.filePalette, &reading.paletteCount);
        break;
    default:
        return pngDibUnknownColorType;
    }
    if (reading.bitsPerPixel == 2) {
        reading.bitsPerPixel = 4; // bitmaps do not support 2 bits per pixel
    }
    return pngDibSuccess;
}

void readResolution(Reading& reading) {
    if (png_get_valid(reading.png, reading.info, PNG_INFO_pHYs) == 0) {
        return;
    }
    png_uint_32 x = 0;
    png_uint_32 y = 0;
    int unit = PNG_RESOLUTION_UNKNOWN;
    png_get_pHYs(reading.png, reading.info, &x, &y, &unit);
    if (unit == PNG_RESOLUTION_METER) {
        reading.pixelsPerMeterX = x;
        reading.pixelsPerMeterY = y;
    }
}

int allocate(Reading& reading, PngDibParams* params) {
    reading.stride =
        (static_cast<std::uint64_t>(reading.bitsPerPixel) * reading.width + 31) / 32 * rowAlignment;
    const auto paletteCount = static_cast<DWORD>(reading.paletteCount);
    const std::uint64_t size = reading.stride * reading.height + 4ULL * paletteCount + headerBytes;
    const std::uint64_t pixels = std::uint64_t{reading.width} * reading.height;
    const std::uint64_t memory =
        size + reading.height * sizeof(png_bytep) + reading.width * readerBytesPerColumn;
    if (memory > maxMemory || pixels > maxPixels) {
        return pngDibOutOfMemory;
    }
    // readPixels clears the padding of the rows; everything else but the header is overwritten.
    reading.block = static_cast<BYTE*>(GlobalAlloc(GMEM_FIXED, size));
    if (!reading.block) {
        return pngDibOutOfMemory;
    }
    *reinterpret_cast<BITMAPINFOHEADER*>(reading.block) = {};
    params->dib = reading.block;
    params->dibSize = static_cast<DWORD>(size);
    reading.rows = static_cast<png_bytepp>(GlobalAlloc(GMEM_FIXED, reading.height * sizeof(png_bytep)));
    if (!reading.rows) {
        return pngDibOutOfMemory;
    }
    params->headerSize = headerBytes;
    params->palette = reinterpret_cast<RGBQUAD*>(reading.block + headerBytes);
    params->pixelOffset = static_cast<DWORD>(headerBytes) + 4 * paletteCount;
    params->paletteCount = paletteCount;
    params->pixels = reading.block + params->pixelOffset;
    return pngDibSuccess;
}

void fillPalette(const Reading& reading, RGBQUAD* palette) {
    for (int i = 0; i < reading.paletteCount; ++i) {
        if (reading.filePalette) {
            const png_color& color = reading.filePalette[i];
            palette[i] = {color.blue, color.green, color.red, 0};
        } else {
            const auto gray = static_cast<BYTE>(i * 255 / (reading.paletteCount - 1));
            palette[i] = {gray, gray, gray, 0};
        }
    }
}

// Expands rows from 2 to 4 bits per pixel, in place.
int widenRows(const Reading& reading) {
    const std::size_t packedBytes = (reading.width + 3) / 4;
    auto* packed = static_cast<BYTE*>(GlobalAlloc(GPTR, packedBytes));
    if (!packed) {
        return pngDibOutOfMemory;
    }
    for (png_uint_32 y = 0; y < reading.height; ++y) {
        BYTE* row = reading.rows[y];
        std::copy_n(row, packedBytes, packed);
        std::fill_n(row, (reading.width + 1) / 2, BYTE{0});
        for (png_uint_32 x = 0; x < reading.width; ++x) {
            const int value = packed[x / 4] >> (2 * (3 - x % 4)) & 3;
            row[x / 2] = static_cast<BYTE>(row[x / 2] | value << (4 * (1 - x % 2)));
        }
    }
    GlobalFree(packed);
    return pngDibSuccess;
}

int readPixels(Reading& reading, const PngDibParams* params) {
    fillPalette(reading, params->palette);
    for (png_uint_32 y = 0; y < reading.height; ++y) {
        reading.rows[y] = params->pixels + (reading.height - 1 - y) * reading.stride;
        std::fill_n(reading.rows[y] + reading.stride - rowAlignment, rowAlignment, BYTE{0}); // the padding
    }
    png_read_image(reading.png, reading.rows);
    return reading.bitDepth == 2 ? widenRows(reading) : pngDibSuccess;
}

void fillHeader(const Reading& reading) {
    auto* header = reinterpret_cast<BITMAPINFOHEADER*>(reading.block);
    header->biSize = headerBytes;
    header->biWidth = static_cast<LONG>(reading.width);
    header->biHeight = static_cast<LONG>(reading.height);
    header->biPlanes = 1;
    header->biBitCount = static_cast<WORD>(reading.bitsPerPixel);
    header->biCompression = BI_RGB;
    header->biSizeImage = static_cast<DWORD>(reading.stride * reading.height);
    header->biXPelsPerMeter = static_cast<LONG>(reading.pixelsPerMeterX);
    header->biYPelsPerMeter = static_cast<LONG>(reading.pixelsPerMeterY);
    header->biClrUsed = static_cast<DWORD>(reading.paletteCount);
}

void releaseRows(Reading& reading) {
    GlobalFree(reading.rows);
    reading.rows = nullptr;
}

void releaseReader(Reading& reading) {
    png_destroy_read_struct(&reading.png, &reading.info, nullptr);
    if (reading.file) {
        std::fclose(reading.file);
        reading.file = nullptr;
    }
}

// The part of the decoding during which libpng may longjmp. On failure the resources stay in `reading`; the
// caller releases them.
int readPicture(Reading& reading, PngDibParams* params) {
    if (setjmp(reading.errorReturn) != 0) {
        return pngDibDamaged;
    }
    reading.file = openBinaryFile(params->fileName);
    if (!reading.file) {
        return pngDibCannotOpen;
    }
    std::setvbuf(reading.file, reading.fileBuffer, _IOFBF, fileBufferBytes);
    png_init_io(reading.png, reading.file);
    png_set_keep_unknown_chunks(reading.png, PNG_HANDLE_CHUNK_NEVER, skippedChunks, skippedChunkCount);
    png_read_info(reading.png, reading.info);
    if (const int result = readHeader(reading)) {
        return result;
    }
    readResolution(reading);
    png_set_strip_alpha(reading.png);
    png_set_strip_16(reading.png);
    if (const int result = allocate(reading, params)) {
        return result;
    }
    if (const int result = readPixels(reading, params)) {
        return result;
    }
    releaseRows(reading);
    png_read_end(reading.png, nullptr);
    return pngDibSuccess;
}

} // namespace

int pngToDib(PngDibParams* params) {
    if (params->size != pngDibParamsSize) {
        return pngDibWrongSize;
    }
    char fileBuffer[fileBufferBytes];
    Reading reading{};
    reading.fileBuffer = fileBuffer;
    reading.png =
        png_create_read_struct(PNG_LIBPNG_VER_STRING, &reading, pngErrorCallback, pngWarningCallback);
    if (!reading.png) {
        return pngDibOutOfMemory;
    }
    reading.info = png_create_info_struct(reading.png);
    if (!reading.info) {
        releaseReader(reading);
        return pngDibOutOfMemory;
    }
    const int result = readPicture(reading, params);
    releaseReader(reading);
    releaseRows(reading);
    if (result == pngDibSuccess) {
        fillHeader(reading);
    } else {
        GlobalFree(reading.block);
        params->dib = nullptr;
    }
    return result;
}
