// A small chained hash table from key to value with the caller's own hash and equality functions, and the
// chain it is made of. The catalogue's index of short names is its one use, filled and searched while the
// list is loaded. The table never grows, owns neither keys nor values, and does not look for duplicates.
#pragma once

#include <cstdint>

// One link of a singly linked chain.
struct ListNode {
    void* data; // borrowed
    ListNode* next;
};

struct HashEntry {
    const void* key; // both borrowed
    void* value;
};

struct HashTable {
    ListNode** buckets; // `size` chains in the order of insertion, null when empty; the data of a node is a
                        // HashEntry
    ListNode** tails;   // last node of each chain, so that an insertion need not walk there
    std::uint32_t size;
    std::uint32_t (*hash)(const void* key, std::uint32_t size); // the bucket, below size
    int (*equals)(const void* entryKey, const void* soughtKey); // non-zero means equal
};

// Makes a node for data directly behind `after`; with null, one without a successor.
ListNode* listInsertAfter(void* data, ListNode* after);

// Releases the node and every node behind it, not their data. Null does nothing.
void listFree(ListNode* node);

// A new empty table; null when size is 0.
HashTable* hashCreate(std::uint32_t size, std::uint32_t (*hash)(const void* key, std::uint32_t size),
                      int (*equals)(const void* entryKey, const void* soughtKey));

// Releases the table with its chains and entries. Null does nothing.
void hashDestroy(HashTable* table);

// Adds an entry at the end of its bucket's chain; does nothing when any of the three is null. Of equal keys
// hashFind gives the one that came first.
void hashInsert(const void* key, void* value, HashTable* table);

// The value of the first entry with an equal key, or null; null also for a null key or table.
void* hashFind(const void* key, const HashTable* table);

// The plain sum of the text's bytes, each signed, modulo size. A null key has the sum 0.
std::uint32_t hashGameName(const void* key, std::uint32_t size);

// 1 when the two texts are the same, else 0.
int gameNameEquals(const void* first, const void* second);
