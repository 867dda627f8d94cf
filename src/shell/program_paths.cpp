#include "shell/program_paths.h"

#include <string_view>

#include "shell/languages.h"
#include "shell/program_facts.h"
#include "shell/text_format.h"
#include "shell/ui_error.h"

namespace tallymere {

namespace {

// The number is the version of the format and not of the program.
constexpr const char16_t* SettingsFileName = u"UserSettings_3.8.ini";
constexpr const char16_t* HelpFolderName = u"HtmlBrowserHelpFiles";
constexpr const char16_t* HelpFirstPage = u"overview";

// No run speaks LanguageAutomatic, so none shows the suffix of no language.
const char16_t* HelpSuffix(Language language) {
    const LanguageRow* row = FindLanguage(language);
    return row != nullptr ? row->helpSuffix : u"_??";
}

}  // namespace

void FormatSettingsFolder(char16_t (&folder)[PathCapacity + 1], const char16_t* userFolder) {
    FormatBounded(folder, PathCapacity, u"%s\\%s", {userFolder, ProgramName});
}

void FormatSettingsFile(char16_t (&path)[PathCapacity + 1], const char16_t* folder) {
    FormatBounded(path, PathCapacity, u"%s\\%s", {folder, SettingsFileName});
}

void FormatUnreadFile(char16_t (&path)[UnreadPathCapacity + 1], const char16_t* settingsFile,
                      int32_t number) {
    if (number == 1) {
        FormatBounded(path, UnreadPathCapacity, u"%s.bad", {settingsFile});
    } else {
        FormatBounded(path, UnreadPathCapacity, u"%s.bad%d", {settingsFile, number});
    }
}

void FormatHelpFolder(char16_t (&folder)[PathCapacity + 1], const char16_t* programFile) {
    const std::u16string_view file = programFile;
    const size_t lastBackslash = file.rfind(u'\\');
    TextSink sink = {0, PathCapacity, folder};
    for (const char16_t c : file.substr(0, lastBackslash == file.npos ? 0 : lastBackslash)) {
        SinkChar(sink, c);
    }
    FormatIntoSink(sink, u"\\%s", {HelpFolderName});
    EndSinkText(sink);
    if (SinkOverflowed(sink)) {
        SetUiError(UiErrorTextOverflow);
    }
}

void FormatHelpAddress(char16_t (&address)[PathCapacity + 1], const char16_t* helpFolder,
                       Language language) {
    FormatBounded(address, PathCapacity, u"%s%s\\%s\\%s%s.html",
                  {FileScheme, helpFolder, ProgramName, HelpFirstPage, HelpSuffix(language)});
}

}  // namespace tallymere
