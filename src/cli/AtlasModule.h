// kaltrova-cli's atlas command lives in a module of its own
// (kaltrova-cli-atlas.so beside the program): it alone needs the time-zone
// library, a C++ library whose runtime the listing commands would otherwise
// load and relocate at every start. Only C strings and numbers cross, so the
// module keeps to its own copy of the C++ runtime.
#pragma once

namespace kal {

// Bumped whenever the table below changes.
inline constexpr int AtlasModuleVersion = 1;

struct AtlasCommand {
    int version; // AtlasModuleVersion of the module's build
    // The atlas command on its own session of the program directory
    // `appDir` (`shippedDir` the shipped files' folder, or empty): every
    // place `place` finds, with the time in force at the local `date`
    // (YYYY-MM-DD) and `time` (HH:MM), on the standard output. Returns the
    // exit status.
    int (*run)(const char* appDir, const char* shippedDir, const char* place, const char* date,
               const char* time, int limit);
};

inline constexpr const char* AtlasModuleFile = "kaltrova-cli-atlas.so";
inline constexpr const char* AtlasModuleEntry = "KaltrovaAtlasCommand";

} // namespace kal
