#include "base/error_of.h"
#include "base/file.h"
#include "base/temporary_folder.h"

#include <gtest/gtest.h>

namespace corvelle::base {
namespace {

namespace fs = std::filesystem;
using test::errorNumberOf;
using test::TemporaryFolder;

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

TEST(ReadFile, TellsAMissingFileFromAMissingFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(errorNumberOf([&] { readFile(folder.path() / "none.bas"); }), 53);
    EXPECT_EQ(errorNumberOf([&] { readFile(folder.path() / "none" / "none.bas"); }), 76);
    EXPECT_EQ(errorNumberOf([&] { readFile(folder.write("a.bas", "") / "none.bas"); }), 76);
    EXPECT_EQ(errorNumberOf([] { readFile("none-of-that-name.bas"); }), 53);
}

TEST(ReadFile, RefusesAFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(errorNumberOf([&] { readFile(folder.path()); }), 75);
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
    EXPECT_EQ(errorNumberOf([&] { writeFile(folder.path() / "none" / "a.bas", ""); }), 76);
    EXPECT_EQ(errorNumberOf([&] { writeFile(folder.path(), ""); }), 75);
    const auto readOnly = folder.write("a.bas", "old");
    fs::permissions(readOnly, fs::perms(0444));
    EXPECT_EQ(errorNumberOf([&] { writeFile(readOnly, "new"); }), 75);
    EXPECT_EQ(folder.read("a.bas"), "old");
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
