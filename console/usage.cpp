#include "console/usage.h"

#include <string_view>

#include "console/operation_list.h"
#include "console/option_usage.h"
#include "console/options.h"
#include "console/utf8.h"
#include "console/words.h"
#include "shell/program_facts.h"

namespace tallymere {

namespace {

// What stands in braces is replaced by what other files know.
constexpr std::string_view Usage =
    R"(usage: tallymere-console [options] [FORMULA ...]
       tallymere-console WORD [options] [OPERAND ...]

Evaluates each FORMULA, or each line of standard input when there is none, by
the rules of the calculator. Line n of standard output answers formula n: the
result, followed by a tab and "[ ]" when an exact number type lost a remainder,
or "error CODE POSITION: MESSAGE". An empty line answers an empty line. "ans" is
the last result as it was shown. Text is UTF-8.

{options}
What begins with "-" and a letter is an option; write the formula -x after "--".
A value may also be joined by "=": --digits=50.

A WORD does what another page of the program does; WORD --help explains it:

{words}
A formula that is such a word stands behind "--".

Exit status: 0 when all formulas succeeded, 1 when one failed or input or output
broke, 2 for bad options, 130 after Ctrl+C.
)";

}  // namespace

std::string UsageText() {
    return FillInUsage(Usage, {{"{options}", FormulaOptionUsage()}, {"{words}", WordUsage()}}) +
           OperationList();
}

std::string VersionText() {
    return EncodeUtf8(ProgramName) + " " + EncodeUtf8(ProgramVersion) + "\n";
}

}  // namespace tallymere
