// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml2info/list_output.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_map>

namespace {

constexpr std::size_t noBlock = static_cast<std::size_t>(-1);

// Returns, for each block, the index of the block that its romof names, or noBlock. Of several blocks with
// one name the first counts.
std::vector<std::size_t> linkRomOf(const std::vector<const Block*>& blocks) {
    std::unordered_map<std::string_view, std::size_t> indices;
    indices.reserve(blocks.size());
    for (std::size_t index = 0; index < blocks.size(); ++index) {
        indices.try_emplace(blocks[index]->name, index);
    }
    std::vector<std::size_t> links(blocks.size(), noBlock);
    for (std::size_t index = 0; index < blocks.size(); ++index) {
        const auto found = indices.find(blocks[index]->romOf);
        if (found != indices.end()) {
            links[index] = found->second;
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
                 const std::vector<std::string_view>& chainEnds) {
    std::string out;
    auto chainEnd = chainEnds.begin();
    for (const Segment& segment : segments) {
        const std::string_view text = segment.text;
        std::size_t copied = 0;
        out.clear();
        for (const Block& block : segment.blocks) {
            if (!chainEnd->empty()) {
                out += text.substr(copied, block.romOfOffset - copied);
                copied = block.romOfOffset;
                appendLine(out, "romof", *chainEnd);
            }
            ++chainEnd;
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
    std::vector<std::string_view> chainEnds(blocks.size());
    std::vector<bool> known(blocks.size(), false);
    std::vector<bool> onChain(blocks.size(), false);
    std::vector<std::size_t> chain;
    for (std::size_t start = 0; start < blocks.size(); ++start) {
        chain.clear();
        std::size_t index = start;
        while (index != noBlock && !known[index] && !onChain[index]) {
            onChain[index] = true;
            chain.push_back(index);
            index = links[index];
        }
        const bool cycle = index != noBlock && onChain[index];
        std::string_view chainEnd = index != noBlock && known[index] ? chainEnds[index] : std::string_view();
        for (; !chain.empty(); chain.pop_back()) {
            const std::size_t last = chain.back();
            if (chainEnd.empty() || cycle) {
                chainEnd = blocks[last]->romOf;
            }
            chainEnds[last] = chainEnd;
            known[last] = true;
            onChain[last] = false;
        }
    }
    return chainEnds;
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
    // Restores the previous content, which is not empty when the output is appended to a file.
    if (isFile && ftruncate(descriptor, file.st_size) == 0) {
        fsync(descriptor);
    }
    errno = reason;
    return false;
}
