#pragma once

/// The pendant's screen, in pixels.
struct DisplaySize {
    static constexpr int width = 800;
    static constexpr int height = 600;
    static constexpr int contentWidth = 714;
    static constexpr int contentHeight = 504;
    static int widgetX; ///< screen position of the content area
    static int widgetY;
};
