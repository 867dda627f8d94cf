// The one request to stop the running calculation.
//
// Every Stop of a page, the closing of a page that calculates and Ctrl+C in the console raise it.
// The long loops of the arithmetic and of the solvers poll it, and so does the evaluation of a
// formula between two tokens. Whoever begins a run takes an older request back first.
#pragma once

#include <cstdint>

namespace tallymere {

/// The byte of the request: 1 while the running calculation is asked to stop, else 0. Several
/// threads use it, so it is read and written through the functions here only.
/// NumberContext::abortFlag points to it from the start.
extern uint8_t cancelFlag;

/// Asks the running calculation to stop at its next check point. May be called from any thread and
/// from a signal handler.
void RequestStop();

/// Takes the request back. Only the owner of a run calls it, at the beginning or end of the run.
void ClearStopRequest();

/// True when the running calculation is asked to stop. Long loops poll it at their check points.
/// It reads the byte that NumberContext::abortFlag points to; a null pointer never asks for a stop.
bool StopRequested();

/// Writes any byte that abortFlag may point to: 1 asks for a stop, 0 takes the request back. May be
/// called from any thread and from a signal handler.
void SetStopByte(uint8_t* flag, uint8_t value);

}  // namespace tallymere
