// The path of the file beside another one.
#include "shell/beside_path.h"

#include <gtest/gtest.h>

#include <string>

namespace tallymere {
namespace {

std::u16string Beside(const std::u16string& path) {
    char16_t beside[BesidePathCapacity + 1];
    FormatBesidePath(beside, path.c_str());
    return beside;
}

// A path of so many characters, whose file has a name of one.
std::u16string LongPath(const std::u16string& begin, int64_t characters) {
    const auto letters = static_cast<size_t>(characters) - begin.size() - 2;
    return begin + std::u16string(letters, u'x') + u"\\y";
}

TEST(BesidePath, KnowsItsOwnName) {
    for (const char16_t* path : {u"~tallymere.new", u"C:\\data\\~TALLYMERE.New",
                                 u"C:~tallymere.new", u"C:/data/~tallymere.new. ."}) {
        EXPECT_TRUE(NamesBesideFile(path));
    }
    for (const char16_t* path : {u"", u"~tallymere.new\\a.csv", u"~tallymere.new.csv",
                                 u"tallymere.new", u"a~tallymere.new", u"C:\\data\\"}) {
        EXPECT_FALSE(NamesBesideFile(path));
    }
}

TEST(BesidePath, IsInTheFolderOfTheFile) {
    EXPECT_EQ(Beside(u"C:\\data\\a.csv"), u"C:\\data\\~tallymere.new");
    EXPECT_EQ(Beside(u"C:\\a.csv"), u"C:\\~tallymere.new");
    EXPECT_EQ(Beside(u"C:a.csv"), u"C:~tallymere.new");
    EXPECT_EQ(Beside(u"C:/data.x/a"), u"C:/data.x/~tallymere.new");
    EXPECT_EQ(Beside(u"a.csv"), u"~tallymere.new");
    EXPECT_EQ(Beside(u"\\\\server\\share\\a.csv"), u"\\\\server\\share\\~tallymere.new");
    EXPECT_EQ(Beside(u""), u"~tallymere.new");
}

TEST(BesidePath, MayBeLongerThanAPathIs) {
    const int64_t room = PathCapacity - 14;
    const std::u16string fits = LongPath(u"C:\\", room + 1);
    EXPECT_EQ(Beside(fits), fits.substr(0, static_cast<size_t>(room)) + u"~tallymere.new");
    EXPECT_EQ(Beside(fits).size(), 259u);
    const std::u16string drive = LongPath(u"C:\\", room + 2);
    EXPECT_EQ(Beside(drive),
              u"\\\\?\\" + drive.substr(0, static_cast<size_t>(room) + 1) + u"~tallymere.new");
    const std::u16string share = LongPath(u"\\\\server\\share\\", PathCapacity);
    EXPECT_EQ(
        Beside(share),
        u"\\\\?\\UNC" + share.substr(1, static_cast<size_t>(PathCapacity) - 2) + u"~tallymere.new");
}

}  // namespace
}  // namespace tallymere
