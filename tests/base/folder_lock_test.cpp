#include "base/error_of.h"
#include "base/file_error.h"
#include "base/folder_lock.h"
#include "base/temporary_folder.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <system_error>
#include <thread>
#include <vector>

#ifndef _WIN32
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace corvelle::base {
namespace {

using test::errorOf;
using test::TemporaryFolder;
using testing::HasSubstr;
using testing::IsEmpty;
using namespace std::chrono_literals;

// Whether the files can be locked at once.
test::ErrorSeen lockNow(const std::vector<std::filesystem::path>& files) {
    return errorOf([&] { FolderLock(files, 0ms); });
}

TEST(FolderLock, IsHadByOneAtATime) {
    const TemporaryFolder folder;
    const auto a = folder.path() / "a.h";
    {
        const FolderLock lock({a});
        const auto error = lockNow({folder.path() / "b.h"}); // no matter which file of the folder
        EXPECT_EQ(error.number, 70);
        EXPECT_THAT(error.description, HasSubstr("another run of corvelle is at work in "));
        EXPECT_THAT(error.description, HasSubstr(folder.path().filename().string()));
    }
    EXPECT_EQ(lockNow({a}).number, 0);
}

TEST(FolderLock, LeavesNothingOnTheDisk) {
    const TemporaryFolder folder;
    { const FolderLock lock({folder.path() / "a.h"}); }
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST(FolderLock, MeetsInAnyOfTheFolders) {
    const TemporaryFolder folder;
    const auto one = folder.write("one/a.h", ""), two = folder.write("two/a.txt", ""),
               three = folder.write("three/a.hcnf", "");
    const FolderLock lock({one, two});
    EXPECT_EQ(lockNow({three, two}).number, 70);
    EXPECT_EQ(lockNow({three}).number, 0); // none is kept by one that had to give up
}

TEST(FolderLock, TakesAFolderOnceWhateverItsNames) {
    const TemporaryFolder folder;
    const auto file = folder.write("sub/a.h", "");
    EXPECT_EQ(lockNow({file, folder.path() / "sub/b.h", folder.path() / "sub/../sub/a.h",
                       folder.path() / "sub/./c.h"})
                  .number,
              0);
}

TEST(FolderLock, LeavesOutAFolderThatIsNotThere) {
    const TemporaryFolder folder;
    const FolderLock lock({folder.path() / "none" / "a.h", folder.path() / "a.h"});
    EXPECT_EQ(lockNow({folder.path() / "none" / "a.h"}).number, 0);
    EXPECT_EQ(lockNow({folder.path() / "a.h"}).number, 70);
}

TEST(FolderLock, WaitsForItsTurn) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "a.h";
    std::atomic<int> inside = 0, most = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int turn = 0; turn < 10; ++turn) {
                const FolderLock lock({file});
                most = std::max<int>(most, ++inside);
                std::this_thread::yield();
                --inside;
            }
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(most, 1);
}

#ifndef _WIN32
TEST(FolderLock, StandsForTheFileThatALinkPointsTo) {
    const TemporaryFolder folder;
    const auto file = folder.write("there/a.h", "");
    std::filesystem::create_symlink(file, folder.path() / "link.h");
    const FolderLock lock({folder.path() / "link.h"});
    EXPECT_EQ(lockNow({file}).number, 70);
    EXPECT_EQ(lockNow({folder.path() / "other.h"}).number, 0);
}

TEST(FolderLock, EndsWithAProcessThatIsKilled) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "a.h";
    int held[2];
    ASSERT_EQ(pipe(held), 0);
    const auto child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const FolderLock lock({file});
        if (write(held[1], "x", 1) == 1) pause();
        _exit(1);
    }
    char got = 0;
    ASSERT_EQ(read(held[0], &got, 1), 1);
    EXPECT_EQ(lockNow({file}).number, 70);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(held[0]);
    close(held[1]);
    EXPECT_EQ(lockNow({file}).number, 0);
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST(FolderLock, NeedsNoRightToWrite) {
    const TemporaryFolder folder;
    const auto file = folder.write("sub/a.h", "");
    std::filesystem::permissions(file.parent_path(), std::filesystem::perms(0555));
    {
        const FolderLock lock({file});
        EXPECT_EQ(lockNow({file}).number, 70);
    }
    std::filesystem::permissions(file.parent_path(), std::filesystem::perms(0755));
}
#endif

} // namespace
} // namespace corvelle::base
