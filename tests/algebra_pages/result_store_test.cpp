#include "algebra_pages/result_store.h"

#include <gtest/gtest.h>

#include <string>

namespace tallymere {
namespace {

std::u16string Kept(const ResultStore& store, int32_t index) {
    return KeptResultText(store, index);
}

TEST(ResultStore, BeginsEmpty) {
    const ResultStore store;
    for (int32_t i = 0; i <= MaxPolyDegree; i++) {
        EXPECT_EQ(Kept(store, i), u"");
    }
}

TEST(ResultStore, KeepsATextUnderEachIndex) {
    ResultStore store;
    KeepResultText(store, 0, u"12");
    KeepResultText(store, 20, u"-3.5");
    EXPECT_EQ(Kept(store, 0), u"12");
    EXPECT_EQ(Kept(store, 1), u"");
    EXPECT_EQ(Kept(store, 20), u"-3.5");
    KeepResultText(store, 0, u"7");
    EXPECT_EQ(Kept(store, 0), u"7");
    KeepResultText(store, 0, u"");
    EXPECT_EQ(Kept(store, 0), u"");
}

TEST(ResultStore, GrowsWithRoomToSpare) {
    ResultStore store;
    KeepResultText(store, 3, u"12345");
    EXPECT_EQ(store.texts[3].capacity, 25);
    const char16_t* memory = store.texts[3].text;
    KeepResultText(store, 3, std::u16string(25, u'9'));
    EXPECT_EQ(store.texts[3].text, memory);
    EXPECT_EQ(Kept(store, 3), std::u16string(25, u'9'));
    KeepResultText(store, 3, std::u16string(26, u'8'));
    EXPECT_EQ(store.texts[3].capacity, 46);
    EXPECT_EQ(Kept(store, 3), std::u16string(26, u'8'));
}

TEST(ResultStore, KeepsItsMemoryWhenItIsEmptied) {
    ResultStore store;
    KeepResultText(store, 3, u"12345");
    EmptyResultStore(store);
    EXPECT_EQ(Kept(store, 3), u"");
    EXPECT_EQ(store.texts[3].capacity, 25);
}

TEST(ResultStore, RaisesTheHighestDegreeToItsOwn) {
    ResultStore store;
    EXPECT_EQ(MaxDegreeForResult(store, 1), 1);
    KeepResultText(store, 5, u"1");
    KeepResultText(store, 0, u"0");
    EXPECT_EQ(MaxDegreeForResult(store, 2), 5);
    EXPECT_EQ(MaxDegreeForResult(store, 5), 5);
    EXPECT_EQ(MaxDegreeForResult(store, 7), 7);
    KeepResultText(store, 20, u"1");
    EXPECT_EQ(MaxDegreeForResult(store, 7), 20);
    EmptyResultStore(store);
    EXPECT_EQ(MaxDegreeForResult(store, 7), 7);
}

}  // namespace
}  // namespace tallymere
