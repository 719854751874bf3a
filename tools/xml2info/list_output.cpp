#include "xml2info/list_output.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_map>

namespace {

constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

// For each block the place of the block that its romof names, or nowhere. A name that occurs twice means the
// first.
std::vector<std::size_t> linkRomOf(const std::vector<const Block*>& blocks) {
    std::unordered_map<std::string_view, std::size_t> places;
    places.reserve(blocks.size());
    for (std::size_t place = 0; place < blocks.size(); ++place) {
        places.try_emplace(blocks[place]->name, place);
    }
    std::vector<std::size_t> links(blocks.size(), nowhere);
    for (std::size_t place = 0; place < blocks.size(); ++place) {
        const auto found = places.find(blocks[place]->romOf);
        if (found != places.end()) {
            links[place] = found->second;
        }
    }
    return links;
}

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            return false;
        }
    }
    return true;
}

bool writeBlocks(int descriptor, const std::vector<Segment>& segments,
                 const std::vector<std::string_view>& farEnds) {
    std::string out;
    auto farEnd = farEnds.begin();
    for (const Segment& segment : segments) {
        const std::string_view text = segment.text;
        std::size_t copied = 0;
        out.clear();
        for (const Block& block : segment.blocks) {
            if (!farEnd->empty()) {
                out += text.substr(copied, block.romOfAt - copied);
                copied = block.romOfAt;
                appendLine(out, "romof", *farEnd);
            }
            ++farEnd;
        }
        out += text.substr(copied);
        if (!writeAll(descriptor, out)) {
            return false;
        }
    }
    return true;
}

} // namespace

std::vector<std::string_view> resolveRomOf(const std::vector<const Block*>& blocks) {
    const std::vector<std::size_t> links = linkRomOf(blocks);
    std::vector<std::string_view> farEnds(blocks.size());
    std::vector<bool> known(blocks.size(), false);
    std::vector<bool> onPath(blocks.size(), false);
    std::vector<std::size_t> path;
    for (std::size_t start = 0; start < blocks.size(); ++start) {
        path.clear();
        std::size_t place = start;
        while (place != nowhere && !known[place] && !onPath[place]) {
            onPath[place] = true;
            path.push_back(place);
            place = links[place];
        }
        const bool circle = place != nowhere && onPath[place];
        std::string_view farEnd = place != nowhere && known[place] ? farEnds[place] : std::string_view();
        for (; !path.empty(); path.pop_back()) {
            const std::size_t last = path.back();
            if (farEnd.empty() || circle) {
                farEnd = blocks[last]->romOf;
            }
            farEnds[last] = farEnd;
            known[last] = true;
            onPath[last] = false;
        }
    }
    return farEnds;
}

bool writeList(int descriptor, const std::vector<Segment>& segments) {
    std::vector<const Block*> blocks;
    for (const Segment& segment : segments) {
        for (const Block& block : segment.blocks) {
            blocks.push_back(&block);
        }
    }
    struct stat file = {};
    const bool isFile = fstat(descriptor, &file) == 0 && S_ISREG(file.st_mode);
    if (writeBlocks(descriptor, segments, resolveRomOf(blocks)) && (!isFile || fsync(descriptor) == 0)) {
        return true;
    }
    const int reason = errno;
    // Back to what the file held before: nothing, unless its owner appends.
    if (isFile && ftruncate(descriptor, file.st_size) == 0) {
        fsync(descriptor);
    }
    errno = reason;
    return false;
}
