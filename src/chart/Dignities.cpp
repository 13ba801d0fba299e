#include "chart/Dignities.h"

#include <cmath>

namespace kal {

namespace {
const SignDignities& Row(int sign) {
    return Dignities.at(static_cast<size_t>(sign));
}
} // namespace

int DomicileRuler(int sign) {
    return Row(sign).domicile;
}

int OuterRuler(int sign) {
    return Row(sign).outer;
}

int ModernRuler(int sign) {
    return OuterRuler(sign) != 0 ? OuterRuler(sign) : DomicileRuler(sign);
}

bool RulesSign(int body, int sign, bool withOuter) {
    return DomicileRuler(sign) == body || (withOuter && OuterRuler(sign) == body);
}

int ExaltationRuler(int sign) {
    return Row(sign).exaltation;
}

int TriplicityRuler(int sign, bool dayChart) {
    return dayChart ? Row(sign).tripDay : Row(sign).tripNight;
}

int TermRuler(double L) {
    const int sign = SignOf(L);
    const double signStart = 30.0 * (sign - 1);
    const auto& terms = Row(sign).terms;
    for (const auto& t : terms)
        if (L < signStart + t.upTo) return t.ruler;
    return terms.back().ruler;
}

int FaceRuler(double L) {
    const int sign = SignOf(L);
    const int decan = static_cast<int>(std::floor((L - 30.0 * (sign - 1)) / 10));
    return Row(sign).faces.at(static_cast<size_t>(decan));
}

bool InDetriment(int body, double L) {
    return Row(SignOf(L)).detriment == body;
}

bool InFall(int body, double L) {
    return Row(SignOf(L)).fall == body;
}

} // namespace kal
