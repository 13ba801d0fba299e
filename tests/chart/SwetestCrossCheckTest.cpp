// Positions, speeds and cusps against Debian's swetest, an independent front
// end to the same ephemeris, on random charts in every house system.
#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <sstream>

#include "TestSupport.h"
#include "base/VbText.h"
#include "chart/Calc.h"

using namespace kal;

namespace {

// Longitude and speed of each output line: the bodies, the cusps, Asc, MC
// and ARMC.
std::vector<std::pair<double, double>> RunSwetest(double jdUT, double lon, double lat, char hsys) {
    char cmd[512];
    std::snprintf(cmd, sizeof cmd,
                  "swetest -bj%.10f -ut -p0123456789m -fPls -g, -head -house%.10f,%.10f,%c "
                  "-edir%s 2>/dev/null",
                  jdUT, lon, lat, hsys, (kal::test::AppDir() / "ephems").c_str());
    auto run = kal::test::RunShell(cmd);
    std::vector<std::pair<double, double>> rows;
    std::istringstream in(run.out);
    std::string line;
    while (std::getline(in, line)) {
        auto c1 = line.find(',');
        if (c1 == std::string::npos) continue;
        auto c2 = line.find(',', c1 + 1);
        rows.emplace_back(Val(line.substr(c1 + 1)),
                          c2 == std::string::npos ? 0 : Val(line.substr(c2 + 1)));
    }
    return rows;
}

InputFields RandomInput(std::mt19937& rng, char hsys) {
    auto uni = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); };
    InputFields in;
    in.txtName = "Random";
    in.txtYear = std::to_string(uni(1900, 2049));
    in.txtMonth = std::to_string(uni(1, 12));
    in.txtDay = std::to_string(uni(1, 28));
    in.txtBirthHour = std::to_string(uni(1, 12));
    in.txtBirthMinute = std::to_string(uni(0, 59));
    in.optAM = uni(0, 1) == 0;
    in.optEast = uni(0, 1) == 1;
    in.optSouth = uni(0, 1) == 1;
    in.txtLongDeg = std::to_string(uni(0, 179));
    in.txtLongMin = std::to_string(uni(0, 59));
    int maxLat = (hsys == 'P' || hsys == 'K') ? 65 : 80;
    in.txtLatDeg = std::to_string(uni(0, maxLat));
    in.txtLatMin = std::to_string(uni(0, 59));
    int zone = uni(0, 12);
    in.txtTZ = std::to_string(in.optEast ? -zone : zone);
    return in;
}

} // namespace

TEST(SwetestCrossCheck, BodiesSpeedsAndCuspsInEverySystem) {
    if (kal::test::RunShell("command -v swetest >/dev/null").status != 0)
        GTEST_SKIP() << "swetest missing";
    OpenEphemeris(kal::test::AppDir() / "ephems");
    std::mt19937 rng(20261122);
    for (const auto& hs : HouseSystems) {
        for (int n = 0; n < 8; ++n) {
            InputFields in = RandomInput(rng, hs.letter);
            ASSERT_TRUE(InputChecks(in, hs.letter).empty());
            Chart c;
            c.HouseSystem = hs.letter;
            FillIdentityFromInput(c, in, 0);
            CalcJulDayLocal(c);
            SetCalcInputsFromInput(c, in);
            CalcEphemeris(c);
            // The program's own day number names the same moment.
            EXPECT_NEAR(c.ChartJulDay, c.JulDayUT, 1e-6);

            const auto rows = RunSwetest(c.JulDayUT, c.GeoLong, c.GeoLat, hs.letter);
            ASSERT_GE(rows.size(), 26u) << "swetest output incomplete";
            const int bodyOrder[11] = {Sun,    Moon,   Mercury, Venus, Mars, Jupiter,
                                       Saturn, Uranus, Neptune, Pluto, NNode};
            std::string where = std::string(hs.name) + " " + in.txtMonth + "/" + in.txtDay + "/" +
                                in.txtYear + " " + in.txtBirthHour + ":" + in.txtBirthMinute;
            for (int i = 0; i < 11; ++i) {
                EXPECT_NEAR(c.PlanetLong[static_cast<size_t>(bodyOrder[i])],
                            rows[static_cast<size_t>(i)].first, 2e-7)
                    << where << " body " << bodyOrder[i];
                EXPECT_NEAR(c.PlanetSpeed[static_cast<size_t>(bodyOrder[i])],
                            rows[static_cast<size_t>(i)].second, 2e-7)
                    << where;
            }
            for (int h = 1; h <= 12; ++h) {
                EXPECT_NEAR(c.CuspTable[static_cast<size_t>(CuspIndexOfHouse(h))],
                            rows[static_cast<size_t>(10 + h)].first, 2e-7)
                    << where << " house " << h;
            }
            EXPECT_NEAR(c.PlanetLong[Asc], rows[23].first, 2e-7) << where;
            EXPECT_NEAR(c.PlanetLong[MC], rows[24].first, 2e-7) << where;
            EXPECT_NEAR(c.ARMC, rows[25].first, 2e-7) << where;
            for (int j = 1; j <= 11; ++j)
                EXPECT_EQ(c.RetroFlags[static_cast<size_t>(j - 1)] == 'R',
                          c.PlanetSpeed[static_cast<size_t>(j)] < 0);
        }
    }
}
