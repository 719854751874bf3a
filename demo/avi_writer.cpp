// SPDX-License-Identifier: GPL-3.0-or-later
#include "avi_writer.h"

#include "riff.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <jpeglib.h>

namespace {

constexpr int quality = 80;
constexpr std::uint32_t hasIndex = 0x10;
constexpr std::uint32_t interleaved = 0x100;
constexpr std::uint32_t keyFrame = 0x10;

std::string jpegOf(const AviFormat& format, const std::vector<std::uint32_t>& pixels) {
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char* data = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &data, &size);
    jpeg.image_width = static_cast<JDIMENSION>(format.width);
    jpeg.image_height = static_cast<JDIMENSION>(format.height);
    jpeg.input_components = 3;
    jpeg.in_color_space = JCS_RGB;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, quality, TRUE);
    jpeg_start_compress(&jpeg, TRUE);
    std::vector<JSAMPLE> row;
    for (int y = 0; y < format.height; ++y) {
        row.clear();
        for (int x = 0; x < format.width; ++x) {
            std::uint32_t pixel =
                pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(format.width) +
                       static_cast<std::size_t>(x)];
            for (int shift : {16, 8, 0}) {
                row.push_back(static_cast<JSAMPLE>(pixel >> shift));
            }
        }
        JSAMPROW start = row.data();
        jpeg_write_scanlines(&jpeg, &start, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    std::string result(reinterpret_cast<char*>(data), size);
    std::free(data);
    return result;
}

std::string pictureFormat(const AviFormat& format) {
    std::string text;
    appendNumber(text, 40, 4);
    appendNumber(text, static_cast<std::uint32_t>(format.width), 4);
    appendNumber(text, static_cast<std::uint32_t>(format.height), 4);
    appendNumber(text, 1, 2);
    appendNumber(text, 24, 2);
    text += "MJPG";
    appendNumber(text, static_cast<std::uint32_t>(format.width * format.height * 3), 4);
    return text + std::string(16, '\0');
}

struct StreamHeader {
    const char* kind;
    const char* coding;
    std::uint32_t scale;
    std::uint32_t rate;
    std::uint32_t length;
    std::uint32_t sampleSize;
};

std::string streamList(const StreamHeader& stream, const std::string& streamFormat) {
    std::string text =
        std::string(stream.kind) + stream.coding + std::string(16 - std::strlen(stream.coding), '\0');
    for (std::uint32_t number :
         {stream.scale, stream.rate, 0U, stream.length, 0U, 0xFFFFFFFFU, stream.sampleSize}) {
        appendNumber(text, number, 4);
    }
    text += std::string(8, '\0');
    return riffList("strl", riffChunk("strh", text) + riffChunk("strf", streamFormat));
}

} // namespace

void AviWriter::addChunk(const char* name, const std::string& data) {
    index_ += name;
    appendNumber(index_, keyFrame, 4);
    appendNumber(index_, static_cast<std::uint32_t>(chunks_.size()) + 4, 4);
    appendNumber(index_, static_cast<std::uint32_t>(data.size()), 4);
    chunks_ += riffChunk(name, data);
}

void AviWriter::addPicture(const std::vector<std::uint32_t>& pixels) {
    addChunk("00dc", jpegOf(format_, pixels));
    ++pictures_;
}

void AviWriter::addSound(const std::vector<std::int16_t>& samples) {
    std::string data;
    for (std::int16_t sample : samples) {
        appendNumber(data, static_cast<std::uint16_t>(sample), 2);
    }
    soundBytes_ += static_cast<std::uint32_t>(data.size());
    addChunk("01wb", data);
}

std::string AviWriter::header() const {
    std::string text;
    const auto rate = static_cast<std::uint32_t>(format_.framesPerSecond);
    const std::uint32_t streams = format_.soundRate > 0 ? 2 : 1;
    for (std::uint32_t number : {1'000'000U / rate, 0U, 0U, hasIndex | interleaved, pictures_, 0U, streams,
                                 0U, static_cast<std::uint32_t>(format_.width),
                                 static_cast<std::uint32_t>(format_.height), 0U, 0U, 0U, 0U}) {
        appendNumber(text, number, 4);
    }
    std::string lists = riffChunk("avih", text);
    lists += streamList({"vids", "MJPG", 1, rate, pictures_, 0}, pictureFormat(format_));
    if (format_.soundRate > 0) {
        const auto soundRate = static_cast<std::uint32_t>(format_.soundRate);
        lists += streamList({"auds", "", 1, soundRate, soundBytes_ / 2, 2}, pcmFormat(soundRate, 1));
    }
    return riffList("hdrl", lists);
}

std::string AviWriter::content() const {
    return riffChunk("RIFF", "AVI " + header() + riffList("movi", chunks_) + riffChunk("idx1", index_));
}
