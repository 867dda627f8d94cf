// The message loop of a program that measures its own windows.
#pragma once

#include "toolkit/win32.h"

namespace tallymere {

inline void HandleMessage() {
    MSG message = {};
    GetMessageW(&message, nullptr, 0, 0);
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

/// All messages that wait, each by `handle`, which takes one.
inline void HandleAllMessages(void (*handle)() = HandleMessage) {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) {
        handle();
    }
}

}  // namespace tallymere
