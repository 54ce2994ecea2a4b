#include "base/file.h"
#include "base/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace corvelle::base {
namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;

std::int32_t errorOf(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const FileError& error) {
        return error.number();
    }
    return 0;
}

TEST(ReadFile, GivesEveryByte) {
    const TemporaryFolder folder;
    std::string bytes;
    for (int i = 0; i < 300000; ++i) bytes += static_cast<char>(i * 7 + i / 256);
    EXPECT_EQ(readFile(folder.write("a.bin", bytes)), bytes);
}

TEST(ReadFile, GivesNothingForAnEmptyFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(readFile(folder.write("a.bin", "")), "");
}

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

TEST(ReadFile, TellsAMissingFileFromAMissingFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(errorOf([&] { readFile(folder.path() / "none.bas"); }), 53);
    EXPECT_EQ(errorOf([&] { readFile(folder.path() / "none" / "none.bas"); }), 76);
    EXPECT_EQ(errorOf([&] { readFile(folder.write("a.bas", "") / "none.bas"); }), 76);
    EXPECT_EQ(errorOf([] { readFile("none-of-that-name.bas"); }), 53);
}

TEST(ReadFile, RefusesAFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(errorOf([&] { readFile(folder.path()); }), 75);
}

TEST(ReadFile, RefusesMoreThanFourGigabytes) {
    const TemporaryFolder folder;
    const auto path = folder.write("large.bas", "");
    fs::resize_file(path, std::uintmax_t{1} << 32); // takes no room on the disk
    EXPECT_EQ(errorOf([&] { readFile(path); }), 7);
}

TEST(ReadFile, RefusesAFileThatMayNotBeRead) {
    if (geteuid() == 0) GTEST_SKIP() << "root reads everything";
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "x");
    fs::permissions(path, fs::perms::none);
    EXPECT_EQ(errorOf([&] { readFile(path); }), 70);
}

TEST(ReadFile, TakesAStampThatChangesWithTheFile) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", "one");
    FileStamp first, second, third;
    readFile(path, &first);
    readFile(path, &second);
    EXPECT_EQ(first, second);
    folder.write("a.bas", "longer");
    readFile(path, &third);
    EXPECT_NE(first, third);
}

TEST(ReadStandardInput, ReadsToTheEnd) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.txt", std::string(100000, 'x') + '\r' + '\n');
    ASSERT_NE(std::freopen(path.c_str(), "rb", stdin), nullptr);
    EXPECT_EQ(readStandardInput(), std::string(100000, 'x') + "\r\n");
}

TEST(WriteFile, CreatesAndTruncates) {
    const TemporaryFolder folder;
    const auto path = folder.path() / "a.bas";
    writeFile(path, "a long text");
    EXPECT_EQ(folder.read("a.bas"), "a long text");
    writeFile(path, "short");
    EXPECT_EQ(folder.read("a.bas"), "short");
}

TEST(WriteFile, TellsWhyItCannot) {
    const TemporaryFolder folder;
    EXPECT_EQ(errorOf([&] { writeFile(folder.path() / "none" / "a.bas", ""); }), 76);
    EXPECT_EQ(errorOf([&] { writeFile(folder.path(), ""); }), 75);
    EXPECT_EQ(errorOf([&] { writeFile("/dev/full", "x"); }), 61);
}

TEST(FileWriter, KeepsTheOrderOfSmallAndLargePieces) {
    const TemporaryFolder folder;
    const auto path = folder.path() / "a.bin";
    std::string wanted;
    {
        const FileDescriptor file = openToTruncate(path);
        FileWriter writer(file.number(), path);
        for (std::size_t size : {0, 1, 65535, 65536, 65537, 3, 200000, 7}) {
            const std::string piece(size, static_cast<char>('a' + wanted.size() % 26));
            writer.write(piece);
            wanted += piece;
        }
        writer.flush();
    }
    EXPECT_EQ(readFile(path), wanted);
}

TEST(FileErrorOf, MapsWhatTheSystemReports) {
    const auto number = [](std::errc code, const fs::path& path) {
        return fileErrorOf(std::make_error_code(code), path).number();
    };
    EXPECT_EQ(number(std::errc::permission_denied, "a"), 70);
    EXPECT_EQ(number(std::errc::operation_not_permitted, "a"), 70);
    EXPECT_EQ(number(std::errc::read_only_file_system, "a"), 70);
    EXPECT_EQ(number(std::errc::no_space_on_device, "a"), 61);
    EXPECT_EQ(number(std::errc::file_too_large, "a"), 61);
    EXPECT_EQ(number(std::errc::is_a_directory, "a"), 75);
    EXPECT_EQ(number(std::errc::not_a_directory, "a"), 76);
    EXPECT_EQ(number(std::errc::io_error, "a"), 57);
    EXPECT_EQ(number(std::errc::too_many_symbolic_link_levels, "a"), 57);
    EXPECT_STREQ(fileErrorOf(std::make_error_code(std::errc::no_space_on_device), "a").what(), "Disk full");
}

} // namespace
} // namespace corvelle::base
