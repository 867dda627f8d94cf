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
        default:
            return true;
    }
}

bool IsDisabledDuringRun(ContainerControl control) {
    switch (control) {
        case ContainerTypeSlider:
        case ContainerPrecision:
        case ContainerAngleSlider:
        case ContainerNumberBase:
        case ContainerCaseKey:
            return true;
        default:
            return false;
    }
}

}  // namespace tallymere
