// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/wave_sound.h"

#include "platform/files/file_io.h"
#include "platform/sound/wave_header.h"

#include <SDL.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <optional>

namespace {

constexpr std::uint64_t maxSoundBytes = std::uint64_t{64} << 20; // after conversion

// Bytes of the file that are searched for the header, since tags and pictures may precede the sound data.
constexpr std::size_t maxHeaderBytes = std::size_t{1} << 20;

constexpr std::size_t pieceBytes = std::size_t{64} << 10;

// Reads `size` bytes, or fewer at the end of the file or after a read error.
std::string readPart(const FileDescriptor& file, std::size_t size) {
    std::string part(size, '\0');
    std::size_t filled = 0;
    std::ptrdiff_t length = 0;
    do {
        length = readSome(file.number(), part.data() + filled, size - filled);
        filled += static_cast<std::size_t>(std::max<std::ptrdiff_t>(length, 0));
    } while (length > 0 && filled < size);
    part.resize(filled);
    return part;
}

void appendNumber(std::string& text, std::size_t number, int bytes) {
    for (int index = 0; index < bytes; ++index) {
        text += static_cast<char>(number >> (8 * index) & 0xFF);
    }
}

void appendChunk(std::string& text, const char* name, const std::string& content) {
    text += name;
    appendNumber(text, content.size(), 4);
    text += content;
}

// Wraps some blocks of the sound in a complete wave file built from the validated header only, so that the
// decoder never sees unchecked bytes of the original header.
std::string pieceFile(const WaveHeader& header, const std::string& blocks) {
    const auto frequency = static_cast<std::size_t>(header.frequency);
    const auto blockBytes = static_cast<std::size_t>(header.blockBytes);
    std::string format;
    appendNumber(format, static_cast<std::size_t>(header.coding), 2);
    appendNumber(format, static_cast<std::size_t>(header.channels), 2);
    appendNumber(format, frequency, 4);
    appendNumber(format, frequency * blockBytes / static_cast<std::size_t>(header.blockFrames), 4);
    appendNumber(format, blockBytes, 2);
    appendNumber(format, static_cast<std::size_t>(header.bits), 2);
    format += header.extension;
    format.resize(format.size() + format.size() % 2);
    std::string content = "WAVE";
    appendChunk(content, "fmt ", format);
    appendChunk(content, "data", blocks);
    std::string file;
    appendChunk(file, "RIFF", content);
    return file;
}

// Converts decoded samples in steps. A step ends where sample positions of both frequencies coincide and is
// converted with margins wider than SDL's filter, so that the seams are inaudible. The result never grows
// beyond its capacity.
class Converter {
public:
    Converter(const SDL_AudioSpec& from, int frequency, int channels)
        : frameBytes_(std::size_t{from.channels} * SDL_AUDIO_BITSIZE(from.format) / 8),
          silence_(from.format == AUDIO_U8 ? 0x80 : 0) {
        usable_ = from.freq > 0 && frequency > 0 &&
                  SDL_BuildAudioCVT(&conversion_, from.format, from.channels, from.freq, AUDIO_S16SYS,
                                    static_cast<Uint8>(channels), frequency) >= 0;
        if (!usable_) {
            return;
        }
        const int divisor = std::gcd(from.freq, frequency);
        const auto unit = static_cast<std::size_t>(from.freq / divisor);
        const std::size_t unitBytes = static_cast<std::size_t>(frequency / divisor) *
                                      static_cast<std::size_t>(channels) * sizeof(Sint16);
        const auto reduction = static_cast<std::size_t>(1 + from.freq / frequency);
        const std::size_t marginUnits = (filterFrames * reduction + unit - 1) / unit;
        const std::size_t stepUnits = (stepFrames + unit - 1) / unit;
        marginBytes_ = marginUnits * unit * frameBytes_;
        stepBytes_ = stepUnits * unit * frameBytes_;
        convertedMargin_ = marginUnits * unitBytes;
        convertedStep_ = stepUnits * unitBytes;
        pending_.assign(marginBytes_, silence_);
    }

    bool usable() const { return usable_; }

    void add(const Uint8* samples, std::size_t size, std::vector<std::uint8_t>& result) {
        pending_.insert(pending_.end(), samples, samples + size);
        addedBytes_ += size;
        std::size_t start = 0;
        for (; pending_.size() - start >= stepBytes_ + 2 * marginBytes_; start += stepBytes_) {
            convertStep(pending_.data() + start, result);
        }
        pending_.erase(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(start));
    }

    // Converts the remaining samples, followed by silence. Returns the number of samples per channel added in
    // total.
    std::uint64_t finish(std::vector<std::uint8_t>& result) {
        const std::uint64_t frames = addedBytes_ / frameBytes_;
        const std::vector<Uint8> silence(stepBytes_ + marginBytes_, silence_);
        add(silence.data(), silence.size(), result);
        return frames;
    }

private:
    static constexpr std::size_t filterFrames = 512; // as SDL's audio streams use, at the lower frequency
    static constexpr std::size_t stepFrames = std::size_t{1} << 14;

    void convertStep(const Uint8* window, std::vector<std::uint8_t>& result) {
        const std::size_t size = stepBytes_ + 2 * marginBytes_;
        std::vector<Uint8> buffer(size * static_cast<std::size_t>(conversion_.len_mult));
        std::copy_n(window, size, buffer.data());
        conversion_.buf = buffer.data();
        conversion_.len = static_cast<int>(size);
        SDL_ConvertAudio(&conversion_);
        const auto first = buffer.begin() + static_cast<std::ptrdiff_t>(convertedMargin_);
        const std::size_t length = std::min(convertedStep_, result.capacity() - result.size());
        result.insert(result.end(), first, first + static_cast<std::ptrdiff_t>(length));
    }

    std::size_t frameBytes_;
    Uint8 silence_;
    bool usable_ = false;
    SDL_AudioCVT conversion_{};
    std::size_t marginBytes_ = 0;
    std::size_t stepBytes_ = 0;
    std::size_t convertedMargin_ = 0;
    std::size_t convertedStep_ = 0;
    std::uint64_t addedBytes_ = 0;
    std::vector<Uint8> pending_; // the margin, already converted, then samples to convert
};

struct FreeSamples {
    void operator()(Uint8* samples) const { SDL_FreeWAV(samples); }
};

// Decodes all blocks, starting at the current file offset.
void decode(const FileDescriptor& file, const WaveHeader& header, int frequency, int channels,
            std::vector<std::uint8_t>& result) {
    const auto blockBytes = static_cast<std::uint64_t>(header.blockBytes);
    const std::uint64_t pieceSize = std::max<std::uint64_t>(pieceBytes / blockBytes, 1) * blockBytes;
    std::optional<Converter> converter;
    for (std::uint64_t left = header.soundBytes; left >= blockBytes;) {
        const std::string blocks = readPart(file, static_cast<std::size_t>(std::min(left, pieceSize)));
        const std::string piece = pieceFile(header, blocks);
        SDL_AudioSpec spec{};
        Uint8* samples = nullptr;
        Uint32 size = 0;
        if (blocks.empty() ||
            !SDL_LoadWAV_RW(SDL_RWFromConstMem(piece.data(), static_cast<int>(piece.size())), 1, &spec,
                            &samples, &size)) {
            break;
        }
        const std::unique_ptr<Uint8, FreeSamples> owner(samples);
        if (!converter) {
            converter.emplace(spec, frequency, channels);
        }
        if (!converter->usable()) {
            return;
        }
        converter->add(samples, size, result);
        left -= blocks.size();
    }
    if (converter) {
        const std::uint64_t frames = converter->finish(result);
        result.resize(
            std::min<std::size_t>(result.size(), convertedWaveBytes(header, frames, frequency, channels)));
    }
}

} // namespace

std::vector<std::uint8_t> loadWaveSound(const std::string& path, int frequency, int channels) {
    const FileDescriptor file = openPlainFile(path.c_str());
    struct stat status {};
    if (!file.isOpen() || fstat(file.number(), &status) != 0) {
        return {};
    }
    const std::string start = readPart(file, maxHeaderBytes);
    const auto header = readWaveHeader(start, static_cast<std::uint64_t>(status.st_size));
    const std::uint64_t size =
        header ? convertedWaveBytes(*header, waveFrames(*header), frequency, channels) : 0;
    if (size == 0 || size > maxSoundBytes ||
        lseek(file.number(), static_cast<off_t>(header->soundOffset), SEEK_SET) < 0) {
        return {};
    }
    std::vector<std::uint8_t> result;
    result.reserve(size);
    decode(file, *header, frequency, channels, result);
    return result;
}
