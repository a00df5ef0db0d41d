#pragma once

/// Degrees to radians.
double DegToRad(double degrees);

/// Waits `milliseconds` in a local event loop: replies and timers go on, the operator's input is
/// held back until the wait is over. A call from within a wait waits on its own; the outer call
/// returns after the inner one.
void Delayms(unsigned int milliseconds);

/// Whether some Delayms() is waiting at this moment.
bool isInDelay();
