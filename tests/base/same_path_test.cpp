#include "base/paths.h"
#include "base/temporary_folder.h"

#include <gtest/gtest.h>

namespace corvelle::base {
namespace {

using test::TemporaryFolder;

#ifndef _WIN32
TEST(IsSamePath, LooksThroughLinks) {
    const TemporaryFolder folder;
    const auto file = folder.write("sub/a", "");
    std::filesystem::create_symlink(file, folder.path() / "file");
    std::filesystem::create_directory_symlink(folder.path() / "sub", folder.path() / "link");
    EXPECT_TRUE(isSamePath(file, folder.path() / "file"));
    EXPECT_TRUE(isSamePath(folder.path() / "sub" / "none", folder.path() / "link" / "none"));
}
#endif

TEST(IsSamePath, LooksThroughDots) {
    const TemporaryFolder folder;
    const auto file = folder.write("sub/a", "");
    const auto other = folder.write("b", "");
    EXPECT_TRUE(isSamePath(file, file));
    EXPECT_TRUE(isSamePath(file, folder.path() / "sub" / ".." / "sub" / "a"));
    EXPECT_FALSE(isSamePath(file, other));
}

TEST(IsSamePath, ComparesFilesThatDoNotExist) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "sub");
    EXPECT_TRUE(isSamePath(folder.path() / "a", folder.path() / "." / "a"));
    EXPECT_FALSE(isSamePath(folder.path() / "a", folder.path() / "b"));
    EXPECT_TRUE(isSamePath("a", std::filesystem::current_path() / "a"));
}

} // namespace
} // namespace corvelle::base
