#include "base/error_of.h"
#include "base/pending_file.h"
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

TEST(ReplaceFile, SweepsWhatAKilledRunHasLeft) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    for (int i = 0; i < 10; ++i)
        folder.write(".corvelle-000000000000000" + std::to_string(i) + ".tmp", "left over");
    replaceFile(path, writing("new"));
    EXPECT_EQ(folder.read("a.bas"), "new");
    EXPECT_THAT(folder.names(), ElementsAre("a.bas"));
}

TEST(ReplaceFile, SweepsNothingThatIsNotOurs) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    std::vector<std::string> others{".corvelle.tmp", ".corvelle0.tmp", ".corvelle-0123456789abcdeg.tmp",
                                    ".corvelle-0123456789abcdef.tmp2", "x.corvelle-0123456789abcdef.tmp",
                                    // Neither the file nor the state that the name tells.
                                    ".corvelle-0123456789abcdef-0123456789abcdef-0123456789abcdef.tmp"};
    for (const auto& name : others) folder.write(name, "somebody's");
    fs::create_directory(folder.path() / ".corvelle-00000000000000ff.tmp");
    replaceFile(path, writing("new"));
    others.insert(others.end(), {"a.bas", ".corvelle-00000000000000ff.tmp"});
    EXPECT_THAT(folder.names(), testing::UnorderedElementsAreArray(others));
}

TEST(ReplaceFile, SweepsNothingThatABatchMayNeed) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    folder.write(".corvelle-0123456789abcdef.tmp", "one of several");
    folder.write(".corvelle-0123456789abcdef.set", "which they are");
    replaceFile(path, writing("new"));
    EXPECT_EQ(folder.read(".corvelle-0123456789abcdef.tmp"), "one of several");
}

TEST(PendingFile, IsNotSweptByOthersBeforeItIsInItsPlace) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    PendingFile pending(path);
    pending.writer().write("new");
    for (const auto& name : folder.names()) {
        if (name != "a.bas") sweep(folder.path() / name);
    }
    pending.finish();
    EXPECT_EQ(folder.names().size(), 2U);
    pending.commit();
    EXPECT_EQ(folder.read("a.bas"), "new");
    EXPECT_THAT(folder.names(), ElementsAre("a.bas"));
}

TEST(PendingFile, GoesWhenItIsNotCommitted) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    {
        PendingFile pending(path);
        pending.writer().write("new");
        pending.finish();
    }
    EXPECT_EQ(folder.read("a.bas"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("a.bas"));
}

TEST(ReplaceFile, SeesAChangeThatKeepsTimeAndSize) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "old");
    FileStamp stamp;
    readFile(path, &stamp);
    const ReplaceOptions options{.stamp = stamp, .content = "odl"}; // as if the clock had not moved between
    EXPECT_EQ(errorNumberOf([&] { replaceFile(path, writing("new"), options); }), 70);
    EXPECT_EQ(folder.read("a.bas"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("a.bas"));
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
