#pragma once

/// From now on SIGTERM and SIGINT end the event loop of the application with code 0, so that what
/// is open is closed in order. Called once, on the main thread.
void quitOnTermination();
