#pragma once

/// Degrees to radians.
double DegToRad(double degrees);

/// Waits `milliseconds` in a local event loop: replies and timers go on, the operator's input is
/// held back: touches and keys of the screen wait in the queue until the wait is over, what is sent
/// to a widget directly is dropped. A call from within a wait waits on its own; the outer call
/// returns after the inner one.
void Delayms(unsigned int milliseconds);

/// Whether some Delayms() is waiting at this moment.
bool isInDelay();
