// When a number field with spin buttons rewrites its text and when it tells its page.
#pragma once

#include <cstdint>

namespace tallymere {

/// What may bring text and position of the field out of step.
enum NumericEvent {
    NumericRangeSet,     ///< the page set the range
    NumericPositionSet,  ///< the page set the position
    NumericTextDone,     ///< the field lost the focus or got Return
    NumericSpun,         ///< a spin button or an arrow key; the spin control wrote the text itself
};

struct NumericSyncRequest {
    bool write;   ///< the text is to show the position
    bool notify;  ///< the page is to hear of a change
};

constexpr NumericSyncRequest SyncAfter(NumericEvent event) {
    switch (event) {
        case NumericTextDone:
            return {.write = true, .notify = true};
        case NumericSpun:
            return {.write = false, .notify = true};
        case NumericRangeSet:
        case NumericPositionSet:
            break;
    }
    return {.write = true, .notify = false};
}

/// Whether the page is called with `position`, which then becomes `lastReported`. A position that
/// the page itself set has not been reported: it is reported at the next event that notifies.
constexpr bool ReportsPosition(bool notify, int32_t position, int32_t lastReported) {
    return notify && position != lastReported;
}

/// The position that a text in the field stands for: the number that it is, digits with at most a
/// sign before them, else `position`; moved to the nearer end of the range, low <= high, when it
/// lies outside.
int32_t PositionOfText(const char16_t* text, int32_t position, int32_t low, int32_t high);

}  // namespace tallymere
