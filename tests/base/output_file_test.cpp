#include "base/error_of.h"
#include "base/file.h"
#include "base/temporary_folder.h"

#include <functional>
#include <gtest/gtest.h>

namespace corvelle::base {
namespace {

using test::errorNumberOf;
using test::TemporaryFolder;

TEST(OutputFile, WritesFromTheStart) {
    const TemporaryFolder folder;
    const auto path = folder.write("a", "old old old");
    OutputFile file(path);
    file.write("a");
    file.write(std::string(100000, 'b'));
    file.close();
    EXPECT_EQ(folder.read("a"), "a" + std::string(100000, 'b'));
}

TEST(OutputFile, TruncatesAtOnce) {
    const TemporaryFolder folder;
    const auto path = folder.write("a", "old");
    const OutputFile file(path);
    EXPECT_EQ(folder.read("a"), "");
}

TEST(OutputFile, KeepsWhatWasWrittenWhenItIsNotClosed) {
    const TemporaryFolder folder;
    const auto path = folder.path() / "a";
    {
        OutputFile file(path);
        file.write("text");
    }
    EXPECT_EQ(folder.read("a"), "text");
}

TEST(OutputFile, RefusesWhatCannotBeWritten) {
    const TemporaryFolder folder;
    const auto readOnly = folder.write("ro", "x");
    std::filesystem::permissions(readOnly, std::filesystem::perms(0444));
    EXPECT_EQ(errorNumberOf([&] { OutputFile file(folder.path()); }), 75);
    EXPECT_EQ(errorNumberOf([&] { OutputFile file(folder.path() / "none" / "a"); }), 76);
    EXPECT_EQ(errorNumberOf([&] { OutputFile file(readOnly); }), 75);
    EXPECT_EQ(folder.read("ro"), "x");
}

#ifdef __linux__
TEST(OutputFile, TellsThatTheDiskIsFull) {
    OutputFile file("/dev/full");
    file.write("x");
    EXPECT_EQ(errorNumberOf([&] { file.close(); }), 61);
    EXPECT_EQ(errorNumberOf([] {
                  OutputFile large("/dev/full");
                  large.write(std::string(100000, 'x'));
              }),
              61);
}
#endif

} // namespace
} // namespace corvelle::base
