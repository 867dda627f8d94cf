#include "console/usage.h"

namespace tallymere {

const char* const UsageText =
    R"(usage: tallymere-console [options] [FORMULA ...]

Evaluates each FORMULA, or each line of standard input when there is none, by
the rules of the calculator. Line n of standard output answers formula n: the
result, followed by a tab and "[ ]" when an exact number type lost a remainder,
or "error CODE POSITION: MESSAGE". An empty line answers an empty line. "ans" is
the last result as it was shown. Text is UTF-8.

  --type real|cplx|uint|rat     number type (real); the first result that is
                                no fraction turns rat into real
  --digits N                    precision, 1 to 10000 (10)
  --base 2|8|10|16              output base for uint (10)
  --lower-hex                   small letters in base 16
  --form auto|fixed|scientific|mixed
                                notation of results (auto); mixed is for rat
  --group                       group digits in results
  --decimal point|comma         decimal separator (point)
  --thousands point|comma|apostrophe|narrow-space
                                separator of groups (apostrophe)
  --language en|de              language of messages (en)
  --var NAME=TEXT               a variable, itself a formula; repeatable
  --                            all that follows are formulas
  --help, --version             print this text, or the version

What begins with "-" and a letter is an option; write the formula -x after "--".
A value may also be joined by "=": --digits=50.

Exit status: 0 when all formulas succeeded, 1 when one failed or input or output
broke, 2 for bad options, 130 after Ctrl+C.
)";

const char* const VersionText = "Tallymere 3.9\n";

}  // namespace tallymere
