// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/hash_table.h"

#include <cstring>
#include <new>

ListNode* listInsertAfter(void* data, ListNode* after, std::pmr::memory_resource& memory) {
    auto* node = new (memory.allocate(sizeof(ListNode), alignof(ListNode))) ListNode{data, nullptr};
    if (after) {
        node->next = after->next;
        after->next = node;
    }
    return node;
}

HashTable* hashCreate(std::uint32_t size, std::uint32_t (*hash)(const void* key, std::uint32_t size),
                      int (*equals)(const void* entryKey, const void* soughtKey)) {
    if (size == 0) {
        return nullptr;
    }
    // As many entries as buckets are expected, in one block.
    constexpr std::size_t entrySize = sizeof(ListNode) + sizeof(HashEntry);
    return new HashTable{new ListNode* [size] {},
                         new ListNode* [size] {},
                         size,
                         hash,
                         equals,
                         std::pmr::monotonic_buffer_resource(size * entrySize)};
}

void hashDestroy(HashTable* table) {
    if (!table) {
        return;
    }
    delete[] table->buckets;
    delete[] table->tails;
    delete table;
}

void hashInsert(const void* key, void* value, HashTable* table) {
    if (!key || !value || !table) {
        return;
    }
    const std::uint32_t bucket = table->hash(key, table->size);
    void* place = table->memory.allocate(sizeof(HashEntry), alignof(HashEntry));
    ListNode* node = listInsertAfter(new (place) HashEntry{key, value}, table->tails[bucket], table->memory);
    if (!table->buckets[bucket]) {
        table->buckets[bucket] = node;
    }
    table->tails[bucket] = node;
}

void* hashFind(const void* key, const HashTable* table) {
    if (!key || !table) {
        return nullptr;
    }
    for (const ListNode* node = table->buckets[table->hash(key, table->size)]; node; node = node->next) {
        const auto* entry = static_cast<const HashEntry*>(node->data);
        if (table->equals(entry->key, key) != 0) {
            return entry->value;
        }
    }
    return nullptr;
}

std::uint32_t hashGameName(const void* key, std::uint32_t size) {
    std::uint32_t sum = 0;
    if (key) {
        for (const auto* byte = static_cast<const signed char*>(key); *byte != 0; ++byte) {
            sum += static_cast<std::uint32_t>(*byte);
        }
    }
    return sum % size;
}

int gameNameEquals(const void* first, const void* second) {
    const auto* firstName = static_cast<const char*>(first);
    const auto* secondName = static_cast<const char*>(second);
    // Fast path for the long chains: names in one bucket rarely start with the same letter.
    return *firstName == *secondName && std::strcmp(firstName, secondName) == 0 ? 1 : 0;
}
