#include "base/error_of.h"
#include "base/file.h"
#include "base/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

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

TEST(ReplaceFile, PutsTheNewBytesInPlace) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    replaceFile(path, writing("new bytes"));
    EXPECT_EQ(folder.read("a.bas"), "new bytes");
    EXPECT_THAT(folder.names(), ElementsAre("a.bas"));
}

TEST(ReplaceFile, CreatesAFileThatIsNotThere) {
    const TemporaryFolder folder;
    replaceFile(folder.path() / "a.bas", writing("new"));
    EXPECT_EQ(folder.read("a.bas"), "new");
    EXPECT_EQ(errorNumberOf([&] { replaceFile(folder.path() / "none" / "a.bas", writing("new")); }), 76);
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

TEST(ReplaceFile, RefusesAFileWithoutAnyWritePermission) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    fs::permissions(path, fs::perms(0555));
    try {
        replaceFile(path, writing("new"));
        FAIL();
    } catch (const FileError& error) {
        EXPECT_EQ(error.number(), 75);
        EXPECT_EQ(error.description(), "Path/File access error");
        EXPECT_EQ(error.reason(), "the file is read-only");
    }
    EXPECT_EQ(folder.read("a.bas"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("a.bas"));
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

TEST(ReplaceFile, RefusesAFileThatWasChangedSinceItWasRead) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    FileStamp stamp;
    readFile(path, &stamp);

    folder.write("a.bas", "grown");
    EXPECT_EQ(errorNumberOf([&] { replaceFile(path, writing("new"), {.stamp = stamp}); }), 70);
    readFile(path, &stamp);
    fs::last_write_time(path, fs::last_write_time(path) + std::chrono::seconds(1));
    EXPECT_EQ(errorNumberOf([&] { replaceFile(path, writing("new"), {.stamp = stamp}); }), 70);
    readFile(path, &stamp);
    fs::rename(folder.write("b.bas", "other"), path);
    EXPECT_EQ(errorNumberOf([&] { replaceFile(path, writing("new"), {.stamp = stamp}); }), 70);
    readFile(path, &stamp);
    fs::remove(path);
    EXPECT_EQ(errorNumberOf([&] { replaceFile(path, writing("new"), {.stamp = stamp}); }), 70);
    EXPECT_THAT(folder.names(), ElementsAre());
}

TEST(ReplaceFile, SaysThatTheFileWasChanged) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    try {
        replaceFile(path, writing("new"), {.stamp = FileStamp{}});
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
    EXPECT_EQ(errorNumberOf([&] { replaceFile(path, slow, {.stamp = stamp}); }), 70);
    EXPECT_EQ(folder.read("a.bas"), "somebody else's");
}

TEST(ReplaceFile, ReplacesAnUnchangedFile) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    FileStamp stamp;
    readFile(path, &stamp);
    replaceFile(path, writing("new"), {.stamp = stamp});
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
    threads.reserve(4);
    for (int i = 0; i < 4; ++i) threads.emplace_back(replaceSome, i);
    for (auto& thread : threads) thread.join();
    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(folder.read(std::to_string(i) + ".bas"), "new " + std::to_string(i));
    EXPECT_EQ(folder.names().size(), 40U);
}

} // namespace
} // namespace corvelle::base
