#include "console/usage.h"

#include <cstdint>
#include <span>
#include <string_view>

#include "console/utf8.h"
#include "console/words.h"
#include "core/limits.h"
#include "core/number_bases.h"
#include "layout/number_base_layout.h"
#include "shell/languages.h"
#include "shell/program_facts.h"

namespace tallymere {

namespace {

// What stands in braces is replaced by what the tables of the program say.
constexpr std::string_view UsageForm =
    R"(usage: tallymere-console [options] [FORMULA ...]
       tallymere-console WORD [options] [OPERAND ...]

Evaluates each FORMULA, or each line of standard input when there is none, by
the rules of the calculator. Line n of standard output answers formula n: the
result, followed by a tab and "[ ]" when an exact number type lost a remainder,
or "error CODE POSITION: MESSAGE". An empty line answers an empty line. "ans" is
the last result as it was shown. Text is UTF-8.

  --type real|cplx|uint|rat     number type (real); the first result that is
                                no fraction turns rat into real
  --digits N                    precision, 1 to {MaxDigits} ({DefaultDigits})
{--base}output base for uint ({DecimalBase})
  --lower-hex                   small letters in bases above 10
  --form auto|fixed|scientific|mixed
                                notation of results (auto); mixed is for rat
{text options}  --var NAME=TEXT               a variable, itself a formula; repeatable
  --                            all that follows are formulas
  --help, --version             print this text, or the version

What begins with "-" and a letter is an option; write the formula -x after "--".
A value may also be joined by "=": --digits=50.

A WORD does what another page of the program does; WORD --help explains it:

{words}
A formula that is such a word stands behind "--".

Exit status: 0 when all formulas succeeded, 1 when one failed or input or output
broke, 2 for bad options, 130 after Ctrl+C.
)";

void Replace(std::string& text, std::string_view mark, const std::string& value) {
    text.replace(text.find(mark), mark.size(), value);
}

// An option with the words of its values, up to the column in which its explanation begins.
std::string OptionWithWords(std::string_view option, const auto& rows, auto word) {
    constexpr size_t column = 32;
    std::string text = "  " + std::string(option);
    char before = ' ';
    for (const auto& row : rows) {
        text += before;
        text += word(row);
        before = '|';
    }
    if (text.size() < column) {
        return text.append(column - text.size(), ' ');
    }
    return text + "\n" + std::string(column, ' ');
}

}  // namespace

std::string BaseOptionUsage(uint32_t listStyle) {
    const NumberBaseRows rows = RowsOfNumberBases(listStyle);
    return OptionWithWords("--base", std::span(rows.bases, static_cast<size_t>(rows.count)),
                           [](int32_t base) { return std::to_string(base); });
}

std::string TextOptionUsage() {
    return R"(  --group                       group digits in results
  --decimal point|comma         decimal separator (point)
  --thousands point|comma|apostrophe|narrow-space
                                separator of groups (apostrophe)
)" +
           OptionWithWords("--language", Languages,
                           [](const LanguageRow& row) { return std::string(row.code); }) +
           "language of texts and messages (" + Languages[0].code + ")\n";
}

std::string UsageText() {
    std::string text(UsageForm);
    Replace(text, "{MaxDigits}", std::to_string(MaxDigits));
    Replace(text, "{DefaultDigits}", std::to_string(DefaultDigits));
    Replace(text, "{DecimalBase}", std::to_string(DecimalBase));
    Replace(text, "{--base}", BaseOptionUsage(NumberBaseOffersAll));
    Replace(text, "{text options}", TextOptionUsage());
    Replace(text, "{words}", WordList());
    return text;
}

std::string VersionText() {
    return EncodeUtf8(ProgramName) + " " + EncodeUtf8(ProgramVersion) + "\n";
}

}  // namespace tallymere
