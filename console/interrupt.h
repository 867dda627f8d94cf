// Ctrl+C: ends a running calculation at its next check point, and the program after what it has to
// print. It ends the program at once when it waits for input, and when Ctrl+C comes again, such as
// for an output that nobody reads.
#pragma once

namespace tallymere {

/// What Ctrl+C does. Called by a signal handler or another thread.
void HandleInterrupt();

/// True after Ctrl+C.
bool Interrupted();

/// The program waits for input while this lives: Ctrl+C then ends it at once with EndedByInterrupt,
/// also one that came shortly before. All output must be written.
class WaitingScope {
public:
    WaitingScope();
    ~WaitingScope();
    WaitingScope(const WaitingScope&) = delete;
    WaitingScope& operator=(const WaitingScope&) = delete;
};

}  // namespace tallymere
