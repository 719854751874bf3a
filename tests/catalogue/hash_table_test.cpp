// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/hash_table.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::uint32_t oneBucket(const void*, std::uint32_t) {
    return 1;
}

const void* expectedSoughtKey = nullptr;

int comparesEntryFirst(const void* entryKey, const void* soughtKey) {
    EXPECT_NE(entryKey, expectedSoughtKey);
    EXPECT_EQ(soughtKey, expectedSoughtKey);
    return gameNameEquals(entryKey, soughtKey);
}

TEST(HashTable, IgnoresMissingTablesKeysAndValues) {
    int value = 0;
    EXPECT_EQ(hashCreate(0, hashGameName, gameNameEquals), nullptr);
    hashInsert("key", &value, nullptr);
    EXPECT_EQ(hashFind("key", nullptr), nullptr);
    hashDestroy(nullptr);

    HashTable* table = hashCreate(3, hashGameName, gameNameEquals);
    hashInsert(nullptr, &value, table);
    hashInsert("key", nullptr, table);
    EXPECT_EQ(hashFind(nullptr, table), nullptr);
    EXPECT_EQ(hashFind("key", table), nullptr);
    hashDestroy(table);
}

TEST(HashTable, KeepsInsertionOrderAndFindsTheFirstOfEqualKeys) {
    int values[4] = {};
    HashTable* table = hashCreate(2, oneBucket, comparesEntryFirst);
    const char* keys[] = {"one", "two", "one", "three"};
    for (int entry = 0; entry < 4; ++entry) {
        hashInsert(keys[entry], &values[entry], table);
    }
    std::vector<const void*> chain;
    for (const ListNode* node = table->buckets[1]; node; node = node->next) {
        chain.push_back(static_cast<const HashEntry*>(node->data)->value);
    }
    EXPECT_EQ(chain, (std::vector<const void*>{&values[0], &values[1], &values[2], &values[3]}));
    EXPECT_EQ(table->buckets[0], nullptr);

    const std::pair<const char*, void*> cases[] = {
        {"one", &values[0]}, {"two", &values[1]}, {"three", &values[3]}, {"on", nullptr}, {"", nullptr}};
    for (const auto& [key, value] : cases) {
        const std::string sought = key;
        expectedSoughtKey = sought.c_str();
        EXPECT_EQ(hashFind(sought.c_str(), table), value) << key;
    }
    hashDestroy(table);
}

TEST(HashTable, InsertsNodesDirectlyAfterAnother) {
    std::pmr::monotonic_buffer_resource memory;
    int data[3] = {};
    ListNode* head = listInsertAfter(&data[0], nullptr, memory);
    ListNode* last = listInsertAfter(&data[2], head, memory);
    ListNode* middle = listInsertAfter(&data[1], head, memory);
    EXPECT_EQ(head->next, middle);
    EXPECT_EQ(middle->next, last);
    EXPECT_EQ(last->next, nullptr);
    EXPECT_EQ(middle->data, &data[1]);
}

TEST(HashTable, HashesNamesToTheSumOfTheirSignedBytes) {
    EXPECT_EQ(hashGameName("", 7), 0U);
    EXPECT_EQ(hashGameName(nullptr, 7), 0U);
    EXPECT_EQ(hashGameName("ab", 1000), 195U);
    EXPECT_EQ(hashGameName("ba", 1000), 195U);
    EXPECT_EQ(hashGameName("ab", 10), 5U);
    EXPECT_EQ(hashGameName("a\xff", 1000), 96U);
    EXPECT_EQ(hashGameName("\xff", 1000), 0xFFFFFFFFU % 1000);
}

} // namespace
