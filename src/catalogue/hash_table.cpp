// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/hash_table.h"

#include <cstring>

ListNode* listInsertAfter(void* data, ListNode* after) {
    auto* node = new ListNode{data, nullptr};
    if (after) {
        node->next = after->next;
        after->next = node;
    }
    return node;
}

void listFree(ListNode* node) {
    while (node) {
        ListNode* next = node->next;
        delete node;
        node = next;
    }
}

HashTable* hashCreate(std::uint32_t size, std::uint32_t (*hash)(const void* key, std::uint32_t size),
                      int (*equals)(const void* entryKey, const void* soughtKey)) {
    if (size == 0) {
        return nullptr;
    }
    return new HashTable{new ListNode* [size] {}, new ListNode* [size] {}, size, hash, equals};
}

void hashDestroy(HashTable* table) {
    if (!table) {
        return;
    }
    for (std::uint32_t bucket = 0; bucket < table->size; ++bucket) {
        for (const ListNode* node = table->buckets[bucket]; node; node = node->next) {
            delete static_cast<HashEntry*>(node->data);
        }
        listFree(table->buckets[bucket]);
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
    ListNode* node = listInsertAfter(new HashEntry{key, value}, table->tails[bucket]);
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
