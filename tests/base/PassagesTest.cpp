// The passage reader every interpretation and lesson text goes through.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "base/Passages.h"

using namespace kal;

namespace {

std::vector<std::string> Text(std::initializer_list<const char*> lines) {
    return {lines.begin(), lines.end()};
}

std::vector<std::string> Found(const std::vector<std::string>& lines, std::string_view key) {
    auto p = FindPassage(lines, key);
    return p ? p->lines : std::vector<std::string>{"<none>"};
}

} // namespace

TEST(Passages, HeadingMatchIgnoresCaseAndLeadingBlanksOverTheKeyOnly) {
    auto text = Text({"SUN IN ARIES", "body of aries", "*", "", "   Sun in Taurus, the bull",
                      "body of taurus", "*"});
    EXPECT_EQ(Found(text, "sun in"), Text({"SUN IN ARIES", "body of aries"}));
    // An indented heading is found and copied with its blanks.
    EXPECT_EQ(Found(text, "SUN in taurus"), Text({"   Sun in Taurus, the bull", "body of taurus"}));
    // The key must fit in the line: a shorter line does not match.
    EXPECT_EQ(Found(text, "SUN IN ARIES AND MORE"), Text({"<none>"}));
    // A tab is not a blank.
    EXPECT_EQ(Found(Text({"\tMoon in", "x", "*"}), "Moon in"), Text({"<none>"}));
}

TEST(Passages, EndLines) {
    // Blanks before the end mark end the passage; a blank after it does not.
    auto text = Text({"KEY ONE", "a", "* ", "b", "   *", "KEY TWO", "c", "[]", "KEY THREE", "d",
                      "[ ]", "e", "  []", "after"});
    auto one = FindPassage(text, "key one");
    ASSERT_TRUE(one);
    EXPECT_TRUE(one->ended);
    EXPECT_EQ(one->lines, Text({"KEY ONE", "a", "* ", "b"}));
    EXPECT_EQ(Found(text, "key two"), Text({"KEY TWO", "c"}));
    EXPECT_EQ(Found(text, "key three"), Text({"KEY THREE", "d", "[ ]", "e"}));
}

TEST(Passages, MissingEndLineRunsToTheEndOfTheFile) {
    auto p = FindPassage(Text({"x", "*", "LAST", "one", "two"}), "last");
    ASSERT_TRUE(p);
    EXPECT_FALSE(p->ended);
    EXPECT_EQ(p->lines, Text({"LAST", "one", "two"}));
}

TEST(Passages, SearchStopsAtTheTenthConsecutiveEmptyLine) {
    auto withEmpties = [](int n) {
        std::vector<std::string> lines = {"FIRST", "x", "*"};
        for (int k = 0; k < n; ++k) lines.emplace_back();
        lines.insert(lines.end(), {"SECOND", "y", "*"});
        return lines;
    };
    EXPECT_EQ(Found(withEmpties(9), "second"), Text({"SECOND", "y"}));
    EXPECT_EQ(Found(withEmpties(10), "second"), Text({"<none>"}));
    EXPECT_EQ(Found(withEmpties(10), "first"), Text({"FIRST", "x"}));
    // A line of blanks is not empty: it resets the count.
    auto lines = withEmpties(10);
    lines[8] = " ";
    EXPECT_EQ(Found(lines, "second"), Text({"SECOND", "y"}));
    // Empty lines inside a passage that has been found are copied.
    auto inside = Text({"KEY", "", "", "", "", "", "", "", "", "", "", "", "tail", "*"});
    EXPECT_EQ(Found(inside, "key").size(), 13u);
}

TEST(Passages, TextFilesAreFoundWithoutRegardToCaseAndCapricornEitherWay) {
    test::ScratchAppDir dir;
    dir.Write("SIGN_Cpr.TXT", "SUN IN CAPRICORN\r\n*\r\n");
    EXPECT_EQ(FindTextFile(dir.path(), "\\SIGN_Cpr.TXT"), dir.path() / "SIGN_Cpr.TXT");
    EXPECT_EQ(FindTextFile(dir.path(), "sign_cpr.txt"), dir.path() / "SIGN_Cpr.TXT");
    EXPECT_EQ(FindTextFile(dir.path(), "\\SIGN_Cap.TXT"), dir.path() / "SIGN_Cpr.TXT");
    // A file of the other spelling is taken as it stands.
    dir.Write("SIGN_CAP.TXT", "x\r\n");
    EXPECT_EQ(FindTextFile(dir.path(), "SIGN_Cap.TXT"), dir.path() / "SIGN_CAP.TXT");
    // Nothing matches: the name as given, for the message.
    EXPECT_EQ(FindTextFile(dir.path(), "\\NOPE.TXT"), dir.path() / "NOPE.TXT");
    // A missing Capricorn file is named as it ships, whichever name asked.
    std::filesystem::remove(dir.path() / "SIGN_Cpr.TXT");
    std::filesystem::remove(dir.path() / "SIGN_CAP.TXT");
    EXPECT_EQ(FindTextFile(dir.path(), "\\SIGN_Cap.TXT"), dir.path() / "SIGN_Cpr.TXT");
    EXPECT_EQ(CannotFindFileMessage(dir.path() / "NOPE.TXT").text,
              "Cannot find the file called " + (dir.path() / "NOPE.TXT").string() + ".");
}
