// One run of the calculator without its window: formulas go in, lines come out.
#pragma once

#include <string>
#include <string_view>

#include "calculator/result_text.h"
#include "console/console_setup_scope.h"
#include "console/options.h"

namespace tallymere {

struct ConsoleAnswer {
    std::string line;  ///< without its end
    bool failed;
};

class Session {
public:
    /// Sets the calculator up; there is one session in a process.
    explicit Session(const ConsoleOptions& options);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Evaluates one formula, in UTF-8, as the calculator does when "=" is pressed.
    ConsoleAnswer Answer(std::string_view formula);

private:
    ConsoleSetupScope setup_;
    ResultForm form_;
    ResultStyle style_;
};

}  // namespace tallymere
