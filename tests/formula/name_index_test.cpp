#include "formula/name_index.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

struct Named {
    const char16_t* name;
};

// A name stands before one that begins with it and behind one, and some share a bucket by chance.
constexpr Named Rows[] = {{u"<"}, {u"<<="}, {u"<<"}, {u"|"}, {u">="}, {u">"}, {u"\u043C"}};
constexpr auto Index = MakeNameIndex(Rows, &Named::name);
static_assert(u'|' % Index.Buckets == u'<' % Index.Buckets);
static_assert(u'\u043C' % Index.Buckets == u'<' % Index.Buckets);

TEST(NameIndex, LeadsToEveryRowOfABucketWithLongerNamesFirst) {
    std::vector<std::u16string_view> names;
    for (size_t i = Index.FirstRow(u'<'); i != Index.End; i = Index.next[i]) {
        names.emplace_back(Rows[i].name);
    }
    EXPECT_EQ(names, (std::vector<std::u16string_view>{u"<<=", u"<<", u"<", u"|", u"\u043C"}));
    EXPECT_EQ(Index.FirstRow(u'a'), Index.End);
}

TEST(FindLongestName, TakesTheLongestThatTheTextBeginsWith) {
    const struct {
        const char16_t* text;
        const Named* row;
        uint64_t length;
    } cases[] = {
        {u"<", &Rows[0], 1},
        {u"<1", &Rows[0], 1},
        {u"<<1", &Rows[2], 2},
        {u"<<=1", &Rows[1], 3},
        {u"<<<=", &Rows[2], 2},
        {u"<=", &Rows[0], 1},
        {u">=<", &Rows[4], 2},
        {u">>=", &Rows[5], 1},
        {u"|", &Rows[3], 1},
        {u"\u043C<", &Rows[6], 1},
        {u"=", nullptr, 0},
        {u"", nullptr, 0},
        {u"\u007C\u007C", &Rows[3], 1},
        {u"\u00FC", nullptr, 0},
    };
    for (const auto& [text, row, length] : cases) {
        uint64_t found = 7;
        EXPECT_EQ(FindLongestName(Rows, &Named::name, Index, text, &found), row) << Printable(text);
        EXPECT_EQ(found, length) << Printable(text);
    }
}

}  // namespace
}  // namespace tallymere
