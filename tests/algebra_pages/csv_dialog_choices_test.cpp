// The names of CSV files, and the kinds of files that the dialogs offer.
#include "algebra_pages/csv_dialog_choices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "shell/languages.h"
#include "shell/ui_error.h"

namespace tallymere {
namespace {

std::u16string Named(const std::u16string& text) {
    char16_t name[PathCapacity + 1] = {};
    std::copy(text.begin(), text.end(), name);
    AppendCsvExtension(name);
    return name;
}

TEST(CsvName, GetsAnExtensionWhereItHasNone) {
    EXPECT_EQ(Named(u"C:\\data\\system"), u"C:\\data\\system.csv");
    EXPECT_EQ(Named(u"C:\\data.old\\system"), u"C:\\data.old\\system.csv");
    EXPECT_EQ(Named(u"\\\\server.net\\share\\x"), u"\\\\server.net\\share\\x.csv");
    EXPECT_EQ(Named(u"system"), u"system.csv");
    EXPECT_EQ(Named(u""), u".csv");
}

TEST(CsvName, KeepsItsExtension) {
    for (const char16_t* name : {u"C:\\data\\system.csv", u"C:\\data\\system.txt", u"system.",
                                 u"C:\\.system", u"C:\\data\\a.b.c"}) {
        EXPECT_EQ(Named(name), name);
    }
}

TEST(CsvName, IsCutAtTheLongestPath) {
    const auto path = [](size_t characters) {
        return u"C:\\" + std::u16string(characters - 3, u'x');
    };
    EXPECT_EQ(Named(path(255)), path(255) + u".csv");
    EXPECT_EQ(Named(path(256)), path(256) + u".cs");
    EXPECT_EQ(Named(path(258)), path(258) + u".");
    EXPECT_EQ(Named(path(259)), path(259));
}

TEST(CsvName, OffersCsvFilesAndAllFiles) {
    using namespace std::string_literals;
    const auto filter = [](Language language) {
        InstallLanguage(language);
        char16_t text[CsvFilterCapacity + 1];
        std::fill(std::begin(text), std::end(text), u'?');
        WriteCsvFilter(text);
        const std::u16string whole(text, std::size(text));
        return whole.substr(0, whole.find(u"\0\0"s) + 2);
    };
    EXPECT_EQ(filter(LanguageGerman), u"CSV-Dateien\0*.csv\0Alle Dateien\0*.*\0\0"s);
    EXPECT_EQ(filter(LanguageEnglish), u"CSV files\0*.csv\0All files\0*.*\0\0"s);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

}  // namespace
}  // namespace tallymere
