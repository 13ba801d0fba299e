// Replacing files: permissions and links kept, and a disk that really
// fills. Faults at every step of every writer are tried in
// tests/shell/WriteFaultsTest.cpp.
#include <gtest/gtest.h>

#include <cerrno>
#include <sys/stat.h>

#include "TestSupport.h"
#include "base/SafeWrite.h"
#include "base/TextFile.h"

using namespace kal;
namespace fs = std::filesystem;

namespace {

// The names in a folder, sorted.
std::vector<std::string> Entries(const fs::path& dir) {
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(dir)) names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string Bytes(const fs::path& f) {
    return ReadFileBytes(f).value_or("<unreadable>");
}

} // namespace

TEST(SafeWrite, ReplacesKeepingPermissionsAndLinks) {
    kal::test::ScratchAppDir dir;
    const fs::path names = dir.path() / "KEPT.FIL";
    dir.Write("KEPT.FIL", "old\r\n");
    fs::permissions(names, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    ASSERT_TRUE(ReplaceFile(names, "new\r\n"));
    EXPECT_EQ(Bytes(names), "new\r\n");
    EXPECT_EQ(fs::status(names).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);

    // A link keeps pointing at its file, which gets the new content.
    fs::create_symlink(names, dir.path() / "LINK.FIL");
    ASSERT_TRUE(ReplaceFile(dir.path() / "LINK.FIL", "through the link\r\n"));
    EXPECT_TRUE(fs::is_symlink(dir.path() / "LINK.FIL"));
    EXPECT_EQ(Bytes(names), "through the link\r\n");

    // A copy the same way; nothing is left beside the files.
    ASSERT_TRUE(ReplaceFileWithCopy(names, dir.path() / "COPY.FIL"));
    EXPECT_EQ(Bytes(dir.path() / "COPY.FIL"), "through the link\r\n");
    for (const auto& n : Entries(dir.path())) EXPECT_NE(n[0], '.') << n;
}

TEST(SafeWrite, ARealDiskThatFills) {
    kal::test::SmallDisk disk(256 * 1024);
    if (!disk.mounted()) GTEST_SKIP() << "no small disk to fill on this machine: " << disk.whyNot();
    const fs::path opt = disk.path() / "OPTIONS.OPT";
    const std::string old(3000, 'o');
    ASSERT_TRUE(ReplaceFile(opt, old));
    disk.Fill();

    WriteResult res = ReplaceFile(opt, std::string(8192, 'm'));
    EXPECT_FALSE(res);
    EXPECT_EQ(res.reason, "the disk is full");
    EXPECT_EQ(Bytes(opt), old);
    EXPECT_EQ(Entries(disk.path()), (std::vector<std::string>{"OPTIONS.OPT", "filler"}));

    // Once there is room again the same write goes through.
    fs::remove(disk.path() / "filler");
    EXPECT_TRUE(ReplaceFile(opt, std::string(8192, 'm')));
    EXPECT_EQ(Bytes(opt), std::string(8192, 'm'));
}

TEST(TextFile, ReadsOnlyRegularFilesOfBoundedSize) {
    EXPECT_FALSE(ReadFileBytes("/dev/zero").has_value());
    kal::test::ScratchAppDir dir;
    const fs::path fifo = dir.path() / "PIPE.FIL";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    // Would wait for a writer for ever if it were opened.
    EXPECT_FALSE(ReadLines(fifo).has_value());
    EXPECT_FALSE(ReadTextLines(fifo).has_value());
    EXPECT_FALSE(ReadTextLines("/dev/zero").has_value());
    EXPECT_FALSE(ReadLines(dir.path()).has_value());
    dir.Write("BIG.FIL", std::string(2000, 'x'));
    EXPECT_FALSE(ReadFileBytes(dir.path() / "BIG.FIL", 1999).has_value());
    EXPECT_EQ(ReadFileBytes(dir.path() / "BIG.FIL", 2000)->size(), 2000u);
}
