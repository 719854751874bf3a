// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drawing/resample.h"

#include "platform/drawing/resample_rows.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

// A picture that is reduced by more than this is subsampled first, which bounds time and memory for huge
// pictures.
constexpr int maxReduction = 32;

constexpr double filterRadius = 2;

double catmullRom(double distance) {
    const double x = std::abs(distance);
    if (x < 1) {
        return (1.5 * x - 2.5) * x * x + 1;
    }
    return x < filterRadius ? ((-0.5 * x + 2.5) * x - 4) * x + 2 : 0;
}

// One axis of a resampling: which source pixels contribute to a target pixel, and with which weights.
class Axis {
public:
    Axis(int source, int target)
        : source_(source), scale_(static_cast<double>(source) / target), width_(std::max(1.0, scale_)) {
        const double span = 2 * filterRadius * width_;
        count_ = std::min(source, static_cast<int>(std::ceil(span)) + (width_ > 1 ? 1 : 0));
        exact_.resize(static_cast<std::size_t>(count_));
    }

    // Number of weights per target pixel, rounded up to even.
    int taps() const { return count_ + count_ % 2; }

    // Writes taps() weights, which sum to 1 << weightBits, and returns the first source pixel.
    int weightsOf(std::int64_t target, std::int16_t* weights) {
        const double center = (static_cast<double>(target) + 0.5) * scale_ - 0.5;
        const auto wanted = static_cast<std::int64_t>(std::ceil(center - filterRadius * width_));
        const int first = static_cast<int>(std::clamp<std::int64_t>(wanted, 0, source_ - count_));
        double sum = 0;
        for (int tap = 0; tap < count_; ++tap) {
            exact_[static_cast<std::size_t>(tap)] = catmullRom((first + tap - center) / width_);
            sum += exact_[static_cast<std::size_t>(tap)];
        }
        std::fill_n(weights, taps(), std::int16_t{0});
        int remainder = 1 << weightBits;
        for (int tap = 0; tap < count_; ++tap) {
            const double share = exact_[static_cast<std::size_t>(tap)] / sum;
            weights[tap] = static_cast<std::int16_t>(std::lround(share * (1 << weightBits)));
            remainder -= weights[tap];
        }
        // The largest weight absorbs the rounding error, so that a uniform colour is reproduced exactly.
        *std::max_element(weights, weights + count_) += static_cast<std::int16_t>(remainder);
        return first;
    }

private:
    int source_;
    double scale_; // source pixels per target pixel
    double width_; // factor by which the filter is widened, at least 1
    int count_ = 0;
    std::vector<double> exact_;
};

// Subsampling of an axis: every `step`-th source pixel is used, `count` in total.
struct Subsampling {
    int step = 1;
    int count = 0;

    Subsampling(int source, int target) {
        const std::int64_t most = static_cast<std::int64_t>(target) * maxReduction;
        step = static_cast<int>((source + most - 1) / most);
        count = (source + step - 1) / step;
    }
};

// Returns rows of the source, counted from the top, as blue, green and red bytes. Rows that need unpacking
// are cached; the cache holds as many rows as the filter covers at once.
class RowReader {
public:
    RowReader(const PictureSource& source, const Subsampling& columns, const Subsampling& rows)
        : source_(source), columns_(columns), rows_(rows) {}

    // Sets the number of rows to cache, unless rows can be read in place.
    void setCacheSize(int rows) {
        if (source_.bitsPerPixel == 24 && columns_.step == 1) {
            return;
        }
        unpacked_.resize(static_cast<std::size_t>(rows));
        for (Unpacked& slot : unpacked_) {
            slot.bytes.resize(static_cast<std::size_t>(columns_.count) * 3);
        }
    }

    const std::uint8_t* row(int y) {
        const auto line = static_cast<std::size_t>(source_.height - 1 - y * rows_.step);
        const std::uint8_t* packed = source_.bits + line * source_.stride;
        if (unpacked_.empty()) {
            return packed;
        }
        Unpacked& slot = unpacked_[static_cast<std::size_t>(y) % unpacked_.size()];
        if (slot.row != y) {
            slot.row = y;
            unpack(packed, slot.bytes.data());
        }
        return slot.bytes.data();
    }

private:
    struct Unpacked {
        int row = -1;
        std::vector<std::uint8_t> bytes;
    };

    void unpack(const std::uint8_t* packed, std::uint8_t* bytes) const {
        const int bits = source_.bitsPerPixel;
        for (int i = 0; i < columns_.count; ++i, bytes += 3) {
            const std::size_t x = static_cast<std::size_t>(i) * static_cast<std::size_t>(columns_.step);
            if (bits == 24) {
                std::copy_n(packed + 3 * x, 3, bytes);
                continue;
            }
            const std::size_t bit = x * static_cast<std::size_t>(bits);
            const int shift = 8 - bits - static_cast<int>(bit % 8);
            const int index = packed[bit / 8] >> shift & ((1 << bits) - 1);
            const std::uint32_t color = source_.palette[static_cast<std::size_t>(index)];
            bytes[0] = static_cast<std::uint8_t>(color);
            bytes[1] = static_cast<std::uint8_t>(color >> 8);
            bytes[2] = static_cast<std::uint8_t>(color >> 16);
        }
    }

    const PictureSource& source_;
    Subsampling columns_;
    Subsampling rows_;
    std::vector<Unpacked> unpacked_;
};

// The start values and weights from which mixColumns computes the pixels of a target row.
struct Columns {
    // What they are computed from: the widths of the source and the target, and the pixels of a target row.
    struct Key {
        int source = 0;
        int target = 0;
        std::int64_t first = 0;
        std::int64_t count = 0;
        bool operator==(const Key&) const = default;
    };

    Key key;
    std::vector<std::int32_t> starts; // index of the first value, three values per pixel
    std::vector<std::int16_t> weights;
    int taps = 0;

    explicit Columns(const Key& from) : key(from) {
        Axis axis(key.source, key.target);
        taps = axis.taps();
        starts.resize(static_cast<std::size_t>(key.count));
        weights.resize(starts.size() * static_cast<std::size_t>(taps));
        std::int16_t* next = weights.data();
        std::int64_t pixel = key.first;
        for (std::int32_t& start : starts) {
            start = 3 * axis.weightsOf(pixel++, next);
            next += taps;
        }
    }
};

// Returns the columns, which are those of the last call when a picture is drawn in strips or into one of
// many equal tiles. Valid until the next call.
const Columns& columnsOf(const Columns::Key& key) {
    static Columns last({1, 1, 0, 1});
    if (last.key != key) {
        last = Columns(key);
    }
    return last;
}

} // namespace

void resample(const PictureSource& source, const Placement& place, Surface& target) {
    const std::int64_t left = std::max(place.x, 0);
    const std::int64_t top = std::max(place.y, 0);
    const std::int64_t right = std::min<std::int64_t>(std::int64_t{place.x} + place.width, target.width);
    const std::int64_t bottom = std::min<std::int64_t>(std::int64_t{place.y} + place.height, target.height);
    if (left >= right || top >= bottom) {
        return;
    }
    const Subsampling across(source.width, place.width);
    const Subsampling down(source.height, place.height);
    const Columns& columns = columnsOf({across.count, place.width, left - place.x, right - left});
    Axis rowAxis(down.count, place.height);
    RowReader reader(source, across, down);
    reader.setCacheSize(rowAxis.taps());
    std::vector<std::int16_t> weights(static_cast<std::size_t>(rowAxis.taps()));
    std::vector<const std::uint8_t*> rows(weights.size());
    std::vector<std::int16_t> mixed(3 * static_cast<std::size_t>(across.count) + mixedSlack);
    const RowLoops& loops = rowLoops().front();
    for (std::int64_t y = top; y < bottom; ++y) {
        const int first = rowAxis.weightsOf(y - place.y, weights.data());
        for (std::size_t tap = 0; tap < rows.size(); ++tap) {
            rows[tap] = reader.row(std::min(first + static_cast<int>(tap), down.count - 1));
        }
        loops.mixRows(rows.data(), weights.data(), rowAxis.taps(), mixed.data(), 3 * across.count);
        loops.mixColumns(mixed.data(), columns.starts.data(), columns.weights.data(), columns.taps,
                         target.row(static_cast<int>(y)) + left, static_cast<int>(right - left));
    }
    target.changed = true;
}
