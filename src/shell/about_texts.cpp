#include "shell/about_texts.h"

#include "shell/program_facts.h"
#include "shell/text_format.h"

namespace tallymere {

namespace {

constexpr int64_t YearCharacters = 4;
constexpr int64_t DateCharacters = 10;

// The first characters of the time at which the program was built.
struct BuildTimeStart {
    explicit BuildTimeStart(int64_t characters) {
        TextSink sink = {0, characters, text};
        for (int64_t i = 0; i < characters; i++) {
            SinkChar(sink, ProgramBuildTime[i]);
        }
        EndSinkText(sink);
    }

    char16_t text[DateCharacters + 1];
};

}  // namespace

void FormatAboutCaption(char16_t* buffer, int64_t capacity) {
    FormatBounded(buffer, capacity, uiText.TextAboutAbout, {ProgramName});
}

void FormatAboutText(char16_t* buffer, int64_t capacity, AboutControl control) {
    const UiTextEntry entry = AboutForm[control].text;
    const char16_t* format = entry == nullptr ? u"" : uiText.*entry;
    switch (control) {
        case AboutTitle:
            FormatBounded(buffer, capacity, u"%s %s", {ProgramName, ProgramVersion});
            break;
        case AboutNotice:
            FormatBounded(buffer, capacity, format, {ProgramName});
            break;
        case AboutDate:
            FormatBounded(buffer, capacity, format, {BuildTimeStart(DateCharacters).text});
            break;
        case AboutHolder:
            FormatBounded(buffer, capacity, format,
                          {BuildTimeStart(YearCharacters).text, MakerName});
            break;
        case AboutEMail:
            FormatBounded(buffer, capacity, format, {MakerEMail});
            break;
        case AboutHomepage:
            FormatBounded(buffer, capacity, format, {MakerWebAddress});
            break;
        case AboutDonate:
        case AboutClose:
        case AboutControlCount:
            FormatBounded(buffer, capacity, format);
            break;
    }
}

}  // namespace tallymere
