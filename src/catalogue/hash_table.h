// SPDX-License-Identifier: GPL-3.0-or-later
// A chained hash table with caller-supplied hash and equality functions, and the singly linked list it is
// built on. Used for the catalogue's index of short names. The number of buckets is fixed, keys and values
// are not owned, and insertion does not check for duplicates.
#pragma once

#include <cstdint>
#include <memory_resource>

struct ListNode {
    void* data; // borrowed
    ListNode* next;
};

struct HashEntry {
    const void* key; // borrowed
    void* value;     // borrowed
};

struct HashTable {
    ListNode** buckets; // `size` chains of HashEntry in insertion order; an empty chain is null
    ListNode** tails;   // last node of each chain, so that insertion does not walk it
    std::uint32_t size;
    std::uint32_t (*hash)(const void* key, std::uint32_t size); // returns the bucket, 0 to size - 1
    int (*equals)(const void* entryKey, const void* soughtKey); // returns non-zero for equal keys
    std::pmr::monotonic_buffer_resource memory;                 // holds all nodes and entries
};

// Inserts a new node for data directly after `after` and returns it. With a null `after`, the node starts a
// new list. The node lives as long as `memory`.
ListNode* listInsertAfter(void* data, ListNode* after, std::pmr::memory_resource& memory);

// Returns a new empty table with `size` buckets, or null when size is 0.
HashTable* hashCreate(std::uint32_t size, std::uint32_t (*hash)(const void* key, std::uint32_t size),
                      int (*equals)(const void* entryKey, const void* soughtKey));

// Frees the table with its chains and entries. Null is ignored.
void hashDestroy(HashTable* table);

// Appends an entry to its bucket's chain, so that hashFind returns the first of several equal keys. Does
// nothing when any argument is null.
void hashInsert(const void* key, void* value, HashTable* table);

// Returns the value of the first entry with an equal key, or null. A null key or table finds nothing.
void* hashFind(const void* key, const HashTable* table);

// Hash of a zero-terminated name: the sum of its bytes as signed values, modulo size. 0 for a null key.
std::uint32_t hashGameName(const void* key, std::uint32_t size);

// Returns 1 when two zero-terminated names are identical, else 0.
int gameNameEquals(const void* first, const void* second);
