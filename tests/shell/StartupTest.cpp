// Start-up values: wheel size constants, regional settings, the caption
// clock, the program directory and the options editor's saved bytes.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "base/TextFile.h"
#include "shell/EditorFile.h"
#include "shell/Session.h"
#include "shell/Startup.h"

#include <fstream>

using namespace kal;
namespace fs = std::filesystem;

TEST(Startup, WheelSizeFromTheScreen) {
    struct Row {
        int width, twips;
        double screenW, scale;
    };
    for (const Row& r :
         {Row{640, 12, 640, 1.5}, Row{800, 12, 800, 1.2}, Row{800, 15, 800, 1.5},
          Row{1280, 15, 1024, 1.5}, Row{1280, 12, 1024, 1.2}, Row{1024, 15, 1024, 1.5}}) {
        WheelSize w = ChooseWheelSize(r.width, r.twips);
        EXPECT_EQ(w.WheelScreenW, r.screenW) << r.width << " at " << r.twips;
        EXPECT_EQ(w.WheelScale, r.scale) << r.width << " at " << r.twips;
    }
}

TEST(Startup, RegionalSettingsFromLocaleFormats) {
    struct Row {
        const char* date;
        const char* time;
        short order, clock;
    };
    for (const Row& r : {Row{"M/d/yy", "h:mm:ss AP t", 0, 0}, Row{"dd/MM/yyyy", "HH:mm:ss t", 1, 1},
                         Row{"dd.MM.yy", "H:mm", 1, 1}, Row{"yyyy-MM-dd", "HH:mm:ss", 2, 1},
                         Row{"y/M/d", "ap h:mm", 2, 0}}) {
        IntlSettings s = IntlFromFormats(r.date, r.time);
        EXPECT_EQ(s.DateOrder, r.order) << r.date;
        EXPECT_EQ(s.TimeFormat, r.clock) << r.time;
    }
    // The overrides win.
    IntlSettings s = IntlFromFormats("M/d/yy", "h:mm AP", "2", "1");
    EXPECT_EQ(s.DateOrder, 2);
    EXPECT_EQ(s.TimeFormat, 1);
}

TEST(Startup, CaptionClock) {
    std::tm t{};
    t.tm_sec = 27;
    t.tm_min = 3;
    t.tm_hour = 14;
    t.tm_mday = 5;
    t.tm_mon = 2;
    t.tm_year = 107;
    EXPECT_EQ(ClockCaption(BuildTitlePrefix(), t, 1),
              "Kaltrova (Tropical zodiac) - 05 Mar 2007     14:03:27");
    EXPECT_EQ(ClockCaption("P - ", t, 0), "P - 05 Mar 2007     2:03:27 PM");
    t.tm_hour = 0;
    EXPECT_EQ(ClockCaption("", t, 0), "05 Mar 2007     12:03:27 AM");
}

TEST(ProgramDirectory, WritableDataFolderIsUsedAsItIs) {
    test::ScratchAppDir dir;
    auto p = ResolveAppPath(dir.path(), "/nonexistent", "/nonexistent");
    ASSERT_TRUE(p);
    EXPECT_EQ(p->path, dir.path());
    EXPECT_FALSE(ResolveAppPath(dir.path() / "no-data-here", nullptr, nullptr));
}

TEST(ProgramDirectory, ReadOnlyInstallIsCopiedToTheUserDataFolder) {
    test::ScratchAppDir shipped;
    test::ScratchAppDir home;
    fs::create_directories(shipped.path() / "sub");
    shipped.Write("sub/inner.txt", "x");
    auto readOnly = [&](const fs::path& d) { return d != shipped.path() && IsWritableDir(d); };

    auto p = ResolveAppPath(shipped.path(), (home.path() / "xdg").c_str(), nullptr, readOnly);
    ASSERT_TRUE(p);
    EXPECT_EQ(p->path, home.path() / "xdg" / "kaltrova");
    EXPECT_TRUE(p->messages.empty());
    EXPECT_TRUE(HoldsProgramData(p->path));
    EXPECT_TRUE(fs::exists(p->path / "sub" / "inner.txt"));
    // The ephemeris folder comes along as the link it is; the programs stay
    // behind.
    EXPECT_TRUE(fs::is_symlink(p->path / "ephems"));
    EXPECT_FALSE(fs::exists(p->path / "kaltrova-cli"));
    EXPECT_FALSE(fs::exists(p->path / "kaltrova"));

    // Without XDG_DATA_HOME the folder is under HOME.
    p = ResolveAppPath(shipped.path(), "", home.path().c_str(), readOnly);
    ASSERT_TRUE(p);
    EXPECT_EQ(p->path, home.path() / ".local" / "share" / "kaltrova");

    // An installed layout: bin/ beside share/kaltrova.
    test::ScratchAppDir prefix;
    fs::create_directories(prefix.path() / "bin");
    fs::create_directories(prefix.path() / "share" / "kaltrova");
    fs::rename(FindFile(prefix.path(), "NATAL.ORB"),
               prefix.path() / "share" / "kaltrova" / "NATAL.ORB");
    p = ResolveAppPath(prefix.path() / "bin", nullptr, nullptr);
    ASSERT_TRUE(p);
    EXPECT_EQ(p->path, prefix.path() / "share" / "kaltrova");
}

TEST(ProgramDirectory, CopyKeepsTheUsersFilesAndRepairsDamagedOnes) {
    test::ScratchAppDir shipped;
    test::ScratchAppDir user;
    shipped.Write("NAMES.FIL", "shipped\r\n");
    user.Write("NAMES.FIL", "mine\r\n");
    // What a copy cut short by a full disk left behind.
    user.Write("Dravik_Natal_Orbs.ORB", "");
    user.Write("TZ.DAT", "\"Eastern");
    user.Write("OPTIONS.MST", "");
    ASSERT_TRUE(CopyProgramData(shipped.path(), user.path()));
    EXPECT_EQ(*ReadFileBytes(user.path() / "NAMES.FIL"), "mine\r\n");
    for (const char* name : {"Dravik_Natal_Orbs.ORB", "TZ.DAT", "OPTIONS.MST"})
        EXPECT_EQ(ReadFileBytes(user.path() / name), ReadFileBytes(shipped.path() / name)) << name;
    EXPECT_TRUE(HoldsProgramData(user.path()));
}

// A read-only install keeps its atlas: the user's copy of the program
// directory gets none, and the atlas is read where it was shipped.
TEST(ProgramDirectory, AtlasIsReadWhereItWasShipped) {
    test::ScratchAppDir shipped;
    test::ScratchAppDir home;
    fs::create_directories(shipped.path() / "atlas");
    shipped.Write("atlas/ATLAS.DAT", "shipped atlas");
    auto readOnly = [&](const fs::path& d) { return d != shipped.path() && IsWritableDir(d); };
    auto dir = ResolveAppPath(shipped.path(), (home.path() / "xdg").c_str(), nullptr, readOnly);
    ASSERT_TRUE(dir);
    const fs::path user = dir->path;
    EXPECT_FALSE(fs::exists(user / "atlas"));
    EXPECT_EQ(ShippedDataDir(shipped.path()), shipped.path());
    EXPECT_EQ(FindAtlasFile(user, shipped.path()), shipped.path() / "atlas" / "ATLAS.DAT");
    // An atlas of the program directory's own comes first.
    fs::create_directories(user / "atlas");
    std::ofstream(user / "atlas" / "ATLAS.DAT") << "own atlas";
    EXPECT_EQ(FindAtlasFile(user, shipped.path()), user / "atlas" / "ATLAS.DAT");
    // Neither: no atlas, and the lookup is not offered.
    EXPECT_TRUE(FindAtlasFile(home.path(), {}).empty());
    Session s;
    s.Open(home.path());
    EXPECT_FALSE(s.paths.AtlasAvailable);
    s.Close();
    s.Open(user, shipped.path());
    EXPECT_TRUE(s.paths.AtlasAvailable);
    s.Close();
}

namespace {

// Every shipped data file is in `user` whole, or not at all.
void ExpectWholeOrMissing(const fs::path& shipped, const fs::path& user, size_t& missing) {
    missing = 0;
    for (const auto& e : fs::directory_iterator(shipped)) {
        if (!e.is_regular_file() || e.path().filename().string().starts_with("kaltrova")) continue;
        const fs::path copy = user / e.path().filename();
        if (!fs::exists(copy)) {
            ++missing;
            continue;
        }
        EXPECT_EQ(fs::file_size(copy), e.file_size()) << copy;
    }
    for (const auto& e : fs::directory_iterator(user))
        EXPECT_FALSE(e.path().filename().string().starts_with(".")) << "left behind: " << e.path();
}

} // namespace

TEST(ProgramDirectory, FirstStartOnADiskThatFillsIsToldAndRepairedNextTime) {
    test::ScratchAppDir shipped;
    auto readOnly = [&](const fs::path& d) { return d != shipped.path(); };
    const fs::path orbs = FindFile(shipped.path(), "Dravik_Natal_Orbs.ORB");
    size_t missing = 0;

    // A real disk that fills (the write hook's faults at every step are in
    // WriteFaultsTest).
    test::SmallDisk disk(512 * 1024);
    if (!disk.mounted()) GTEST_SKIP() << "no small disk to fill on this machine: " << disk.whyNot();
    auto first = ResolveAppPath(shipped.path(), disk.path().c_str(), nullptr, readOnly);
    ASSERT_TRUE(first);
    EXPECT_FALSE(first->messages.empty());
    ExpectWholeOrMissing(shipped.path(), disk.path() / "kaltrova", missing);
    EXPECT_GT(missing, 0u);
    ASSERT_TRUE(disk.Resize(64 << 20));
    auto second = ResolveAppPath(shipped.path(), disk.path().c_str(), nullptr, readOnly);
    EXPECT_TRUE(second->messages.empty());
    EXPECT_EQ(second->path, disk.path() / "kaltrova");
    ExpectWholeOrMissing(shipped.path(), disk.path() / "kaltrova", missing);
    EXPECT_EQ(missing, 0u);
    EXPECT_EQ(ReadFileBytes(disk.path() / "kaltrova" / orbs.filename()), ReadFileBytes(orbs));
}

TEST(OptionsEditor, SaveEndsEveryLineOnce) {
    EXPECT_EQ(EditorSaveBytes("1  first\n2  second\n"), "1  first\r\n2  second\r\n");
    // A last line without its line break keeps every character.
    EXPECT_EQ(EditorSaveBytes("1  first\nBroken,abc"), "1  first\r\nBroken,abc\r\n");
    EXPECT_EQ(EditorSaveBytes("x"), "x\r\n");
    EXPECT_EQ(EditorSaveBytes("\n"), "\r\n");
    EXPECT_EQ(EditorSaveBytes(""), "");
    EXPECT_EQ(EditorText({"a", "b"}), "a\nb\n");
}