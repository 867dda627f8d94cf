#include "formula/formula_names.h"

#include <gtest/gtest.h>

#include "support/formula_testing.h"

namespace tallymere {
namespace {

using testing_support::Printable;

TEST(NameEquals, ComparesLengthAndCharacters) {
    EXPECT_TRUE(NameEquals(u"ab", u"abc", 2));
    EXPECT_FALSE(NameEquals(u"ab", u"abc", 3));
    EXPECT_FALSE(NameEquals(u"abc", u"abc", 2));
    EXPECT_FALSE(NameEquals(u"aB", u"ab", 2));
    EXPECT_TRUE(NameEquals(u"", u"ab", 0));
    EXPECT_FALSE(NameEquals(u"", u"ab", 1));
}

TEST(IsNameLetter, TakesLatinAndGreekLettersAndTheUnderscore) {
    for (const char16_t c :
         {u'A', u'Z', u'a', u'z', u'_', u'\u0391', u'\u03A9', u'\u03B1', u'\u03C9', u'\u03C2'}) {
        EXPECT_TRUE(IsNameLetter(c)) << Printable({&c, 1});
    }
    for (const char16_t c : {u'@', u'[', u'`', u'{', u'0', u'9', u'\0', u' ', u'\u0390', u'\u03AA',
                             u'\u03B0', u'\u03CA'}) {
        EXPECT_FALSE(IsNameLetter(c)) << Printable({&c, 1});
    }
}

}  // namespace
}  // namespace tallymere
