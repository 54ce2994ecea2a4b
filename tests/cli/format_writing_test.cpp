// How a file is replaced: at once, as what it was, and not at all when anything goes wrong.
#include "cli/format_fixture.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace corvelle::test {
namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAre;

class Writing : public FormatTest {
  protected:
    fs::perms modeOf(const char* name) const { return fs::status(folder.path() / name).permissions(); }
};

TEST_F(Writing, RefusesAReadOnlyFileWhoeverAsks) {
    const auto path = folder.write("a.bas", untidy);
    folder.write("b.bas", untidy);
    fs::permissions(path, fs::perms(0444));
    const auto mode = modeOf("a.bas");
    const Outcome outcome = format({"a.bas", "b.bas"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "a.bas: the file is read-only\n" + summary("b.bas", 5, 5) +
                               "1 rewritten, 0 left unchanged, 0 refused, 1 failed\n");
    EXPECT_EQ(folder.read("a.bas"), untidy);
    EXPECT_EQ(folder.read("b.bas"), tidy);
    EXPECT_EQ(modeOf("a.bas"), mode);
    EXPECT_THAT(folder.names(), UnorderedElementsAre("a.bas", "b.bas"));
}

TEST_F(Writing, TakesAReadOnlyFileThatNeedsNoChange) {
    fs::permissions(folder.write("a.bas", tidy), fs::perms(0444));
    EXPECT_EQ(format({"a.bas"}).status, 0);
}

TEST_F(Writing, RefusesAFileThatIsNone) {
    fs::create_directory(folder.path() / "d.bas");
    folder.write("a.vbp", "Module=M; d.bas\r\n");
    const Outcome outcome = format({"a.vbp"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "d.bas: this is a folder, not a file\n");
}

#ifndef _WIN32

TEST_F(Writing, KeepsPermissions) {
    for (const mode_t mode : {0600, 0640, 0664, 0755}) {
        chmod(folder.write("a.bas", untidy).c_str(), mode);
        EXPECT_EQ(format({"a.bas"}).status, 0);
        EXPECT_EQ(folder.read("a.bas"), tidy);
        EXPECT_EQ(modeOf("a.bas"), fs::perms(mode));
    }
}

TEST_F(Writing, LeavesALinkPointing) {
    folder.write("real/a.bas", untidy);
    fs::create_symlink("real/a.bas", folder.path() / "link.bas");
    fs::create_symlink("link.bas", folder.path() / "link2.bas");
    EXPECT_EQ(format({"link2.bas"}).status, 0);
    EXPECT_EQ(fs::read_symlink(folder.path() / "link.bas"), "real/a.bas");
    EXPECT_EQ(fs::read_symlink(folder.path() / "link2.bas"), "link.bas");
    EXPECT_EQ(folder.read("real/a.bas"), tidy);
    EXPECT_THAT(folder.names(), UnorderedElementsAre("real", "link.bas", "link2.bas"));
}

TEST_F(Writing, RefusesAFileInAFolderThatTakesNoNewOnes) {
    chmod(folder.write("d/a.bas", untidy).c_str(), 0666); // it is not the file that refuses
    chmod((folder.path() / "d").c_str(), 0555);
    Surroundings nobody;
    nobody.asNobody = true;
    const Outcome outcome = format({"d/a.bas"}, nobody);
    chmod((folder.path() / "d").c_str(), 0755);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "d/a.bas: Permission denied\n");
    EXPECT_EQ(folder.read("d/a.bas"), untidy);
}

TEST_F(Writing, LeavesTheOldFileOnAFullDisk) {
    std::string large = "Sub a()\r\n";
    while (large.size() < 200'000) large += "b\r\n";
    large += "End Sub\r\n";
    folder.write("a.bas", large);
    folder.write("b.bas", untidy);
    Surroundings full;
    full.largestFile = 100'000;
    const Outcome outcome = format({"a.bas", "b.bas"}, full);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, testing::HasSubstr("a.bas: the file would be too large\n"));
    EXPECT_EQ(folder.read("a.bas"), large);
    EXPECT_EQ(folder.read("b.bas"), tidy);
    EXPECT_THAT(folder.names(), UnorderedElementsAre("a.bas", "b.bas"));
}

#endif

} // namespace
} // namespace corvelle::test
