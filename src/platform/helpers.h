#pragma once

/// Degrees to radians.
double DegToRad(double degrees);

/// Waits `milliseconds` in a local event loop: replies and timers go on, the operator's input is
/// held back until the wait is over.
void Delayms(unsigned int milliseconds);
