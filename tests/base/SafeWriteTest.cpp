// Replacing files so that a failed write leaves the old file whole: faults
// injected at every step, a disk that really fills, and what the user is
// told.
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

TEST(SafeWrite, AFaultAtAnyStepLeavesTheOldFileWholeAndSaysWhy) {
    struct Row {
        WriteStep step;
        int nth;
        int error;
        const char* reason;
    };
    // Three blocks of data: the fault can strike after one block is out.
    const std::string big(3 * 64 * 1024 + 17, 'n');
    for (const Row& r :
         {Row{WriteStep::Create, 1, EROFS, "the disk is read-only"},
          Row{WriteStep::Write, 1, ENOSPC, "the disk is full"},
          Row{WriteStep::Write, 3, ENOSPC, "the disk is full"},
          Row{WriteStep::Sync, 1, EIO, "the disk reported an input/output error"},
          Row{WriteStep::Rename, 1, EACCES, "there is no permission to write there"}}) {
        kal::test::ScratchAppDir dir;
        dir.Write("NAMES.FIL", "Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org\r\n");
        const auto before = Entries(dir.path());
        WriteResult res;
        {
            kal::test::WriteFault fault(r.step, r.nth, r.error);
            res = ReplaceFile(dir.path() / "NAMES.FIL", big);
        }
        SCOPED_TRACE(r.reason);
        EXPECT_FALSE(res);
        EXPECT_EQ(res.reason, r.reason);
        EXPECT_EQ(Bytes(dir.path() / "NAMES.FIL"),
                  "Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org\r\n");
        EXPECT_EQ(Entries(dir.path()), before) << "a temporary file was left behind";
        EXPECT_EQ(WriteFailedMessage(dir.path() / "NAMES.FIL", res).text,
                  "The file " + (dir.path() / "NAMES.FIL").string() + " could not be written (" +
                      r.reason + "). The file on the disk has not been changed.");
    }
}

TEST(SafeWrite, FlushedInPlaceWriteRemovesAHalfFile) {
    kal::test::ScratchAppDir dir;
    kal::test::WriteFault fault(WriteStep::Sync, 1, ENOSPC);
    EXPECT_FALSE(WriteFileFlushed(dir.path() / "wfyert.hyq", "records"));
    EXPECT_FALSE(fs::exists(dir.path() / "wfyert.hyq"));
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
