// The wheel export of kaltrova-cli lives in a module of its own
// (kaltrova-cli-wheel.so beside the program), loaded only by the wheel
// command: the listing commands start without Qt. The program and the
// module come from one build, so the wheel's input crosses as it is.
#pragma once
#include <cstddef>

#include "wheel/WheelPaint.h"

namespace kal {

// Bumped whenever the table below or the types it passes change.
inline constexpr int WheelModuleVersion = 1;

struct WheelExporter {
    int version; // WheelModuleVersion of the module's build
    // Starts Qt's painter without windows (offscreen when there is no
    // display, in a private runtime folder when the session has none) and
    // registers the wheel's fonts from the program directory.
    void (*open)(const char* program, const char* appPath);
    // Whether the file name asks for a format the export writes.
    bool (*knowsFormat)(const char* file);
    // Writes the wheel to `file` (PNG and SVG as a window of width by height
    // pixels shows it, PDF as the printed page). False with the reason in
    // `error` when it could not.
    bool (*write)(const char* file, const WheelPaintInput& in, const char* glyphFont, int width,
                  int height, char* error, std::size_t errorSize);
    // Removes the fonts and ends Qt.
    void (*close)();
};

// The module's file and the name of its one exported function, which
// returns the table (as `const void*`, the one type the program calls every
// module's entry through).
inline constexpr const char* WheelModuleFile = "kaltrova-cli-wheel.so";
inline constexpr const char* WheelModuleEntry = "KaltrovaWheelExporter";

} // namespace kal
