// How both pages share the space. Lengths are logical units.
#pragma once

#include "layout/logical_units.h"

namespace tallymere {

/// Distances from the right or the lower edge of the client area.
inline constexpr int32_t PrimeNumberRoom = 62;   ///< what the number field leaves of the width
inline constexpr int32_t PrimeOutputRoom = 32;   ///< what the output box leaves of the width
inline constexpr int32_t PrimeButtonsRoom = 33;  ///< to the top of the buttons
inline constexpr int32_t PrimeCloseRoom = 100;   ///< to the left edge of Close

constexpr LayoutRect PlacePrimeNumber(LayoutRect place, LayoutSize client) {
    place.width = client.width - PrimeNumberRoom;
    return place;
}

/// `room` is what the output box leaves of the height.
constexpr LayoutRect PlacePrimeOutput(LayoutRect place, LayoutSize client, int32_t room) {
    place.width = client.width - PrimeOutputRoom;
    place.height = client.height - room;
    return place;
}

/// Start and Stop.
constexpr LayoutRect PlacePrimeButton(LayoutRect place, LayoutSize client) {
    place.y = client.height - PrimeButtonsRoom;
    return place;
}

constexpr LayoutRect PlacePrimeClose(LayoutRect place, LayoutSize client) {
    place = PlacePrimeButton(place, client);
    place.x = client.width - PrimeCloseRoom;
    return place;
}

}  // namespace tallymere
