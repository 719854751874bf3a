// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <memory_resource>
#include <vector>

// Allocates each block by itself, so that the sanitizer finds accesses beyond its end.
class SeparateBlocks : public std::pmr::memory_resource {
    void* do_allocate(std::size_t size, std::size_t) override {
        return blocks.emplace_back(new std::byte[size]).get();
    }
    void do_deallocate(void*, std::size_t, std::size_t) override {}
    bool do_is_equal(const memory_resource& other) const noexcept override { return this == &other; }

    std::vector<std::unique_ptr<std::byte[]>> blocks;
};
