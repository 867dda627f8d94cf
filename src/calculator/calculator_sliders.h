// The positions of the calculator's two sliders. Each is the id of the label beside it as well.
#pragma once

#include <cstdint>

#include "shell/settings.h"

namespace tallymere {

inline constexpr int32_t FirstTypePosition = 300'000;
inline constexpr int32_t LastTypePosition = 300'003;
inline constexpr int32_t FirstAnglePosition = 200'000;
inline constexpr int32_t LastAnglePosition = 200'002;

/// What a slider tells while it moves, with the values that the system gives them. Others come
/// before or beside these two and do not count.
enum SliderNews : int32_t {
    SliderTracks = 5,
    SliderRests = 8,
};

constexpr bool MovesSlider(int32_t news) {
    return news == SliderTracks || news == SliderRests;
}

/// From a position, which the slider keeps in its range, to the setting and back.
NumberType TypeOfPosition(int32_t position);
int32_t PositionOfType(NumberType type);
AngleType AngleOfPosition(int32_t position);
int32_t PositionOfAngle(AngleType angle);

}  // namespace tallymere
