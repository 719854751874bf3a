// SPDX-License-Identifier: GPL-3.0-or-later
// A table of objects addressed by handles. A handle is a number made of a slot and its generation, so that a
// deleted or foreign handle is recognised instead of dereferenced. Inside the platform only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

template <typename Object> class HandleTable {
public:
    // `kind` (1 to 15) distinguishes the handles of different tables.
    explicit HandleTable(unsigned kind) : kind_(kind) {}

    // Takes ownership of the object and returns its handle, which is never 0.
    std::uintptr_t insert(std::unique_ptr<Object> object) {
        std::size_t index = 0;
        if (freeSlots_.empty()) {
            index = slots_.size();
            slots_.emplace_back();
        } else {
            index = freeSlots_.back();
            freeSlots_.pop_back();
        }
        slots_[index].object = std::move(object);
        return encode(index, slots_[index].generation);
    }

    // Returns the object, or null for a handle that is not (or no longer) in this table.
    Object* find(std::uintptr_t handle) const {
        const std::size_t index = indexOf(handle);
        return index < slots_.size() && handle == encode(index, slots_[index].generation)
                   ? slots_[index].object.get()
                   : nullptr;
    }

    // Removes the object and returns it; null for an unknown handle.
    std::unique_ptr<Object> remove(std::uintptr_t handle) {
        if (!find(handle)) {
            return nullptr;
        }
        const std::size_t index = indexOf(handle);
        slots_[index].generation = (slots_[index].generation + 1) & generationMask;
        freeSlots_.push_back(index);
        return std::move(slots_[index].object);
    }

    // The number of objects in the table.
    std::size_t size() const { return slots_.size() - freeSlots_.size(); }

private:
    struct Slot {
        std::unique_ptr<Object> object;
        std::uintptr_t generation = 0;
    };

    // From low to high: kind 4 bits, index 16 bits, generation 11 bits, so that a handle fits in 32 bits.
    static constexpr std::uintptr_t generationMask = 0x7FF;

    std::uintptr_t encode(std::size_t index, std::uintptr_t generation) const {
        return kind_ | (static_cast<std::uintptr_t>(index) << 4) | (generation << 20);
    }
    static std::size_t indexOf(std::uintptr_t handle) { return (handle >> 4) & 0xFFFF; }

    std::uintptr_t kind_;
    std::vector<Slot> slots_;
    std::vector<std::size_t> freeSlots_;
};
