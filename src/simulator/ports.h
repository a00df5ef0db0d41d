#pragma once

/// The IO ports of the simulated controller, as it reports them in its greeting.
struct Ports {
    int digitalOut = 16;
    int digitalIn = 16;
    int analogOut = 4;
};
