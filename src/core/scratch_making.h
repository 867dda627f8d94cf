// A ScratchStack for a thread that can report that there is no memory for it.
#pragma once

namespace tallymere {

/// As CreateScratchStack, but returns false without memory: the thread has no ScratchStack then.
bool TryCreateScratchStack();

}  // namespace tallymere
