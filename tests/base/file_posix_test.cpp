// Pipes, links, permissions and devices as POSIX systems have them.
#ifndef _WIN32

#include "base/error_of.h"
#include "base/file.h"
#include "base/other_user.h"
#include "base/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace corvelle::base {
namespace {

namespace fs = std::filesystem;
using test::errorNumberOf;
using test::TemporaryFolder;

TEST(ReadFile, ReadsAPipeToItsEnd) {
    const TemporaryFolder folder;
    const auto pipe = folder.path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string bytes(200001, 'x');
    std::thread writer([&] { writeFile(pipe, bytes); });
    EXPECT_EQ(readFile(pipe), bytes);
    writer.join();
}

TEST(ReadFile, ReadsAFileThatTellsNoSize) {
    // Files that the kernel makes up have size 0 and yet text.
    EXPECT_NE(readFile("/proc/self/status").find("Name:"), std::string::npos);
}

TEST(ReadFile, RefusesMoreThanFourGigabytes) {
    const TemporaryFolder folder;
    const auto path = folder.write("large.bas", "");
    fs::resize_file(path, std::uintmax_t{1} << 32); // takes no room on the disk
    EXPECT_EQ(errorNumberOf([&] { readFile(path); }), 7);
}

TEST(ReadFile, RefusesAFileThatMayNotBeRead) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "x");
    fs::permissions(path, fs::perms::none);
    const test::OtherUser user;
    EXPECT_EQ(errorNumberOf([&] { readFile(path); }), 70);
}

TEST(ReadStandardInput, ReadsToTheEnd) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.txt", std::string(100000, 'x') + '\r' + '\n');
    const int before = dup(0);
    const FileDescriptor file = openToRead(path);
    ASSERT_EQ(dup2(file.number(), 0), 0);
    EXPECT_EQ(readStandardInput(), std::string(100000, 'x') + "\r\n");
    dup2(before, 0);
    close(before);
}

TEST(WriteFile, TellsThatTheDiskIsFull) {
    EXPECT_EQ(errorNumberOf([] { writeFile("/dev/full", "x"); }), 61);
}

} // namespace
} // namespace corvelle::base

#endif
