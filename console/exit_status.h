// How the program ends.
#pragma once

namespace tallymere {

enum ExitStatus {
    AllSucceeded = 0,
    SomethingFailed = 1,
    BadOptions = 2,
    EndedByInterrupt = 130,  ///< after Ctrl+C
};

}  // namespace tallymere
