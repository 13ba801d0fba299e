// The cosmic state: the essential dignities of the seven traditional planets
// (domicile, exaltation, triplicity, term, face), their speed class and daily
// motion, a strength score, and below the table the peregrine planets, the
// planets in detriment and in fall and the receptions.
#pragma once

#include <array>
#include <string>

#include "chart/Chart.h"
#include "shell/Options.h"
#include "shell/OutputBuffer.h"

namespace kal {

// Rulers by the traditional tables, as body numbers; 0 where a sign has no
// exaltation ruler.
int DomicileRuler(int sign);
int ExaltationRuler(int sign);
int TriplicityRuler(int sign, bool dayChart);
int TermRuler(double longitude);
int FaceRuler(double longitude);

// "stat", "FAST", "SLOW" or "AVG." for a traditional planet's daily motion.
std::string SpeedClass(int body, double speed);

// Longitude ranges of detriment and fall of a traditional planet.
bool InDetriment(int body, double longitude);
bool InFall(int body, double longitude);

struct CosmicStateScores {
    std::array<double, 16> Strength{};   // by body number
    std::array<double, 11> HasDignity{}; // 1 for a planet ruling its own position
};

// Appends the cosmic-state section to the page and returns the scores.
CosmicStateScores ListCosmicState(const Chart& c, const Options& options, OutputBuffer& out);

} // namespace kal
