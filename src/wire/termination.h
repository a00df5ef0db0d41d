#pragma once

#include <functional>

/// From now on SIGTERM and SIGINT end the event loop of the application with code 0, so that what
/// is open is closed in order; `before` is called first, on the main thread. Called once, on the
/// main thread.
void quitOnTermination(std::function<void()> before = {});
