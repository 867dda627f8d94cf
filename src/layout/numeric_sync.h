// When a number field with spin buttons rewrites its text, and when it reports a change to its
// page.
#pragma once

#include <cstdint>

namespace tallymere {

/// Events after which text and position of the field may differ.
enum NumericEvent {
    NumericRangeSet,     ///< the page set the range
    NumericPositionSet,  ///< the page set the position
    NumericTextDone,     ///< the field lost the focus or got Return
    NumericSpun,         ///< a spin button or an arrow key; the spin control has written the text
};

struct NumericSyncRequest {
    bool write;   ///< write the position into the text
    bool notify;  ///< report a change to the page
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

/// True when `position` is reported to the page; it is `lastReported` from then on. A position that
/// the page itself set was not reported, so the next event that notifies reports it.
constexpr bool ReportsPosition(bool notify, int32_t position, int32_t lastReported) {
    return notify && position != lastReported;
}

/// The position for a text in the field. A text of digits, with or without a sign, is that number;
/// any other text means `position`. A number outside the range moves to the nearer end of it;
/// low <= high.
int32_t PositionOfText(const char16_t* text, int32_t position, int32_t low, int32_t high);

}  // namespace tallymere
