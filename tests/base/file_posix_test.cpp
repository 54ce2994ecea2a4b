// Pipes, links, permissions and devices as POSIX systems have them.
#ifndef _WIN32

#include "base/error_of.h"
#include "base/file.h"
#include "base/other_user.h"
#include "base/temporary_folder.h"

#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace corvelle::base {
namespace {

namespace fs = std::filesystem;
using test::errorNumberOf;
using test::TemporaryFolder;

std::string reasonGivenBy(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const std::exception& error) {
        return reasonOf(error);
    }
    return {};
}

TEST(ReadFile, RefusesWhatIsNoFileWithoutWaiting) {
    const TemporaryFolder folder;
    const auto pipe = folder.path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const auto socketPath = folder.path() / "s";
    const FileDescriptor listener(::socket(AF_UNIX, SOCK_STREAM, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(socketPath.native().size(), sizeof address.sun_path);
    socketPath.native().copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(listener.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    for (const auto& [path, words] : {std::pair(pipe, "this is a FIFO, not a file"),
                                      {socketPath, "this is a socket, not a file"},
                                      {fs::path("/dev/tty"), "this is a device, not a file"},
                                      {folder.path(), "this is a folder, not a file"}}) {
        EXPECT_EQ(errorNumberOf([&, &path = path] { readFile(path); }), 75) << path;
        EXPECT_EQ(reasonGivenBy([&, &path = path] { readFile(path); }), words);
    }
}

TEST(ReadFile, WaitsForNobodyAtAFifoThatHasTakenTheFilesPlace) {
    const TemporaryFolder folder;
    const auto pipe = folder.path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const FileDescriptor file = openToRead(pipe);
    ASSERT_TRUE(file.isOpen());
    EXPECT_EQ(whatInsteadOfFile(file.number()), "a FIFO");
}

TEST(ReadFile, SaysWhyAPathLeadsNowhere) {
    const TemporaryFolder folder;
    fs::create_symlink("loop.bas", folder.path() / "loop.bas");
    EXPECT_EQ(reasonGivenBy([&] { readFile(folder.path() / "loop.bas"); }),
              "symbolic links that lead in a circle");
    EXPECT_EQ(reasonGivenBy([&] { readFile(folder.path() / std::string(5000, 'x')); }),
              "the name is too long");
    EXPECT_EQ(reasonGivenBy([&] { readFile(folder.path() / "no" / "such" / "a.bas"); }),
              "Path not found: " + (folder.path() / "no").native());
}

TEST(ReadFile, StopsAfterTheFirstBlockThatIsRefused) {
    const TemporaryFolder folder;
    const auto path = folder.write("huge.bas", "");
    fs::resize_file(path, std::uintmax_t{1} << 40); // takes no room on the disk
    std::size_t seen = 0;
    const auto check = [&](std::string_view block) {
        seen = block.size();
        throw std::logic_error("not this one");
    };
    EXPECT_THROW(readFile(path, nullptr, check), std::logic_error);
    EXPECT_EQ(seen, 65536U);
}

TEST(ReasonOf, NamesALackOfMemory) {
    EXPECT_EQ(reasonOf(std::bad_alloc()), "Out of memory");
    EXPECT_EQ(reasonOf(RunTimeError(ErrorNumber::DiskFull)), "Disk full");
    EXPECT_EQ(reasonOf(std::runtime_error("words")), "words");
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
