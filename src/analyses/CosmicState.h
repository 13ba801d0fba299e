// The cosmic state: the essential dignities of the seven traditional planets
// (domicile, exaltation, triplicity, term, face), their speed class and daily
// motion, a strength score, and below the table the peregrine planets, the
// planets in detriment and in fall and the receptions.
#pragma once

#include <array>
#include <string>

#include "base/Options.h"
#include "base/OutputBuffer.h"
#include "chart/Chart.h"

namespace kal {

// "stat", "FAST", "SLOW" or "AVG." for a traditional planet's daily motion.
std::string SpeedClass(int body, double speed);

struct CosmicStateScores {
    std::array<double, 16> Strength{};   // by body number
    std::array<double, 11> HasDignity{}; // 1 for a planet ruling its own position
};

// Appends the cosmic-state section to the page and returns the scores.
CosmicStateScores ListCosmicState(const Chart& c, const Options& options, OutputBuffer& out);

} // namespace kal
