// Reading names and cities files, the locked-list reload, the transfer of a
// place and the time-zone table with its list layout.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "TestSupport.h"
#include "birthdata/CitiesFile.h"
#include "birthdata/NamesFile.h"
#include "birthdata/TimeZones.h"

namespace kal {
namespace {

namespace fs = std::filesystem;

TEST(NamesFile, EmptyLineEndsTheListAndBadLinesAreReportedAndSkipped) {
    test::ScratchAppDir dir;
    dir.Write("T.FIL", "A,12 May 1959,10.43,A,6,75.23,39.45,a@x\r\n"
                       "only,three,fields\r\n"
                       "B,1 Jan 1960,1.00,P,5,71.04,42.21,\r\n"
                       "\r\n"
                       "C,1 Jan 1961,1.00,P,5,71.04,42.21,\r\n");
    auto list = LoadNamesFile(dir.path() / "T.FIL");
    ASSERT_EQ(list.records.size(), 2u);
    EXPECT_EQ(list.records[1].RecName, "B");
    ASSERT_EQ(list.errors.size(), 1u);
    EXPECT_EQ(list.errors[0], NamesFileLineError());
    EXPECT_FALSE(LoadNamesFile(dir.path() / "MISSING.FIL").opened);
}

TEST(LockedReload, SelectionAndScrollRow) {
    // Locked on 20, file now holds 15 records: entry 14, top row 2.
    auto r = LockedReload(true, false, 20, 15);
    EXPECT_TRUE(r.select);
    EXPECT_EQ(r.index, 14);
    EXPECT_EQ(r.lockedIndex, 14);
    EXPECT_EQ(r.topRow, 2);
    r = LockedReload(true, false, 5, 15);
    EXPECT_EQ(r.index, 5);
    EXPECT_EQ(r.topRow, 0);
    // Nothing is picked when unlocked, when the input must be kept, or
    // from an empty list.
    EXPECT_FALSE(LockedReload(false, false, 3, 15).select);
    EXPECT_FALSE(LockedReload(true, true, 3, 15).select);
    r = LockedReload(true, false, 3, 0);
    EXPECT_FALSE(r.select);
    EXPECT_EQ(r.lockedIndex, 0);
}

struct PlaceRow {
    const char* line;
    const char* lonDeg;
    const char* lonMin;
    bool east;
    const char* latDeg;
    const char* latMin;
    bool south;
    const char* tz;
};

TEST(CitiesFile, TransferOfAPlace) {
    const PlaceRow rows[] = {
        {"Sydney,NSW,151E12,33S52,-10", "151", "12", true, "33", "52", true, "-10"},
        {"Lagos,NG,03E24,06N27,-1", "3", "24", true, "6", "27", false, "-1"},
        {"Kolkata,IN,088E22,22N34,-5.5", "88", "22", true, "22", "34", false, "-5.5"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        auto c = ParseCityLine(row.line);
        ASSERT_TRUE(c);
        InputFields in;
        in.txtName = "keep";
        in.txtBirthHour = "3";
        EXPECT_FALSE(TransferPlace(*c, in));
        EXPECT_EQ(in.txtLongDeg, row.lonDeg);
        EXPECT_EQ(in.txtLongMin, row.lonMin);
        EXPECT_EQ(in.optEast, row.east);
        EXPECT_EQ(in.txtLatDeg, row.latDeg);
        EXPECT_EQ(in.txtLatMin, row.latMin);
        EXPECT_EQ(in.optSouth, row.south);
        EXPECT_EQ(in.txtTZ, row.tz);
        EXPECT_EQ(in.txtName, "keep");
        EXPECT_EQ(in.txtBirthHour, "3");
    }
    InputFields in;
    EXPECT_EQ(TransferPlace(*ParseCityLine("X,Y,1xW04,42N21,5"), in), CityFormatError());
    EXPECT_EQ(TransferPlace(*ParseCityLine("X,Y,71W04,42N21,five"), in), CityFormatError());
}

TEST(CitiesFile, LoadingFindingAndWritingCoordinates) {
    test::ScratchAppDir dir;
    dir.Write("T.LL", "Boston,MA,71W04,42N21,5\r\nbad line\r\nBoston,MA,70W00,40N00,5\r\n"
                      ",,\r\nAfter,XX,01W01,01N01,0\r\n");
    auto list = LoadCitiesFile(dir.path() / "T.LL");
    ASSERT_EQ(list.places.size(), 2u);
    EXPECT_EQ(list.errors.size(), 1u);
    EXPECT_EQ(list.places[0].PlaceName, "Boston,MA");
    // Two places with the same text: the first is found.
    EXPECT_EQ(FindPlace(list.places, "Boston,MA"), 0);
    EXPECT_EQ(CityLongitude(5, 30, false), "05W30");
    EXPECT_EQ(CityLongitude(151, 2, true), "151E02");
    EXPECT_EQ(CityLatitude(33, 52, true), "33S52");
    EXPECT_EQ(CityLine(list.places[0]), "Boston,MA,71W04,42N21,5");
}

TEST(CitiesFile, Windows1252PlacesAreReadAndTransferred) {
    test::ScratchAppDir dir;
    dir.Write("W.LL", "S\xe3o Paulo,BR,46W38,23S33,3\r\n");
    auto list = LoadCitiesFile(dir.path() / "W.LL");
    ASSERT_EQ(list.places.size(), 1u);
    EXPECT_EQ(list.encoding, TextEncoding::Windows1252);
    EXPECT_EQ(list.places[0].PlaceName, "São Paulo,BR");
    EXPECT_EQ(FindPlace(list.places, "São Paulo,BR"), 0);
    InputFields in;
    EXPECT_FALSE(TransferPlace(list.places[0], in));
    EXPECT_EQ(in.txtLatDeg, "23");
}

TEST(CitiesFile, ShippedFileReadsWithoutErrors) {
    auto list = LoadCitiesFile(test::AppDir() / "GA_MA.LL");
    ASSERT_TRUE(list.opened);
    EXPECT_TRUE(list.errors.empty());
    EXPECT_GT(list.places.size(), 500u);
    for (const auto& p : list.places) {
        InputFields in;
        EXPECT_FALSE(TransferPlace(p, in)) << p.PlaceName;
    }
}

TEST(TimeZones, FreeFormatReading) {
    auto f = FreeFormatFields("\"Name, with comma\",ABC, 5\r\nPlain , X,-3.5\n");
    ASSERT_TRUE(f);
    ASSERT_EQ(f->size(), 6u);
    EXPECT_EQ((*f)[0], "Name, with comma");
    EXPECT_EQ((*f)[2], "5");
    EXPECT_EQ((*f)[3], "Plain");
    EXPECT_EQ((*f)[5], "-3.5");
    EXPECT_FALSE(FreeFormatFields("\"open,X,1"));
}

TEST(TimeZones, EmptyNameEndsTheTableAndShortRecordIsCorrupt) {
    auto t = ParseZoneTable("Eastern,EST,5\r\n,,\r\nCentral,CST,6\r\n");
    EXPECT_EQ(t.ZoneName.size(), 1u);
    EXPECT_FALSE(t.corrupt);
    t = ParseZoneTable("Eastern,EST,5\r\nCentral,CST\r\n");
    EXPECT_EQ(t.ZoneName.size(), 1u);
    EXPECT_TRUE(t.corrupt);
}

TEST(TimeZones, ListLineAlignment) {
    EXPECT_EQ(ZoneListLine("Eastern", "EST", "5"),
              "Eastern" + std::string(25, ' ') + " -  EST =   5");
    EXPECT_EQ(ZoneListLine("A", "B", "10"),
              std::string("A") + std::string(31, ' ') + " -    B =  10");
    EXPECT_EQ(ZoneListLine("A", "B", "100").substr(40), "= 100");
    EXPECT_EQ(ZoneListLine("A", "B", "-5.5").substr(40), "=  -5.5");
    EXPECT_EQ(ZoneListLine("A", "B", "-100").substr(40), "=-100");
    EXPECT_EQ(ZoneListLine("A", "B", "-0,5").substr(40), "=  -0,5");
    // A name longer than 32 characters shifts the columns.
    std::string longName(40, 'x');
    EXPECT_EQ(ZoneListLine(longName, "ABCD", "0"), longName + " - ABCD =   0");
}

TEST(TimeZones, PickSetsZoneAndDirection) {
    ZoneTable t = ParseZoneTable("Eastern,EST,5\nGreenwich,GMT,0\nIndia,IST,-5.5\nNew-Zone,NZ,1\n");
    InputFields in;
    EXPECT_FALSE(ApplyZone(t, ZoneListLine("Eastern", "EST", "5"), in));
    EXPECT_EQ(in.txtTZ, " 5");
    EXPECT_FALSE(in.optEast);
    in.optEast = true;
    EXPECT_FALSE(ApplyZone(t, ZoneListLine("Greenwich", "GMT", "0"), in));
    EXPECT_EQ(in.txtTZ, " 0");
    EXPECT_FALSE(in.optEast);
    EXPECT_FALSE(ApplyZone(t, ZoneListLine("India", "IST", "-5.5"), in));
    EXPECT_EQ(in.txtTZ, "-5.5");
    EXPECT_TRUE(in.optEast);
    // A "-" inside the name cuts it short: no zone matches.
    EXPECT_EQ(ApplyZone(t, ZoneListLine("New-Zone", "NZ", "1"), in), TzCorruptMessage());
}

TEST(TimeZones, ShippedTableIsWholeAndListsWestPositive) {
    ZoneTable t = LoadZoneTable(test::AppDir() / "TZ.DAT");
    ASSERT_FALSE(t.corrupt);
    ASSERT_GT(t.ZoneName.size(), 30u);
    for (size_t i = 0; i < t.ZoneName.size(); ++i) {
        SCOPED_TRACE(t.ZoneName[i]);
        EXPECT_LE(t.ZoneName[i].size(), 32u);
        EXPECT_LE(t.ZoneCode[i].size(), 4u);
        EXPECT_EQ(t.ZoneName[i].find('-'), std::string::npos);
        InputFields in;
        EXPECT_FALSE(ApplyZone(t, ZoneListLine(t.ZoneName[i], t.ZoneCode[i], t.ZoneOffset[i]), in));
    }
}

} // namespace
} // namespace kal
