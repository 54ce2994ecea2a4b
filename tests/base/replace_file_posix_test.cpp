// Pipes, links, permissions and devices as POSIX systems have them.
#ifndef _WIN32

#include "base/error_of.h"
#include "base/file.h"
#include "base/full_disk.h"
#include "base/other_user.h"
#include "base/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvelle::base {
namespace {

namespace fs = std::filesystem;
using test::errorNumberOf;
using test::TemporaryFolder;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

auto writing(std::string bytes) {
    return [bytes = std::move(bytes)](FileWriter& writer) { writer.write(bytes); };
}

TEST(ReplaceFile, PutsAnotherFileInPlaceOfTheOldOne) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    const std::ifstream reader(path); // a reader that came before sees the old file to its end
    replaceFile(path, writing("new"));
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader.rdbuf()), {}), "old");
}

TEST(ReplaceFile, KeepsThePermissions) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    for (const unsigned mode : {0600U, 0640U, 0664U, 0755U, 0200U | 0444U}) {
        fs::permissions(path, fs::perms(mode));
        replaceFile(path, writing("new"));
        EXPECT_EQ(fs::status(path).permissions(), fs::perms(mode));
    }
}

TEST(ReplaceFile, KeepsTheOwner) {
    if (geteuid() != 0) GTEST_SKIP() << "only root gives files away";
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    ASSERT_EQ(chown(path.c_str(), 1234, 4321), 0);
    replaceFile(path, writing("new"));
    struct stat status;
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 1234U);
    EXPECT_EQ(status.st_gid, 4321U);
}

TEST(ReplaceFile, KeepsASymbolicLinkPointing) {
    const TemporaryFolder folder;
    folder.write("real/a.bas", "old");
    fs::create_symlink("real/a.bas", folder.path() / "link.bas");
    fs::create_symlink("link.bas", folder.path() / "second.bas");
    replaceFile(folder.path() / "second.bas", writing("new"));
    EXPECT_EQ(fs::read_symlink(folder.path() / "link.bas"), "real/a.bas");
    EXPECT_EQ(fs::read_symlink(folder.path() / "second.bas"), "link.bas");
    EXPECT_EQ(folder.read("real/a.bas"), "new");
    EXPECT_THAT(folder.names(), UnorderedElementsAre("real", "link.bas", "second.bas"));
}

TEST(ReplaceFile, RefusesLinksThatLeadNowhere) {
    const TemporaryFolder folder;
    fs::create_symlink("gone.bas", folder.path() / "dangling.bas");
    fs::create_symlink("loop.bas", folder.path() / "loop.bas");
    EXPECT_EQ(errorNumberOf([&] { replaceFile(folder.path() / "dangling.bas", writing("new")); }), 53);
    EXPECT_EQ(errorNumberOf([&] { replaceFile(folder.path() / "loop.bas", writing("new")); }), 57);
    EXPECT_THAT(folder.names(), UnorderedElementsAre("dangling.bas", "loop.bas"));
}

TEST(ReplaceFile, RefusesAFileThatThisUserMayNotWrite) {
    const TemporaryFolder folder;
    fs::permissions(folder.path(), fs::perms(0777)); // it is not the folder that refuses
    const auto path = folder.write("a.bas", "old");
    // The owner alone may not write it, or nobody but the owner.
    fs::permissions(path, fs::perms(geteuid() == 0 ? 0644 : 0466));
    const test::OtherUser user;
    EXPECT_EQ(errorNumberOf([&] { replaceFile(path, writing("new")); }), 70);
}

TEST(ReplaceFile, RefusesWhatIsNoFile) {
    const TemporaryFolder folder;
    const auto pipe = folder.path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(errorNumberOf([&] { replaceFile(pipe, writing("new")); }), 75);
    EXPECT_EQ(errorNumberOf([&] { replaceFile(folder.path(), writing("new")); }), 75);
    EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST(ReplaceFile, LeavesTheOldFileWhenTheDiskIsFull) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    const test::FullDisk disk(50000);
    EXPECT_EQ(errorNumberOf([&] { replaceFile(path, writing(std::string(50001, 'x'))); }), 61);
    EXPECT_EQ(errorNumberOf([&] { replaceFile(path, writing(std::string(500000, 'x'))); }), 61);
    EXPECT_EQ(folder.read("a.bas"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("a.bas"));
    replaceFile(path, writing(std::string(50000, 'x')));
    EXPECT_EQ(folder.read("a.bas").size(), 50000U);
}

} // namespace
} // namespace corvelle::base

#endif
