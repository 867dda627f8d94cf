#include "calculator/calculator_form.h"

namespace tallymere {

bool IsShownForType(ContainerControl control, NumberType type) {
    switch (control) {
        case ContainerPrecisionLabel:
        case ContainerPrecision:
            return type != NumberTypeUint;
        case ContainerAngleSlider:
        case ContainerAngleDeg:
        case ContainerAngleRad:
        case ContainerAngleGon:
            return type == NumberTypeReal || type == NumberTypeComplex;
        case ContainerDigitCount:
        case ContainerNumberBase:
        case ContainerCaseKey:
            return type == NumberTypeUint;
        case ContainerTypeSlider:
        case ContainerTypeUint:
        case ContainerTypeRat:
        case ContainerTypeReal:
        case ContainerTypeCplx:
        case ContainerFirstKey:
        case ContainerBracketMark:
        case ContainerControlCount:
            break;
    }
    return true;  // of the other keys too, which have no enumerators
}

bool IsDisabledDuringRun(ContainerControl control) {
    switch (control) {
        case ContainerTypeSlider:
        case ContainerPrecision:
        case ContainerAngleSlider:
        case ContainerNumberBase:
        case ContainerCaseKey:
            return true;
        case ContainerTypeUint:
        case ContainerTypeRat:
        case ContainerTypeReal:
        case ContainerTypeCplx:
        case ContainerPrecisionLabel:
        case ContainerAngleDeg:
        case ContainerAngleRad:
        case ContainerAngleGon:
        case ContainerFirstKey:
        case ContainerBracketMark:
        case ContainerDigitCount:
        case ContainerControlCount:
            break;
    }
    return false;  // of the other keys too, which have no enumerators
}

}  // namespace tallymere
