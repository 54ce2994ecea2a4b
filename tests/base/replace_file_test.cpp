#include "base/file.h"
#include "base/temporary_folder.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace corvelle::base {
namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

auto writing(std::string bytes) {
    return [bytes = std::move(bytes)](FileWriter& writer) { writer.write(bytes); };
}

std::int32_t errorOf(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const FileError& error) {
        return error.number();
    }
    return 0;
}

// Lets this process write files of that size at most, as on a full disk.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

  private:
    rlimit before_{};
    void (*handler_)(int);
};

TEST(ReplaceFile, PutsTheNewBytesInPlace) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    replaceFile(path, writing("new bytes"));
    EXPECT_EQ(folder.read("a.bas"), "new bytes");
    EXPECT_THAT(folder.names(), ElementsAre("a.bas"));
}

TEST(ReplaceFile, PutsAnotherFileInPlaceOfTheOldOne) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    const std::ifstream reader(path); // a reader that came before sees the old file to its end
    replaceFile(path, writing("new"));
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader.rdbuf()), {}), "old");
}

TEST(ReplaceFile, CreatesAFileThatIsNotThere) {
    const TemporaryFolder folder;
    replaceFile(folder.path() / "a.bas", writing("new"));
    EXPECT_EQ(folder.read("a.bas"), "new");
    EXPECT_EQ(errorOf([&] { replaceFile(folder.path() / "none" / "a.bas", writing("new")); }), 76);
}

TEST(ReplaceFile, TakesANameInTheCurrentFolder) {
    const TemporaryFolder folder;
    folder.write("a.bas", "old");
    const auto before = fs::current_path();
    fs::current_path(folder.path());
    replaceFile("a.bas", writing("new"));
    fs::current_path(before);
    EXPECT_EQ(folder.read("a.bas"), "new");
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
    EXPECT_EQ(errorOf([&] { replaceFile(folder.path() / "dangling.bas", writing("new")); }), 53);
    EXPECT_EQ(errorOf([&] { replaceFile(folder.path() / "loop.bas", writing("new")); }), 57);
    EXPECT_THAT(folder.names(), UnorderedElementsAre("dangling.bas", "loop.bas"));
}

TEST(ReplaceFile, RefusesAFileWithoutAnyWritePermission) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    fs::permissions(path, fs::perms(0555));
    EXPECT_EQ(errorOf([&] { replaceFile(path, writing("new")); }), 70);
    EXPECT_EQ(folder.read("a.bas"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("a.bas"));
}

TEST(ReplaceFile, RefusesAFileThatThisUserMayNotWrite) {
    if (geteuid() == 0) GTEST_SKIP() << "root writes everything";
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    fs::permissions(path, fs::perms(0466)); // the owner alone may not
    EXPECT_EQ(errorOf([&] { replaceFile(path, writing("new")); }), 70);
}

TEST(ReplaceFile, RefusesWhatIsNoFile) {
    const TemporaryFolder folder;
    const auto pipe = folder.path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { replaceFile(pipe, writing("new")); }), 75);
    EXPECT_EQ(errorOf([&] { replaceFile(folder.path(), writing("new")); }), 75);
    EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST(ReplaceFile, LeavesTheOldFileWhenTheWriterFails) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    const auto failing = [](FileWriter& writer) {
        writer.write(std::string(100000, 'x'));
        throw std::logic_error("no more");
    };
    EXPECT_THROW(replaceFile(path, failing), std::logic_error);
    EXPECT_EQ(folder.read("a.bas"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("a.bas"));
}

TEST(ReplaceFile, LeavesTheOldFileWhenTheDiskIsFull) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    const FileSizeLimit limit(50000);
    EXPECT_EQ(errorOf([&] { replaceFile(path, writing(std::string(50001, 'x'))); }), 61);
    EXPECT_EQ(errorOf([&] { replaceFile(path, writing(std::string(500000, 'x'))); }), 61);
    EXPECT_EQ(folder.read("a.bas"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("a.bas"));
    replaceFile(path, writing(std::string(50000, 'x')));
    EXPECT_EQ(folder.read("a.bas").size(), 50000U);
}

TEST(ReplaceFile, RefusesAFileThatWasChangedSinceItWasRead) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    FileStamp stamp;
    readFile(path, &stamp);

    folder.write("a.bas", "grown");
    EXPECT_EQ(errorOf([&] { replaceFile(path, writing("new"), stamp); }), 70);
    readFile(path, &stamp);
    fs::last_write_time(path, fs::last_write_time(path) + std::chrono::seconds(1));
    EXPECT_EQ(errorOf([&] { replaceFile(path, writing("new"), stamp); }), 70);
    readFile(path, &stamp);
    fs::rename(folder.write("b.bas", "other"), path);
    EXPECT_EQ(errorOf([&] { replaceFile(path, writing("new"), stamp); }), 70);
    readFile(path, &stamp);
    fs::remove(path);
    EXPECT_EQ(errorOf([&] { replaceFile(path, writing("new"), stamp); }), 70);
    EXPECT_THAT(folder.names(), ElementsAre());
}

TEST(ReplaceFile, SaysThatTheFileWasChanged) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    try {
        replaceFile(path, writing("new"), FileStamp{});
        FAIL();
    } catch (const FileError& error) {
        EXPECT_EQ(error.description(), "the file was changed meanwhile");
    }
}

TEST(ReplaceFile, SeesAChangeDuringTheWriting) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    FileStamp stamp;
    readFile(path, &stamp);
    const auto slow = [&](FileWriter& writer) {
        writer.write("new");
        folder.write("a.bas", "somebody else's");
    };
    EXPECT_EQ(errorOf([&] { replaceFile(path, slow, stamp); }), 70);
    EXPECT_EQ(folder.read("a.bas"), "somebody else's");
}

TEST(ReplaceFile, ReplacesAnUnchangedFile) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    FileStamp stamp;
    readFile(path, &stamp);
    replaceFile(path, writing("new"), stamp);
    EXPECT_EQ(folder.read("a.bas"), "new");
}

TEST(ReplaceFile, PassesOverATemporaryFileLeftByACrash) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    folder.write(".corvelle0.tmp", "left over");
    replaceFile(path, writing("new"));
    EXPECT_EQ(folder.read("a.bas"), "new");
    EXPECT_EQ(folder.read(".corvelle0.tmp"), "left over");
    EXPECT_THAT(folder.names(), UnorderedElementsAre("a.bas", ".corvelle0.tmp"));
}

TEST(ReplaceFile, WorksOnManyFilesOfOneFolderAtOnce) {
    const TemporaryFolder folder;
    for (int i = 0; i < 40; ++i) folder.write(std::to_string(i) + ".bas", "old");
    const auto replaceSome = [&](int first) {
        for (int i = first; i < 40; i += 4)
            replaceFile(folder.path() / (std::to_string(i) + ".bas"), writing("new " + std::to_string(i)));
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) threads.emplace_back(replaceSome, i);
    for (auto& thread : threads) thread.join();
    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(folder.read(std::to_string(i) + ".bas"), "new " + std::to_string(i));
    EXPECT_EQ(folder.names().size(), 40U);
}

} // namespace
} // namespace corvelle::base
