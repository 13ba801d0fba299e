// Saving a record into a names file: the numbers as written, the duplicate
// decision, the backup and renames, and failures that must leave the names
// file as it was.
#include <gtest/gtest.h>

#include <filesystem>

#include <unistd.h>

#include "TestSupport.h"
#include "base/SafeWrite.h"
#include "base/TextFile.h"
#include "birthdata/NamesFile.h"
#include "birthdata/RecordWriter.h"

namespace kal {
namespace {

namespace fs = std::filesystem;

using TempDir = test::TempFolder;

InputFields Mary() {
    InputFields in;
    in.txtName = "Mary Smith";
    in.txtMonth = "2";
    in.txtDay = "3";
    in.txtYear = "1971";
    in.txtBirthHour = "4";
    in.txtBirthMinute = "5";
    in.optAM = false;
    in.txtTZ = "5";
    in.txtLongDeg = "71";
    in.txtLongMin = "4";
    in.txtLatDeg = "42";
    in.txtLatMin = "21";
    in.txtEmail = "mary@example.org";
    return in;
}

TEST(RecordFromInput, NumberFormsAndDateOrders) {
    InputFields in = Mary();
    EXPECT_EQ(RecordLine(*RecordFromInput(in, 0)),
              "Mary Smith,03 Feb 1971,4.05,P,5,071.04,42.21,mary@example.org");
    // Month 2 and day 3 are read from their own fields in every date order.
    for (int order : {1, 2}) EXPECT_EQ(RecordFromInput(in, order)->RecDate, "03 Feb 1971");

    in.txtBirthHour = "10";
    in.txtBirthMinute = "43";
    in.txtLongDeg = "5";
    in.txtLongMin = "7";
    in.optEast = true;
    in.txtLatDeg = "9";
    in.txtLatMin = "52";
    in.optSouth = true;
    auto r = RecordFromInput(in, 0);
    ASSERT_TRUE(r);
    EXPECT_EQ(r->RecTime, "10.43");
    EXPECT_EQ(r->RecLong, "-005.07");
    EXPECT_EQ(r->RecLat, "-09.52");

    in.txtMonth = "13";
    EXPECT_FALSE(RecordFromInput(in, 0));
    in.txtMonth = "2";
    in.txtDay = "30";
    EXPECT_FALSE(RecordFromInput(in, 0));
}

TEST(DuplicateQuestion, TitleAndTextLineByLine) {
    auto r = ParseRecordLine("MARY SMITH,03 Feb 1971,4.05,P,5,071.04,42.21,m@x.org");
    Message q = DuplicateQuestion(*r);
    EXPECT_EQ(q.caption, "MARY SMITH already exists");
    EXPECT_EQ(q.icon, Icon::Question);
    EXPECT_EQ(q.text,
              "\r\nThere is already a name on file matching your current name with the following "
              "associated data: \r\nDate =  03 Feb 1971\r\nTime =  4.05 P\r\nTime zone =  5\r\n"
              "Longitude =  071.04\r\nLatitude =  42.21\r\nE-mail address =  m@x.org\r\n\r\n"
              "Do you want to replace it?\r\n\r\nAnswering 'NO' will append the current name and "
              "data to file, not replace the existing entry.");
}

TEST(SaveRecord, DuplicateYesReplacesNoKeepsBothAndBackupHoldsTheOldFile) {
    TempDir d;
    const std::string original = "Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org\r\n"
                                 "MARY SMITH,01 Jan 1970,1.00,A,5,071.04,42.21,old@x.org\r\n";
    d.Write("NAMES.FIL", original);
    int asked = 0;
    auto yes = [&](const BirthRecord& r) {
        ++asked;
        EXPECT_EQ(r.RecName, "MARY SMITH");
        return true;
    };
    auto res = SaveInputRecord(Mary(), 0, d.path(), d.path() / "NAMES.FIL", yes);
    EXPECT_TRUE(res.saved);
    EXPECT_TRUE(res.messages.empty());
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(d.Read("NAMES.FIL"),
              "Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org\r\n"
              "Mary Smith,03 Feb 1971,4.05,P,5,071.04,42.21,mary@example.org\r\n");
    EXPECT_EQ(d.Read("NAMES.OLD"), original);
    EXPECT_FALSE(fs::exists(d.path() / "wfyert.hyq"));

    // No: the record of the same name stays and the new one comes last.
    res = SaveInputRecord(Mary(), 0, d.path(), d.path() / "NAMES.FIL",
                          [](const BirthRecord&) { return false; });
    EXPECT_TRUE(res.saved);
    auto list = LoadNamesFile(d.path() / "NAMES.FIL");
    ASSERT_EQ(list.records.size(), 3u);
    EXPECT_EQ(list.records[1].RecName, "Mary Smith");
    EXPECT_EQ(list.records[2].RecName, "Mary Smith");
    // The backup now holds the file as it was before this save.
    EXPECT_EQ(LoadNamesFile(d.path() / "NAMES.OLD").records.size(), 2u);
}

TEST(SaveRecord, CommaInNameWritesNothing) {
    TempDir d;
    d.Write("NAMES.FIL", "A,12 May 1959,10.43,A,6,75.23,39.45,\r\n");
    InputFields in = Mary();
    in.txtName = "Smith, Mary";
    auto res = SaveInputRecord(in, 0, d.path(), d.path() / "NAMES.FIL", nullptr);
    EXPECT_FALSE(res.saved);
    ASSERT_EQ(res.messages.size(), 1u);
    EXPECT_EQ(res.messages[0], CommaInNameMessage());
    EXPECT_EQ(d.Read("NAMES.FIL"), "A,12 May 1959,10.43,A,6,75.23,39.45,\r\n");
    EXPECT_FALSE(fs::exists(d.path() / "NAMES.OLD"));
}

TEST(SaveRecord, LinesThatAreNotRecordsSurviveTheCopy) {
    TempDir d;
    d.Write("X.FIL", "A,12 May 1959,10.43,A,6,75.23,39.45,\r\nbroken line\r\n");
    auto res = SaveInputRecord(Mary(), 0, d.path(), d.path() / "X.FIL", nullptr);
    ASSERT_TRUE(res.saved);
    EXPECT_EQ(d.Read("X.FIL"), "A,12 May 1959,10.43,A,6,75.23,39.45,\r\nbroken line\r\n"
                               "Mary Smith,03 Feb 1971,4.05,P,5,071.04,42.21,mary@example.org\r\n");
    EXPECT_EQ(BackupPath(d.path() / "X.FIL"), d.path() / "X.OLD");

    // A names file named like a backup is its own backup name: it takes the
    // record and is not lost to a backup of itself.
    d.Write("Y.OLD", "A,12 May 1959,10.43,A,6,75.23,39.45,\r\n");
    ASSERT_TRUE(SaveInputRecord(Mary(), 0, d.path(), d.path() / "Y.OLD", nullptr).saved);
    EXPECT_EQ(LoadNamesFile(d.path() / "Y.OLD").records.size(), 2u);
}

TEST(SaveRecord, AWindows1252FileKeepsItsBytes) {
    TempDir d;
    const std::string old = "Jos\xe9 M\xfcller,12 May 1959,10.43,A,6,75.23,39.45,\r\n"
                            "S\xe3o line that is no record\r\n";
    d.Write("W.FIL", old);
    auto list = LoadNamesFile(d.path() / "W.FIL");
    ASSERT_EQ(list.records.size(), 1u);
    EXPECT_EQ(list.records[0].RecName, "José Müller");
    EXPECT_EQ(list.encoding, TextEncoding::Windows1252);

    // The old lines keep their bytes and the new record is written in the
    // file's encoding.
    InputFields zoe = Mary();
    zoe.txtName = "Zoë Brontë";
    ASSERT_TRUE(SaveInputRecord(zoe, 0, d.path(), d.path() / "W.FIL", nullptr).saved);
    EXPECT_EQ(d.Read("W.FIL"),
              old + "Zo\xeb Bront\xeb,03 Feb 1971,4.05,P,5,071.04,42.21,mary@example.org\r\n");
    EXPECT_EQ(d.Read("W.OLD"), old);

    // A name the encoding cannot hold: the whole file becomes UTF-8, and
    // nothing is lost.
    zoe.txtName = "Łukasz";
    ASSERT_TRUE(SaveInputRecord(zoe, 0, d.path(), d.path() / "W.FIL", nullptr).saved);
    auto names = LoadNamesFile(d.path() / "W.FIL");
    EXPECT_EQ(names.encoding, TextEncoding::Utf8);
    ASSERT_EQ(names.records.size(), 3u);
    EXPECT_EQ(names.records[0].RecName, "José Müller");
    EXPECT_EQ(names.records[2].RecName, "Łukasz");
}

TEST(SaveRecord, FailingStepsLeaveTheNamesFileAsItWas) {
    const std::string original = "Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org\r\n";
    auto expectUnchanged = [&](const TempDir& names, const SaveResult& res) {
        EXPECT_FALSE(res.saved);
        ASSERT_EQ(res.messages.size(), 1u);
        EXPECT_EQ(res.messages[0].caption, "Error!");
        EXPECT_NE(res.messages[0].text.find("NAMES.FIL has not been changed"), std::string::npos);
        EXPECT_EQ(names.Read("NAMES.FIL"), original);
    };

    // The temporary file cannot be written (a folder holds its name).
    {
        TempDir app, names;
        names.Write("NAMES.FIL", original);
        fs::create_directory(app.path() / "wfyert.hyq");
        expectUnchanged(
            names, SaveInputRecord(Mary(), 0, app.path(), names.path() / "NAMES.FIL", nullptr));
        EXPECT_FALSE(fs::exists(names.path() / "NAMES.OLD"));
    }
    // The old backup cannot be removed (a folder with content holds its name).
    {
        TempDir app, names;
        names.Write("NAMES.FIL", original);
        fs::create_directories(names.path() / "NAMES.OLD" / "inside");
        expectUnchanged(
            names, SaveInputRecord(Mary(), 0, app.path(), names.path() / "NAMES.FIL", nullptr));
        EXPECT_FALSE(fs::exists(app.path() / "wfyert.hyq"));
    }
    if (geteuid() == 0) return; // permissions do not bind root
    // The names file's folder is read-only: the renames fail.
    {
        TempDir app, names;
        names.Write("NAMES.FIL", original);
        fs::permissions(names.path(), fs::perms::owner_read | fs::perms::owner_exec);
        expectUnchanged(
            names, SaveInputRecord(Mary(), 0, app.path(), names.path() / "NAMES.FIL", nullptr));
        EXPECT_FALSE(fs::exists(app.path() / "wfyert.hyq"));
    }
}

TEST(NewNamesFile, HoldsTheExampleRecordOnly) {
    TempDir d;
    ASSERT_TRUE(WriteNewNamesFile(d.path() / "NEW.FIL"));
    auto list = LoadNamesFile(d.path() / "NEW.FIL");
    ASSERT_EQ(list.records.size(), 1u);
    EXPECT_EQ(RecordLine(list.records[0]),
              "Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org");
    EXPECT_TRUE(d.Read("NEW.FIL")->ends_with("\r\n"));
}

} // namespace
} // namespace kal
