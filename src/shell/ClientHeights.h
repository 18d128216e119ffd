#pragma once

#include <optional>

// The heights that the main window's inner area is divided by, in pixels.
struct ClientHeights {
    double inner = 0;                 // of the window without frame and menu bar
    std::optional<double> toolbar;    // while it is shown
    std::optional<double> statusBar;  // while it is shown
    double topStrip = 0;
};

// The height that is left for the main splitter, rounded to whole pixels at each step; empty when the window
// is too small to have any, and the splitter then stays as it is.
std::optional<int> SplitterHeight(const ClientHeights& heights);
