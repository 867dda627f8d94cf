#include "calculator/calculator_sliders.h"

#include <algorithm>
#include <iterator>

namespace tallymere {

namespace {

constexpr NumberType Types[] = {NumberTypeUint, NumberTypeRational, NumberTypeReal,
                                NumberTypeComplex};
static_assert(std::size(Types) == LastTypePosition - FirstTypePosition + 1);

constexpr AngleType Angles[] = {AngleDegrees, AngleRadians, AngleGon};
static_assert(std::size(Angles) == LastAnglePosition - FirstAnglePosition + 1);

}  // namespace

NumberType TypeOfPosition(int32_t position) {
    return Types[position - FirstTypePosition];
}

int32_t PositionOfType(NumberType type) {
    return FirstTypePosition +
           static_cast<int32_t>(std::find(std::begin(Types), std::end(Types), type) - Types);
}

AngleType AngleOfPosition(int32_t position) {
    return Angles[position - FirstAnglePosition];
}

int32_t PositionOfAngle(AngleType angle) {
    return FirstAnglePosition +
           static_cast<int32_t>(std::find(std::begin(Angles), std::end(Angles), angle) - Angles);
}

}  // namespace tallymere
