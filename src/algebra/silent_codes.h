// A scope for attempts whose failure means nothing to the caller of the solver.
#pragma once

#include "core/number_context.h"

namespace tallymere {

/// Clears the code that was noted before, so that a routine sees its own codes alone. At the end of
/// its life that code is in force again, and no other: where an exact value does not fit, there is
/// none, and that is no error.
class SilentCodesScope {
public:
    SilentCodesScope() : saved_(numberContext.calcError) {
        numberContext.calcError = CalcErrorNone;
    }
    ~SilentCodesScope() { numberContext.calcError = saved_; }
    SilentCodesScope(const SilentCodesScope&) = delete;
    SilentCodesScope& operator=(const SilentCodesScope&) = delete;

    /// True when no code was noted since the beginning.
    bool NoneNoted() const { return numberContext.calcError == CalcErrorNone; }

private:
    CalcError saved_;
};

}  // namespace tallymere
