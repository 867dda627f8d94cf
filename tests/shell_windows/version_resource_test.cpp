// The version information that the system shows of the program, which this program has as well,
// says what the windows say.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "shell/program_facts.h"
#include "toolkit/win32.h"

namespace tallymere {
namespace {

std::u16string VersionResource() {
    const HRSRC found =
        FindResourceW(nullptr, MAKEINTRESOURCEW(VS_VERSION_INFO), MAKEINTRESOURCEW(16));
    EXPECT_NE(found, nullptr);
    const void* data = LockResource(LoadResource(nullptr, found));
    std::u16string text(SizeofResource(nullptr, found) / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), data, text.size() * sizeof(char16_t));
    return text;
}

// The value behind a name of the version information: both end with a 0 and what fills them up.
std::u16string ValueOf(const std::u16string& resource, const std::u16string& name) {
    size_t place = resource.find(name + u'\0');
    if (place == resource.npos) {
        return u"(none)";
    }
    place = resource.find_first_not_of(u'\0', place + name.size());
    return resource.substr(place, resource.find(u'\0', place) - place);
}

TEST(VersionResource, HasTheVersionOfTheProgram) {
    const std::u16string resource = VersionResource();
    EXPECT_EQ(ValueOf(resource, u"ProductVersion"), ProgramVersion);
    EXPECT_EQ(ValueOf(resource, u"FileVersion"), ProgramVersion);
}

TEST(VersionResource, NamesTheProgramAndItsFile) {
    const std::u16string resource = VersionResource();
    for (const char16_t* name : {u"ProductName", u"FileDescription", u"InternalName"}) {
        EXPECT_EQ(ValueOf(resource, name), ProgramName) << std::u16string(name).size();
    }
    EXPECT_EQ(ValueOf(resource, u"OriginalFilename"), std::u16string(ProgramName) + u".exe");
    EXPECT_EQ(ValueOf(resource, u"CompanyName"), MakerName);
}

TEST(VersionResource, NamesTheMakerWithTheYearOfTheBuild) {
    EXPECT_EQ(ValueOf(VersionResource(), u"LegalCopyright"),
              u"\u00A9 " + std::u16string(ProgramBuildTime, 4) + u" " + MakerName);
}

}  // namespace
}  // namespace tallymere
