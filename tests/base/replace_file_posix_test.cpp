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
#include <sys/xattr.h>
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

TEST(ReplaceFile, LeavesNoSetUserBitToAnotherUser) {
    if (geteuid() != 0) GTEST_SKIP() << "only root gives files away";
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    ASSERT_EQ(chown(path.c_str(), 0, 65534), 0);
    ASSERT_EQ(chmod(path.c_str(), 06777), 0);
    ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
    {
        const test::OtherUser user;
        replaceFile(path, writing("new"));
    }
    struct stat status;
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_NE(status.st_uid, 0U);
    EXPECT_EQ(status.st_mode & 07000, 0U);
}

TEST(ReplaceFile, GivesNoOtherGroupTheRightToWrite) {
    if (geteuid() != 0) GTEST_SKIP() << "only root gives files away";
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
    {
        const test::OtherUser user;
        folder.write("b.bas", "old");
    }
    const auto own = folder.path() / "b.bas";
    struct stat status;
    ASSERT_EQ(stat(own.c_str(), &status), 0);
    ASSERT_EQ(chown(own.c_str(), status.st_uid, 1234), 0); // a group that the owner has left
    ASSERT_EQ(chmod(own.c_str(), 0664), 0);
    {
        const test::OtherUser user;
        replaceFile(own, writing("new"));
    }
    ASSERT_EQ(stat(own.c_str(), &status), 0);
    EXPECT_NE(status.st_gid, 1234U);
    EXPECT_EQ(status.st_mode & 07777, 0644U);
}

TEST(ReplaceFile, KeepsExtendedAttributes) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    if (setxattr(path.c_str(), "user.origin", "elsewhere", 9, 0) != 0)
        GTEST_SKIP() << "this disk keeps no extended attributes";
    replaceFile(path, writing("new"));
    char value[20];
    ASSERT_EQ(getxattr(path.c_str(), "user.origin", value, sizeof value), 9);
    EXPECT_EQ(std::string(value, 9), "elsewhere");
}

// An access list as the system keeps it: the owner and user 1234 may write, the mask allows it.
std::string accessListWithUser1234() {
    std::string list("\2\0\0\0", 4);
    const auto add = [&](std::uint16_t tag, std::uint16_t rights, std::uint32_t id) {
        for (const std::uint32_t half : {std::uint32_t{tag}, std::uint32_t{rights}, id & 0xFFFF, id >> 16}) {
            list += static_cast<char>(half & 0xFF);
            list += static_cast<char>(half >> 8);
        }
    };
    add(1, 6, 0xFFFFFFFF);  // the owner
    add(2, 6, 1234);        // a user
    add(4, 4, 0xFFFFFFFF);  // the group
    add(16, 6, 0xFFFFFFFF); // the mask
    add(32, 4, 0xFFFFFFFF); // everybody else
    return list;
}

constexpr const char* accessList = "system.posix_acl_access";

TEST(ReplaceFile, KeepsTheAccessListAndGivesTheGroupNoMore) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    const auto list = accessListWithUser1234();
    if (setxattr(path.c_str(), accessList, list.data(), list.size(), 0) != 0)
        GTEST_SKIP() << "this disk keeps no access lists";
    replaceFile(path, writing("new"));
    std::string now(200, '\0');
    const auto size = getxattr(path.c_str(), accessList, now.data(), now.size());
    EXPECT_EQ(now.substr(0, static_cast<std::size_t>(std::max<ssize_t>(size, 0))), list);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0664)); // the middle is the mask's
}

TEST(ReplaceFile, TakesNoAccessListFromTheFolder) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    fs::permissions(path, fs::perms(0640));
    const auto list = accessListWithUser1234();
    if (setxattr(folder.path().c_str(), "system.posix_acl_default", list.data(), list.size(), 0) != 0)
        GTEST_SKIP() << "this disk keeps no access lists";
    replaceFile(path, writing("new"));
    EXPECT_LT(getxattr(path.c_str(), accessList, nullptr, 0), 0);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
}

TEST(ReplaceFile, BreaksOtherHardLinksOnlyWhenAllowed) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    fs::create_hard_link(path, folder.path() / "b.bas");
    try {
        replaceFile(path, writing("new"));
        FAIL();
    } catch (const FileError& error) {
        EXPECT_EQ(error.number(), 75);
        EXPECT_EQ(error.reason(), "the file has other hard links");
    }
    EXPECT_EQ(folder.read("a.bas"), "old");
    EXPECT_THAT(folder.names(), UnorderedElementsAre("a.bas", "b.bas"));
    replaceFile(path, writing("new"), {.breakLinks = true});
    EXPECT_EQ(folder.read("a.bas"), "new");
    EXPECT_EQ(folder.read("b.bas"), "old");
}

TEST(ReplaceFile, SeesAWriteThatPutTheOldTimeBack) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    FileStamp stamp;
    readFile(path, &stamp);
    const auto time = fs::last_write_time(path);
    // The system's clock may not have moved on yet.
    for (FileStamp now = stamp; now.changed == stamp.changed; stampOf(path, now)) {
        folder.write("a.bas", "odl");
        fs::last_write_time(path, time);
    }
    EXPECT_EQ(errorNumberOf([&] { replaceFile(path, writing("new"), {.stamp = stamp}); }), 70);
    EXPECT_EQ(folder.read("a.bas"), "odl");
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
