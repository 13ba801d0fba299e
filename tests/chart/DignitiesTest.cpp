// The dignities table: the columns that follow from one another agree (a
// typing slip in one of the 12 rows shows here), and the longitude bounds
// of terms, faces, detriment and fall.
#include <gtest/gtest.h>

#include "chart/Dignities.h"

using namespace kal;

namespace {
int Opposite(int sign) {
    return (sign + 5) % 12 + 1;
}
} // namespace

TEST(Dignities, DetrimentAndFallAreOppositeDomicileAndExaltation) {
    for (int s = 1; s <= 12; ++s) {
        const SignDignities& row = Dignities[static_cast<size_t>(s)];
        EXPECT_EQ(row.detriment, DomicileRuler(Opposite(s))) << SignName[static_cast<size_t>(s)];
        EXPECT_EQ(row.fall, ExaltationRuler(Opposite(s))) << SignName[static_cast<size_t>(s)];
    }
}

TEST(Dignities, FacesRunInTheChaldeanOrderAndTermsCloseEachSign) {
    const int chaldean[7] = {Saturn, Jupiter, Mars, Sun, Venus, Mercury, Moon};
    int at = 2; // the first face of Aries is Mars'
    for (int s = 1; s <= 12; ++s) {
        const SignDignities& row = Dignities[static_cast<size_t>(s)];
        for (int face : row.faces) {
            EXPECT_EQ(face, chaldean[at % 7]) << SignName[static_cast<size_t>(s)];
            ++at;
        }
        int last = 0;
        for (const Term& t : row.terms) {
            EXPECT_GT(t.upTo, last) << SignName[static_cast<size_t>(s)];
            last = t.upTo;
        }
        EXPECT_EQ(last, 30);
    }
}

TEST(Dignities, LowerBoundsBelongToTheRange) {
    EXPECT_EQ(TermRuler(30.0), Venus);
    EXPECT_EQ(TermRuler(29.999), Saturn);
    EXPECT_EQ(TermRuler(359.99), Saturn);
    EXPECT_EQ(FaceRuler(70.0), Mars);
    EXPECT_EQ(FaceRuler(349.99), Jupiter);
    EXPECT_EQ(FaceRuler(350.0), Mars);
    EXPECT_TRUE(InDetriment(Saturn, 90.0));
    EXPECT_TRUE(InDetriment(Saturn, 149.99));
    EXPECT_FALSE(InDetriment(Saturn, 150.0));
    EXPECT_TRUE(InDetriment(Mercury, 345) && InFall(Mercury, 345));
}
