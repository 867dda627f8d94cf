#include "formula/complex_evaluation.h"

#include "formula/angles.h"
#include "functions/complex_roots.h"

namespace tallymere {

namespace {

// The degree and the branch of a root are integers, so a value that is not real is out of bounds.
bool IsRootIndex(ComplexNumber* dest, const ComplexNumber* index) {
    if (!ComplexIsReal(index)) {
        ComplexSetNaN(dest, CalcErrorUndefined);
        return false;
    }
    return true;
}

}  // namespace

void ComplexTakeRealPart(ComplexNumber* dest, const ComplexNumber* z) {
    RealCopy(RealPart(dest), RealPart(z));
    ComplexClearImaginaryPart(dest);
}

void ComplexTakeImaginaryPart(ComplexNumber* dest, const ComplexNumber* z) {
    RealCopy(RealPart(dest), ImaginaryPart(z));
    ComplexClearImaginaryPart(dest);
}

void ComplexAngle(ComplexNumber* dest, const ComplexNumber* z, AngleUnit unit) {
    AngleOfPoint(RealPart(dest), ImaginaryPart(z), RealPart(z), unit);
    ComplexClearImaginaryPart(dest);
}

void ComplexSqrtOfBranch(ComplexNumber* dest, const ComplexNumber* z, const ComplexNumber* branch) {
    if (IsRootIndex(dest, branch)) {
        ComplexSqrtBranch(dest, z, RealPart(branch));
    }
}

void ComplexCbrtOfBranch(ComplexNumber* dest, const ComplexNumber* z, const ComplexNumber* branch) {
    if (IsRootIndex(dest, branch)) {
        ComplexCbrtBranch(dest, z, RealPart(branch));
    }
}

void ComplexRootOfBranch(ComplexNumber* dest, const ComplexNumber* degree, const ComplexNumber* z,
                         const ComplexNumber* branch) {
    if (IsRootIndex(dest, degree) && IsRootIndex(dest, branch)) {
        ComplexRootBranch(dest, RealPart(degree), z, RealPart(branch));
    }
}

}  // namespace tallymere
